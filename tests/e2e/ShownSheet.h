// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/releases/ReleaseList.h"
#include "app/screens/releases/ReleaseResultsSheet.h"
#include "e2e/ShownWindow.h"

#include <QPushButton>

namespace tonearm::test {

/// The sheet of releases over a window, and a person's ways to it.
class ShownSheet
{
public:
    /// Waits until the sheet is open and active; throws if that doesn't come.
    explicit ShownSheet(ShownWindow &window);

    /// Whether a window has its sheet open.
    static bool isOpen(ShownWindow &window);

    ReleaseResultsSheet &sheet() { return *m_sheet; }

    ReleaseList &list();

    /// The rows as assistive technology has them.
    QStringList rows();

    /// The row that is highlighted; -1 if none is.
    int highlightedRow();

    /// Where a row lies in the list.
    QRect placeOf(int row);

    void clickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void doubleClickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// Whether something of that name is to be seen in the sheet.
    template <typename Type = QWidget> bool shows(const QString &name)
    {
        return !allNamed<Type>(*m_sheet, name).isEmpty();
    }

    /// A button by its name; throws if it isn't there.
    QPushButton &button(const QString &name);

private:
    ReleaseResultsSheet *m_sheet;
};

/// A release as a search brings it.
ReleaseInfo foundRelease(const QString &id, const QString &title, std::optional<qint64> trackCount = {});

/// Tracks with these titles.
QList<TrackInfo> tracksTitled(const QStringList &titles);

} // namespace tonearm::test
