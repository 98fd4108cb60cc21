// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/UserAgent.h"

namespace tonearm {

using namespace Qt::StringLiterals;

QString contactLink()
{
    return QStringLiteral(TONEARM_CONTACT_LINK);
}

QString userAgent(const QString &version, const std::optional<QString> &contact)
{
    const QString name = u"Tonearm/"_s + (version.isEmpty() ? u"1.0"_s : version);
    return contact ? QString(name + u" ( "_s + *contact + u" )"_s) : name;
}

} // namespace tonearm
