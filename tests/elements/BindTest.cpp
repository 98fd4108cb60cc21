// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/Bind.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QPushButton>

#include <memory>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// A model as the screens meet it: fields that can be observed, and plain functions of them.
struct Model
{
    QProperty<QString> artist;
    QProperty<QString> title;
    QProperty<bool> busy = QProperty<bool>(false);
    mutable int evaluations = 0;

    QString name() const { return artist.value() + u" — "_s + title.value(); }

    QString status() const
    {
        ++evaluations;
        return busy ? name() : u"Ready"_s;
    }
};

struct Incomparable
{
    int number = 0;
};

struct WithoutDefault
{
    explicit WithoutDefault(int initial)
        : number(initial)
    {
    }

    bool operator==(const WithoutDefault &) const = default;

    int number;
};

// Something whose destruction changes the model, as a text box's does when it loses the focus.
struct Ending : QObject
{
    std::function<void()> onEnd;

    ~Ending() override { onEnd(); }
};

struct Ended : Ending
{
};

using TextSum = decltype(QString() % QString());

} // namespace

static_assert(BindableValue<QString>);
static_assert(!BindableValue<TextSum>, "the sum refers to texts that are gone");

TEST(Bind, ShowsTheValueAtOnce)
{
    Model model;
    QLabel label;
    bind(
        &label, [&] { return model.status(); }, &QLabel::setText);
    EXPECT_EQ(label.text(), u"Ready"_s);
    EXPECT_EQ(model.evaluations, 1);
}

TEST(Bind, CallsTheSetterAtOnceEvenForADefaultValue)
{
    QPushButton button;
    bind(
        &button, [] { return false; }, &QPushButton::setEnabled);
    EXPECT_FALSE(button.isEnabled());
}

TEST(Bind, FollowsThePropertiesThatTheLastEvaluationRead)
{
    Model model;
    QLabel label;
    bind(
        &label, [&] { return model.status(); }, &QLabel::setText);

    model.artist = u"Artist"_s;
    EXPECT_EQ(model.evaluations, 1) << "nobody has read the artist yet";
    model.busy = true;
    EXPECT_EQ(label.text(), u"Artist — "_s);
    model.title = u"Title"_s;
    EXPECT_EQ(label.text(), u"Artist — Title"_s);
    model.busy = false;
    EXPECT_EQ(label.text(), u"Ready"_s);
    const int before = model.evaluations;
    model.artist = u"Other"_s;
    EXPECT_EQ(model.evaluations, before) << "nobody reads the artist any more";
}

TEST(Bind, EvaluatesOnceForEachChange)
{
    Model model;
    model.busy = true;
    QLabel label;
    bind(
        &label, [&]() -> QString { return model.status() + model.artist.value() + model.artist.value(); },
        &QLabel::setText);
    EXPECT_EQ(model.evaluations, 1);
    model.artist = u"Artist"_s;
    EXPECT_EQ(model.evaluations, 2);
}

TEST(Bind, UpdatesOnceForAGroupOfChanges)
{
    Model model;
    model.busy = true;
    QObject target;
    QStringList seen;
    bind(
        &target, [&] { return model.status(); }, [&](const QString &text) { seen.append(text); });
    Qt::beginPropertyUpdateGroup();
    model.artist = u"Artist"_s;
    model.title = u"Title"_s;
    Qt::endPropertyUpdateGroup();
    EXPECT_EQ(seen, QStringList({u" — "_s, u"Artist — Title"_s}));
}

TEST(Bind, FollowsPropertiesThatAreBoundThemselves)
{
    QProperty<int> count(1);
    QProperty<bool> many;
    many.setBinding([&] { return count > 1; });
    QLabel label;
    bind(
        &label, [&]() -> QString { return many ? QString::number(count) + u" discs"_s : u"1 disc"_s; },
        &QLabel::setText);
    EXPECT_EQ(label.text(), u"1 disc"_s);
    count = 3;
    EXPECT_EQ(label.text(), u"3 discs"_s);
}

TEST(Bind, IsSilentWhileTheValueStaysEqual)
{
    QProperty<int> count(1);
    QObject target;
    QList<bool> seen;
    bind(
        &target, [&] { return count > 5; }, [&](bool many) { seen.append(many); });
    count = 2;
    count = 3;
    EXPECT_EQ(seen, QList<bool>({false}));
    count = 6;
    count = 6;
    count = 7;
    EXPECT_EQ(seen, QList<bool>({false, true}));
}

