// SPDX-License-Identifier: GPL-3.0-or-later
#include "editortable/ShownTable.h"

#include "helpers/Widgets.h"
#include "support/PathText.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QTest>

#include <algorithm>

namespace tonearm::test {

using namespace Qt::StringLiterals;

EditableAudioFile unreadableRow(const QString &name)
{
    EditableAudioFile row = rowOf(name);
    row.unreadableReason = u"Tags couldn't be read."_s;
    return row;
}

QList<EditableAudioFile> manyRows(int count)
{
    QList<EditableAudioFile> rows;
    for (int number = 1; number <= count; ++number) {
        AudioFileTags tags = tagsWith(EditableTagField::artist, u"The Artist"_s);
        tags.title = u"Song No. %1"_s.arg(number);
        tags.trackPosition = QString::number(number);
        rows.append(rowOf(u"%1.flac"_s.arg(number, 5, 10, QChar(u'0')), tags));
    }
    return rows;
}

ShownTable::ShownTable(const QList<EditableAudioFile> &rows)
    : m_table(m_fixture.model(), nullptr)
{
    m_table.resize(868, 360);
    m_fixture.show(rows);
    EXPECT_TRUE(showActive(m_table));
}

EditorRowList &ShownTable::list()
{
    return *m_table.findChild<EditorRowList *>();
}

EditorHeader &ShownTable::header()
{
    return *m_table.findChild<EditorHeader *>();
}

void ShownTable::clickRow(int row, Qt::KeyboardModifiers modifiers)
{
    const QRect cell = list().visualRect(list().model()->index(row, 0));
    QTest::mouseClick(list().viewport(), Qt::LeftButton, modifiers, cell.center());
}

void ShownTable::clickTitle(int column)
{
    const QPoint place(header().sectionViewportPosition(column) + header().sectionSize(column) / 2,
                       header().height() / 2);
    QTest::mouseClick(header().viewport(), Qt::LeftButton, Qt::NoModifier, place);
}

void ShownTable::dragEdge(int column, int by)
{
    QWidget *titles = header().viewport();
    const QPoint edge(header().sectionViewportPosition(column) + header().sectionSize(column) - 1,
                      header().height() / 2);
    QTest::mousePress(titles, Qt::LeftButton, Qt::NoModifier, edge);
    constexpr int steps = 10;
    for (int step = 1; step <= steps; ++step) {
        const QPoint place = edge + QPoint(by * step / steps, 0);
        QMouseEvent move(QEvent::MouseMove, place, titles->mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(titles, &move);
    }
    QTest::mouseRelease(titles, Qt::LeftButton, Qt::NoModifier, edge + QPoint(by, 0));
}

QStringList ShownTable::selectedNames()
{
    QStringList names;
    for (const EditableAudioFile &row : model().selectedFiles())
        names.append(lastPathComponent(row.url));
    return names;
}

QStringList ShownTable::highlightedNames()
{
    QStringList names;
    for (const QModelIndex &index : list().selectionModel()->selectedRows())
        names.append(index.data().toString());
    std::sort(names.begin(), names.end());
    return names;
}

QStringList ShownTable::names()
{
    QStringList names;
    for (int row = 0; row < list().model()->rowCount(); ++row)
        names.append(list().model()->index(row, 0).data().toString());
    return names;
}

bool ShownTable::shows(const QString &text)
{
    return named<QLabel>(m_table, text) != nullptr;
}

} // namespace tonearm::test
