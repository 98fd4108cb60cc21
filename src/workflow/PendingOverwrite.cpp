// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/PendingOverwrite.h"

#include "support/PathText.h"

namespace tonearm {

using namespace Qt::StringLiterals;

QString PendingOverwrite::title() const
{
    return filenames.size() == 1 ? u"Replace 1 existing file?"_s
                                 : u"Replace %1 existing files?"_s.arg(filenames.size());
}

QString PendingOverwrite::message() const
{
    constexpr qsizetype shownNames = 5;
    const bool isOne = filenames.size() == 1;
    const qsizetype remaining = filenames.size() - shownNames;

    const QString introduction =
        u"\"%1\" already contains the %2:\n"_s.arg(lastPathComponent(folder), isOne ? u"file"_s : u"files"_s);
    const QString more = remaining > 0 ? u"…and %1 more. "_s.arg(remaining) : QString();
    const QString consequence = isOne ? u"Encoding will overwrite it."_s : u"Encoding will overwrite them."_s;
    return introduction + u'\n' + filenames.first(qMin(shownNames, filenames.size())).join(u'\n') + u"\n\n" +
           more + consequence;
}

} // namespace tonearm
