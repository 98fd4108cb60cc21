// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/ShownSheet.h"

#include "helpers/Await.h"

#include <QAccessible>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

// Null if it isn't open.
ReleaseResultsSheet *openSheet(ShownWindow &window)
{
    for (auto *sheet : window.window().findChildren<ReleaseResultsSheet *>())
        if (sheet->isVisible())
            return sheet;
    return nullptr;
}

} // namespace

ShownSheet::ShownSheet(ShownWindow &window)
{
    const auto isReady = [&] {
        m_sheet = openSheet(window);
        return m_sheet && m_sheet->isActiveWindow();
    };
    if (!eventually(isReady))
        throw std::runtime_error("the sheet didn't open");
    ShownWindow::settle();
}

bool ShownSheet::isOpen(ShownWindow &window)
{
    return openSheet(window) != nullptr;
}

ReleaseList &ShownSheet::list()
{
    return *m_sheet->findChild<ReleaseList *>();
}

QStringList ShownSheet::rows()
{
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(&list());
    QStringList texts;
    for (int row = 0; row < interface->childCount(); ++row)
        texts.append(interface->child(row)->text(QAccessible::Name));
    return texts;
}

int ShownSheet::highlightedRow()
{
    const QModelIndexList rows = list().selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

QRect ShownSheet::placeOf(int row)
{
    return list().visualRect(list().model()->index(row, 0));
}

void ShownSheet::clickRow(int row, Qt::KeyboardModifiers modifiers)
{
    QTest::mouseClick(list().viewport(), Qt::LeftButton, modifiers, placeOf(row).center());
}

void ShownSheet::doubleClickRow(int row, Qt::KeyboardModifiers modifiers)
{
    clickRow(row, modifiers);
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, modifiers, placeOf(row).center());
}

QPushButton &ShownSheet::button(const QString &name)
{
    auto *found = named<QPushButton>(*m_sheet, name);
    if (!found)
        throw std::runtime_error("the sheet has no button \"" + name.toStdString() + '"');
    return *found;
}

ReleaseInfo foundRelease(const QString &id, const QString &title, std::optional<qint64> trackCount)
{
    ReleaseInfo release;
    release.id = id;
    release.artist = u"The Artist"_s;
    release.title = title;
    release.trackCount = trackCount;
    return release;
}

QList<TrackInfo> tracksTitled(const QStringList &titles)
{
    QList<TrackInfo> tracks;
    for (const QString &title : titles) {
        TrackInfo track;
        track.title = title;
        tracks.append(track);
    }
    return tracks;
}

} // namespace tonearm::test
