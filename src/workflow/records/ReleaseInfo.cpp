// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/records/ReleaseInfo.h"

#include "support/Text.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QString joinedWithoutEmpty(QStringList pieces, const QString &separator)
{
    pieces.removeAll(QString());
    return pieces.join(separator);
}

} // namespace

std::optional<QString> ReleaseInfo::trackCountText() const
{
    const std::optional<qint64> count = tracks.isEmpty() ? trackCount : tracks.size();
    if (!count)
        return std::nullopt;
    return counted(*count, u"track"_s);
}

QString ReleaseInfo::displayName() const
{
    QString name = joinedWithoutEmpty({artist, title}, u" - "_s);
    if (name.isEmpty())
        name = id;
    if (!year.isEmpty())
        name += u" ("_s + year + u')';
    return name + u" ["_s + tonearm::displayName(source) + u']';
}

QString ReleaseInfo::detailLine() const
{
    return joinedWithoutEmpty(
        {trackCountText().value_or(QString()), mediaFormat, country, label, catalogNumber}, u" · "_s);
}

} // namespace tonearm
