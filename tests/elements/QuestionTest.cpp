// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/Question.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "helpers/WindowUser.h"

#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct QuestionTest : testing::Test
{
    QMessageBox &ask(const QString &message)
    {
        openQuestion(&window, {u"Really?"_s, message, u"Go"_s, u"Stay"_s},
                     [this](bool accepted) { answers.append(accepted); });
        return user.dialog();
    }

    static QString lines(int count) { return QStringList(count, u"A line of the message"_s).join(u'\n'); }

    QWidget window;
    WindowUser user{window};
    QList<bool> answers;
};

} // namespace

TEST_F(QuestionTest, ShowsAFewLinesWhole)
{
    const QMessageBox &dialog = ask(lines(10));
    EXPECT_FALSE(dialog.findChild<QAbstractScrollArea *>());
    EXPECT_GT(dialog.height(), 10 * dialog.fontMetrics().height());
    user.answer(u"Stay"_s);
    EXPECT_EQ(answers, QList<bool>{false});
}

TEST_F(QuestionTest, LetsManyLinesScroll)
{
    const QMessageBox &dialog = ask(lines(1000));
    EXPECT_LT(dialog.height(), 40 * dialog.fontMetrics().height());
    EXPECT_EQ(dialog.informativeText(), lines(1000));
    const auto *area = dialog.findChild<QAbstractScrollArea *>();
    ASSERT_TRUE(area);
    const auto *message = area->findChild<QLabel *>();
    ASSERT_TRUE(message);
    EXPECT_GE(message->height(), 1000 * dialog.fontMetrics().height());
    EXPECT_EQ(message->textFormat(), Qt::PlainText);
    EXPECT_GE(message->width(), message->fontMetrics().horizontalAdvance(u"A line of the message"_s));
    user.answer(u"Go"_s);
    EXPECT_EQ(answers, QList<bool>{true});
}

TEST_F(QuestionTest, WrapsLongLinesAmongMany)
{
    const QMessageBox &dialog = ask(u"Some words that go on and on "_s.repeated(20) + lines(100));
    const auto *area = dialog.findChild<QAbstractScrollArea *>();
    ASSERT_TRUE(area);
    EXPECT_EQ(area->findChild<QLabel *>()->width(), area->viewport()->width());
}

TEST_F(QuestionTest, IsAskedWhileThereIsSomethingToAsk)
{
    QProperty<int> count;
    askWhilePresent(
        &window, [&count] { return count.value() > 0 ? std::optional(count.value()) : std::nullopt; },
        [](int asked) {
            return QuestionWords{u"Really?"_s, QString::number(asked), u"Go"_s, u"Stay"_s};
        },
        [this, &count](bool accepted) {
            answers.append(accepted);
            count = 0;
        });
    EXPECT_TRUE(user.dialogs().isEmpty());
    count = 1;
    EXPECT_EQ(user.dialog().informativeText(), u"1"_s);
    count = 2;
    EXPECT_EQ(user.dialog().informativeText(), u"2"_s);
    count = 0;
    EXPECT_TRUE(user.dialogs().isEmpty());
    EXPECT_TRUE(answers.isEmpty());
    count = 3;
    static_cast<void>(user.dialog());
    press(Qt::Key_Escape);
    EXPECT_EQ(answers, QList<bool>{false});
    EXPECT_TRUE(user.dialogs().isEmpty());
}

} // namespace tonearm
