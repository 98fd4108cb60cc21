// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/LauncherEntry.h"

#include "platform/DesktopEntry.h"

#include <QDBusMessage>
#include <QVariantMap>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QDBusMessage update(const std::optional<double> &fraction)
{
    QDBusMessage signal = QDBusMessage::createSignal(u"/com/canonical/unity/launcherentry/tonearm"_s,
                                                     u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s);
    const QVariantMap properties = {{u"progress"_s, fraction.value_or(0)},
                                    {u"progress-visible"_s, fraction.has_value()}};
    signal << QString(u"application://"_s + desktopEntryName + u".desktop"_s) << properties;
    return signal;
}

} // namespace

LauncherEntry::LauncherEntry(LazyBus &bus, std::chrono::milliseconds interval)
    : m_bus(bus)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(interval);
    QObject::connect(&m_pause, &QTimer::timeout, &m_pause, [this] { send(); });
}

LauncherEntry::~LauncherEntry()
{
    showProgress(std::nullopt);
}

void LauncherEntry::showProgress(std::optional<double> fraction)
{
    m_wanted = fraction;
    const bool isTurnedOnOrOff = m_wanted.has_value() != m_sent.has_value();
    if (isTurnedOnOrOff || !m_pause.isActive())
        send();
}

void LauncherEntry::send()
{
    if (m_wanted == m_sent)
        return;
    m_sent = m_wanted;
    m_pause.start();
    m_bus.use([signal = update(m_sent)](const QDBusConnection &bus) { bus.send(signal); });
}

} // namespace tonearm
