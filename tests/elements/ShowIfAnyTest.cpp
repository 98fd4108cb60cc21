// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/ShowIfAny.h"

#include "app/screens/elements/Announcement.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QEvent>
#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// What a screen reader, told that a widget comes into view, finds as its name.
class NameInView final : public QObject
{
public:
    explicit NameInView(QWidget *watched) { watched->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            name = qobject_cast<QWidget *>(watched)->accessibleName();
        return false;
    }

    QString name;
};

} // namespace

TEST(ShowIfAny, ShowsATextAndHidesALabelWithoutOne)
{
    QLabel label;
    showIfAny(&label, u"A note"_s);
    EXPECT_TRUE(label.isVisible());
    EXPECT_EQ(label.text(), u"A note"_s);
    showIfAny(&label, std::nullopt);
    EXPECT_FALSE(label.isVisible());
    EXPECT_EQ(label.text(), QString());
}

TEST(ShowIfAny, TakesAnEmptyTextForNone)
{
    QLabel label;
    showIfAny(&label, u"A note"_s);
    showIfAny(&label, QString());
    EXPECT_FALSE(label.isVisible());
}

TEST(ShowIfAny, NamesAnAnnouncerBeforeItComesIntoView)
{
    QLabel label;
    makeAnnouncer(&label);
    const NameInView inView(&label);
    announceIfAny(&label, u"Saved"_s);
    EXPECT_EQ(label.text(), u"Saved"_s);
    EXPECT_EQ(inView.name, u"Saved"_s);
    announceIfAny(&label, std::nullopt);
    EXPECT_FALSE(label.isVisible());
    EXPECT_EQ(label.accessibleName(), QString());
}

} // namespace tonearm
