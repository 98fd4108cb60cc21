// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Surroundings.h"

#include <QString>

#include <clocale>
#include <ctime>

namespace tonearm::test {

TimeZone::TimeZone(const QByteArray &zone)
    : m_before(qgetenv("TZ"))
    , m_wasSet(qEnvironmentVariableIsSet("TZ"))
{
    qputenv("TZ", zone);
    ::tzset();
}

TimeZone::~TimeZone()
{
    if (m_wasSet)
        qputenv("TZ", m_before);
    else
        qunsetenv("TZ");
    ::tzset();
}

Locale::Locale(const QByteArray &name)
    : m_libraryBefore(std::setlocale(LC_ALL, nullptr))
{
    QLocale::setDefault(QLocale(QString::fromLatin1(name)));
    const QByteArray libraryName = name + ".UTF-8";
    std::setlocale(LC_ALL, libraryName.constData());
}

Locale::~Locale()
{
    std::setlocale(LC_ALL, m_libraryBefore.c_str());
    QLocale::setDefault(m_before);
}

} // namespace tonearm::test
