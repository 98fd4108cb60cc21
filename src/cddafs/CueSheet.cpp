// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/CueSheet.h"

#include <QRegularExpression>
#include <QStringList>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

struct FileLine
{
    QString name;
    QString type;
};

// Names may be in any encoding, so that other bytes than ASCII are compared as they are.
QList<FileLine> fileLines(const QByteArray &sheet)
{
    static const QRegularExpression pattern(
        uR"re(^[ \t]*FILE[ \t]+(?:"([^"\r\n]*)"|([^ \t\r\n]+))[ \t]+([A-Za-z0-9]+))re"_s,
        QRegularExpression::MultilineOption | QRegularExpression::CaseInsensitiveOption);
    QList<FileLine> lines;
    auto matches = pattern.globalMatch(QString::fromLatin1(sheet));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        lines.append({.name = match.captured(1) + match.captured(2), .type = match.captured(3).toUpper()});
    }
    return lines;
}

} // namespace

std::optional<QString> cueSheetProblem(const QByteArray &sheet, const QString &binName)
{
    const QList<FileLine> lines = fileLines(sheet);
    if (lines.size() != 1)
        return u"Only images with one FILE line can be read."_s;
    if (lines.front().type != u"BINARY"_s)
        return u"Only images of the type BINARY can be read."_s;
    if (lines.front().name != QString::fromLatin1(binName.toUtf8()))
        return u"The image's FILE line has to name "_s + binName + u'.';
    return std::nullopt;
}

} // namespace tonearm