TEST(Bind, TakesEachValueThatCannotBeComparedForAnother)
{
    QProperty<int> count(1);
    QObject target;
    QList<int> seen;
    bind(
        &target, [&] { return Incomparable{count / 10}; },
        [&](const Incomparable &value) { seen.append(value.number); });
    count = 2;
    count = 30;
    EXPECT_EQ(seen, QList<int>({0, 0, 3}));
}

TEST(Bind, ManagesWithoutADefaultValue)
{
    QProperty<int> count(1);
    QObject target;
    QList<int> seen;
    bind(
        &target, [&] { return WithoutDefault(count); },
        [&](const WithoutDefault &value) { seen.append(value.number); });
    count = 2;
    EXPECT_EQ(seen, QList<int>({1, 2}));
}

TEST(Bind, GivesTheTargetToASetterThatWantsIt)
{
    QProperty<QString> text(u"One"_s);
    QAction action;
    bind(
        &action, [&] { return text.value(); },
        [](QAction *target, const QString &value) { target->setToolTip(value); });
    text = u"Two"_s;
    EXPECT_EQ(action.toolTip(), u"Two"_s);
}

TEST(Bind, EndsWithTheWidget)
{
    Model model;
    auto label = std::make_unique<QLabel>();
    bind(
        label.get(), [&] { return model.status(); }, &QLabel::setText);
    label.reset();
    model.busy = true;
    EXPECT_EQ(model.evaluations, 1);
}

TEST(Bind, LeavesAWidgetAloneThatIsBeingDestroyed)
{
    QProperty<int> count(1);
    QList<int> seen;
    {
        Ended target;
        target.onEnd = [&] { count = 2; };
        bind(
            &target, [&] { return count.value(); }, [&](Ended *, int value) { seen.append(value); });
    }
    EXPECT_EQ(count, 2);
    EXPECT_EQ(seen, QList<int>({1}));
}

TEST(Bind, OutlivesThePropertiesItReads)
{
    QProperty<QString> other(u"there"_s);
    auto model = std::make_unique<Model>();
    QLabel label;
    bind(
        &label, [&] { return model ? model->status() : other.value(); }, &QLabel::setText);
    model.reset();
    EXPECT_EQ(label.text(), u"Ready"_s);
    other = u"still there"_s;
    EXPECT_EQ(label.text(), u"Ready"_s) << "nothing that it read last is left to change";
}

TEST(Bind, LetsASetterReplaceWidgetsThatFollowTheSameProperty)
{
    QProperty<int> count(2);
    QWidget list;
    const auto rebuild = [&](int rows) {
        qDeleteAll(list.findChildren<QLabel *>());
        for (int row = 0; row < rows; ++row) {
            auto *label = new QLabel(&list);
            bind(
                label, [&, row]() -> QString { return u"%1 of %2"_s.arg(row + 1).arg(count.value()); },
                &QLabel::setText);
        }
    };
    bind(
        &list, [&] { return count.value(); }, rebuild);
    count = 5;
    count = 3;
    const QList<QLabel *> labels = list.findChildren<QLabel *>();
    ASSERT_EQ(labels.size(), 3);
    EXPECT_EQ(labels.last()->text(), u"3 of 3"_s);
}

TEST(Bind, LetsASetterDestroyItsTarget)
{
    QProperty<int> count(1);
    auto target = std::make_unique<QObject>();
    bind(
        target.get(), [&] { return count.value(); },
        [&](int value) {
            if (value == 2)
                target.reset();
        });
    count = 2;
    EXPECT_FALSE(target);
    count = 3;
    EXPECT_FALSE(target);
}

TEST(Bind, LetsASetterChangeWhatAnotherBindingReads)
{
    QProperty<int> count(1);
    QProperty<int> twice(0);
    QObject first;
    QLabel second;
    bind(
        &second, [&]() -> QString { return QString::number(twice); }, &QLabel::setText);
    bind(
        &first, [&] { return count.value(); }, [&](int value) { twice = 2 * value; });
    count = 4;
    EXPECT_EQ(second.text(), u"8"_s);
}

} // namespace tonearm
