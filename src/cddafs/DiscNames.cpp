// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/DiscNames.h"

#include "support/AudioDisc.h"
#include "support/FileName.h"
#include "support/Text.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QString cleaned(const QString &title)
{
    QString result;
    for (const QChar unit : title) {
        const QChar::Category category = unit.category();
        if (unit == u'/')
            result.append(u'-');
        else if (category == QChar::Other_Control || category == QChar::Separator_Line ||
                 category == QChar::Separator_Paragraph)
            result.append(u' ');
        else
            result.append(unit);
    }
    return trimmed(result);
}

} // namespace

QString trackFileName(int number, const QString &title)
{
    const QString name = cleaned(title);
    return fittedFileName(QString::number(number) + u' ' +
                              (name.isEmpty() ? QString(untitledTrackName) : name),
                          trackFileEnding);
}

QString volumeName(const QString &discTitle)
{
    QString name = cleaned(discTitle);
    if (name.isEmpty())
        return u"Audio CD"_s;
    // Hidden volumes aren't offered to anybody.
    if (name.startsWith(u'.'))
        name.front() = u'_';
    return fittedFileName(name);
}

} // namespace tonearm
