// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editortable/WrappingLayout.h"

#include <gtest/gtest.h>

#include <QWidget>

#include <array>

namespace tonearm {

namespace {

constexpr int gap = 12;
constexpr int lineGap = 4;

// Three pieces of 50 by 10, the second of which can be hidden.
struct Pieces : testing::Test
{
    Pieces()
    {
        layout = new WrappingLayout(gap, lineGap, &window);
        for (QWidget &piece : pieces) {
            piece.setFixedSize(50, 10);
            layout->addWidget(&piece);
        }
    }

    ~Pieces() override
    {
        // They aren't on the heap.
        for (QWidget &piece : pieces)
            piece.setParent(nullptr);
    }

    QList<QPoint> placesAt(int width)
    {
        layout->setGeometry(QRect(0, 0, width, layout->heightForWidth(width)));
        QList<QPoint> places;
        for (const QWidget &piece : pieces)
            places.append(piece.pos());
        return places;
    }

    QWidget window;
    std::array<QWidget, 3> pieces;
    WrappingLayout *layout = nullptr;
};

} // namespace

TEST_F(Pieces, StandInOneLineWhereTheyFit)
{
    EXPECT_EQ(layout->sizeHint(), QSize(174, 10));
    EXPECT_EQ(layout->heightForWidth(174), 10);
    EXPECT_EQ(placesAt(174), QList<QPoint>({{0, 0}, {62, 0}, {124, 0}}));
}

TEST_F(Pieces, GoIntoFurtherLinesWhereTheyDoNotFit)
{
    EXPECT_EQ(layout->heightForWidth(173), 24);
    EXPECT_EQ(placesAt(173), QList<QPoint>({{0, 0}, {62, 0}, {0, 14}}));
    EXPECT_EQ(layout->heightForWidth(60), 38);
    EXPECT_EQ(placesAt(60), QList<QPoint>({{0, 0}, {0, 14}, {0, 28}}));
    EXPECT_EQ(layout->minimumSize(), QSize(50, 10));
}

TEST_F(Pieces, CloseRanksAroundAHiddenOne)
{
    pieces[1].hide();
    EXPECT_EQ(layout->sizeHint(), QSize(112, 10));
    EXPECT_EQ(placesAt(112).last(), QPoint(62, 0));
}

TEST_F(Pieces, StartAtTheRightWhereTextsDo)
{
    window.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(placesAt(174), QList<QPoint>({{124, 0}, {62, 0}, {0, 0}}));
}

} // namespace tonearm
