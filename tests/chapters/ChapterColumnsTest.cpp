// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/chapters/ChapterColumns.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetrics>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

const QRect row(0, 0, 700, 30);

QRect placeOf(ChapterColumn column, Qt::LayoutDirection direction = Qt::LeftToRight)
{
    return ChapterColumns(QApplication::font()).place(column, row, direction);
}

} // namespace

TEST(ChapterColumns, HaveTheirWidths)
{
    EXPECT_EQ(placeOf(ChapterColumn::preview).width(), 20);
    EXPECT_EQ(placeOf(ChapterColumn::badge).width(), 16);
    EXPECT_EQ(placeOf(ChapterColumn::number).width(), 24);
    EXPECT_EQ(placeOf(ChapterColumn::sourceTitle).width(), 200);
    EXPECT_EQ(placeOf(ChapterColumn::length).width(), 56);
}

TEST(ChapterColumns, FollowEachOtherAndFillTheRow)
{
    EXPECT_EQ(placeOf(ChapterColumn::preview).left(), 0);
    EXPECT_GT(placeOf(ChapterColumn::number).left(), placeOf(ChapterColumn::preview).right());
    EXPECT_GT(placeOf(ChapterColumn::sourceTitle).left(), placeOf(ChapterColumn::number).right());
    EXPECT_GT(placeOf(ChapterColumn::length).left(), placeOf(ChapterColumn::sourceTitle).right());
    EXPECT_GT(placeOf(ChapterColumn::songTitle).left(), placeOf(ChapterColumn::length).right());
    EXPECT_GT(placeOf(ChapterColumn::badge).left(), placeOf(ChapterColumn::songTitle).right());
    EXPECT_EQ(placeOf(ChapterColumn::badge).right(), row.right());
}

TEST(ChapterColumns, AreMirroredWhereTheLayoutIs)
{
    EXPECT_EQ(placeOf(ChapterColumn::preview, Qt::RightToLeft).right(), row.right());
    EXPECT_EQ(placeOf(ChapterColumn::badge, Qt::RightToLeft).left(), 0);
}

TEST(ChapterColumns, GrowWithTheirDigits)
{
    QFont large = QApplication::font();
    large.setPointSizeF(30);
    const ChapterColumns columns(large);
    const QFontMetrics metrics(columns.digits());
    EXPECT_GE(columns.place(ChapterColumn::number, row, Qt::LeftToRight).width(),
              metrics.horizontalAdvance(u"999"_s));
    EXPECT_GE(columns.place(ChapterColumn::length, row, Qt::LeftToRight).width(),
              metrics.horizontalAdvance(u"9:59:59"_s));
}

TEST(ChapterColumns, NeverGetANegativeWidth)
{
    const QRect narrow(0, 0, 100, 30);
    EXPECT_GE(
        ChapterColumns(QApplication::font()).place(ChapterColumn::songTitle, narrow, Qt::LeftToRight).width(),
        0);
}

TEST(ChapterColumns, HaveDigitsOfOneWidth)
{
    const QFontMetrics metrics(ChapterColumns(QApplication::font()).digits());
    for (const QChar digit : u"123456789"_s)
        EXPECT_EQ(metrics.horizontalAdvance(digit), metrics.horizontalAdvance(u'0'));
}

} // namespace tonearm
