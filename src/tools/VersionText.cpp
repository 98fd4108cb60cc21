// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/VersionText.h"

#include "support/Text.h"

#include <QStringList>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QStringList lines(const QByteArray &output)
{
    return decodedUtf8(output).value_or(QString()).split(u'\n', Qt::SkipEmptyParts);
}

} // namespace

std::optional<QString> ffmpegVersionSummary(const QByteArray &output)
{
    const QStringList all = lines(output);
    if (all.isEmpty())
        return std::nullopt;
    const QStringList words = all.first().split(u' ', Qt::SkipEmptyParts);
    if (words.size() >= 3 && words[1] == u"version"_s)
        return words[0] + u' ' + words[2];
    return all.first();
}

std::optional<QString> cdParanoiaVersionSummary(const QByteArray &output)
{
    for (const QString &line : lines(output)) {
        if (!trimmedBlanks(line).isEmpty())
            return line.left(line.indexOf(u" libcdio"_s));
    }
    return std::nullopt;
}

} // namespace tonearm
