// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/chapters/ChapterTable.h"

#include "app/screens/chapters/ChapterRowView.h"
#include "chapters/ChapterRows.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace tonearm::test {

/// A window with a table between two buttons. The buttons are made first and last, like the controls of
/// the sections around it.
struct ShownChapterTable : testing::Test
{
    ShownChapterTable()
        : before(new QPushButton(QStringLiteral("Before")))
        , table(new ChapterTable)
        , after(new QPushButton(QStringLiteral("After")))
        , edited(table, &ChapterTable::songTitleEdited)
    {
        auto *column = new QVBoxLayout(&window);
        column->addWidget(before);
        column->addWidget(table, 1);
        column->addWidget(after);
        window.resize(800, 500);
    }

    void showRows(int count)
    {
        table->setRows(chapterRows(count));
        ASSERT_TRUE(showActive(window));
    }

    /// Null where the row has no widget.
    QLineEdit *box(int number)
    {
        return named<QLineEdit>(window, QStringLiteral("Song title for chapter ") + QString::number(number));
    }

    /// Null where the row has no widget.
    QString titleOf(int number)
    {
        const QLineEdit *shown = box(number);
        return shown ? shown->text() : QString();
    }

    void focus(int number)
    {
        QLineEdit *wanted = box(number);
        ASSERT_TRUE(wanted) << number;
        click(*wanted);
        ASSERT_EQ(QApplication::focusWidget(), wanted);
    }

    /// The number of the row that has the focus, counted from 1; 0 if none has.
    int focusedNumber() const
    {
        const QWidget *focused = QApplication::focusWidget();
        const auto *view = focused ? qobject_cast<ChapterRowView *>(focused->parentWidget()) : nullptr;
        return view ? view->index() + 1 : 0;
    }

    bool isInView(int number)
    {
        QLineEdit *wanted = box(number);
        return wanted && !wanted->visibleRegion().isEmpty() &&
               wanted->visibleRegion().boundingRect() == wanted->rect();
    }

    QAbstractScrollArea *list() const { return table->findChild<QAbstractScrollArea *>(); }

    QScrollBar *bar() const { return list()->verticalScrollBar(); }

    int rowHeight() const { return bar()->singleStep(); }

    void scrollTo(int number) const { bar()->setValue((number - 1) * rowHeight()); }

    QList<ChapterRowView *> views() const { return table->findChildren<ChapterRowView *>(); }

    /// The rows as a screen reader walks them.
    QList<int> orderOfRows() const
    {
        QList<int> order;
        for (QObject *child : list()->viewport()->children())
            if (auto *view = qobject_cast<ChapterRowView *>(child); view && !view->isHidden())
                order.append(view->index());
        return order;
    }

    QWidget window;
    QPushButton *before;
    ChapterTable *table;
    QPushButton *after;
    QSignalSpy edited;
};

} // namespace tonearm::test
