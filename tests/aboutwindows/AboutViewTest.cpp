// SPDX-License-Identifier: GPL-3.0-or-later
// The About window but for the tools.
#include "aboutwindows/ShownAbout.h"

#include "app/screens/aboutwindows/LinkButton.h"
#include "app/screens/elements/AppIcon.h"
#include "app/screens/elements/Colours.h"
#include "helpers/Rendering.h"

#include <QAccessible>
#include <QApplication>
#include <QLayout>
#include <QPainter>
#include <QSignalSpy>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct AboutViewTest : ShownAbout
{
    AboutViewTest() { EXPECT_TRUE(showActive(view)); }

    int top(QWidget &widget) { return widget.mapTo(&view, QPoint()).y(); }
};

struct Link
{
    QString text;
    QUrl page;
};

QList<Link> links()
{
    return {{u"News and Updates"_s, QUrl(u"https://tonearm.example/news"_s)},
            {u"Tonearm Product Page"_s, QUrl(u"https://tonearm.example/"_s)},
            {u"MusicBrainz API documentation"_s, QUrl(u"https://musicbrainz.org/doc/MusicBrainz_API"_s)},
            {u"Discogs API documentation"_s, QUrl(u"https://www.discogs.com/developers"_s)}};
}

} // namespace

TEST_F(AboutViewTest, IsTheAboutWindow)
{
    EXPECT_EQ(view.windowTitle(), u"About Tonearm"_s);
    EXPECT_EQ(view.width(), 480);
    EXPECT_EQ(view.minimumSize(), view.maximumSize()) << "it can't be resized";
}

TEST_F(AboutViewTest, IsAsHighAsItsContent)
{
    for (const QLabel *label : view.findChildren<QLabel *>()) {
        if (!label->isVisible())
            continue;
        const int needed =
            label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
        EXPECT_GE(label->height(), needed) << label->text().toStdString();
    }
    const auto &foot = find<QLabel>(u"Copyright © Somebody"_s);
    EXPECT_EQ(view.height() - foot.geometry().bottom() - 1, 24) << "and no higher";
}

TEST_F(AboutViewTest, KeepsItsGroupsApart)
{
    const QLayout &groups = *view.layout();
    ASSERT_EQ(groups.count(), 6);
    int end = 24 - 20;
    for (int group = 0; group < groups.count(); ++group) {
        const QRect place = groups.itemAt(group)->geometry();
        EXPECT_EQ(place.left(), 24);
        EXPECT_EQ(place.width(), 480 - 2 * 24);
        EXPECT_EQ(place.top() - end, 20);
        end = place.bottom() + 1;
    }
    EXPECT_EQ(view.height() - end, 24);
}

TEST_F(AboutViewTest, PalesWhatMattersLess)
{
    const auto colourOf = [this](const QString &text) {
        const auto &label = find<QLabel>(text);
        return label.palette().color(label.foregroundRole());
    };
    EXPECT_EQ(colourOf(u"Tonearm"_s), toneColour(Tone::text, view.palette()));
    EXPECT_EQ(colourOf(u"Version 9.8.7"_s), toneColour(Tone::secondary, view.palette()));
    EXPECT_EQ(colourOf(u"Copyright © Somebody"_s), toneColour(Tone::secondary, view.palette()));
    EXPECT_LT(find<QLabel>(u"Copyright © Somebody"_s).font().pointSizeF(), view.font().pointSizeF());
}

TEST_F(AboutViewTest, NamesTheApplicationAndItsVersion)
{
    const auto &name = find<QLabel>(u"Tonearm"_s);
    EXPECT_EQ(name.font().pointSizeF(), 22);
    EXPECT_EQ(name.font().weight(), QFont::DemiBold);
    const auto &version = find<QLabel>(u"Version 9.8.7"_s);
    EXPECT_TRUE(version.textInteractionFlags() & Qt::TextSelectableByMouse);
    EXPECT_TRUE(version.textInteractionFlags() & Qt::TextSelectableByKeyboard);
    EXPECT_TRUE(shows<QLabel>(u"Rip your music from CDs or Blu-ray Audio Discs with no loss in quality."_s));
}

TEST_F(AboutViewTest, HasItsGroupsInOrder)
{
    int last = 0;
    for (const QString &title : {u"The Tonearm Project"_s, u"Bundled Tools"_s, u"Reference"_s, u"Licences"_s,
                                 u"Copyright © Somebody"_s}) {
        const int here = top(find<QLabel>(title));
        EXPECT_GT(here, last) << title.toStdString();
        last = here;
    }
}

TEST_F(AboutViewTest, OpensItsLinksByAClick)
{
    for (const Link &link : links()) {
        openedLinks.clear();
        click(find<LinkButton>(link.text));
        EXPECT_EQ(openedLinks, QList<QUrl>{link.page});
    }
}

TEST_F(AboutViewTest, OpensItsLinksByKeyboard)
{
    for (const Link &link : links()) {
        openedLinks.clear();
        for (int steps = 0; accessibleNameOf(*QApplication::focusWidget()) != link.text && steps < 20;
             ++steps)
            press(Qt::Key_Tab);
        ASSERT_EQ(accessibleNameOf(*QApplication::focusWidget()), link.text);
        press(Qt::Key_Return);
        press(Qt::Key_Space);
        EXPECT_EQ(openedLinks, (QList<QUrl>{link.page, link.page}));
    }
}

TEST_F(AboutViewTest, TellsOfTheLicences)
{
    EXPECT_TRUE(shows<QLabel>(
        u"Tonearm bundles ffmpeg and cd-paranoia, which run as separate programs under the LGPL and GPL. Their full licence text ships inside the app."_s));
    const QSignalSpy requests(&view, &AboutView::licencesRequested);
    click(find<QPushButton>(u"Show Licences…"_s));
    EXPECT_EQ(requests.size(), 1);
}

TEST_F(AboutViewTest, IsClosedByKeys)
{
    press(Qt::Key_Escape);
    EXPECT_FALSE(view.isVisible());
    ASSERT_TRUE(showActive(view));
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(view.isVisible());
}

TEST_F(AboutViewTest, NamesWhatTakesTheKeyboard)
{
    QStringList names;
    for (QWidget *widget : view.findChildren<QWidget *>())
        if (widget->isVisible() && (widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy())
            names.append(accessibleNameOf(*widget));
    EXPECT_GE(names.size(), 5);
    EXPECT_FALSE(names.contains(QString()));
}

TEST_F(AboutViewTest, ShowsTheApplicationsIcon)
{
    const QImage picture = rendered(view);
    const QRect place((view.width() - 96) / 2, 24, 96, 96);
    QImage expected(96, 96, QImage::Format_RGB32);
    expected.fill(view.palette().color(QPalette::Window));
    QPainter painter(&expected);
    applicationIcon().paint(&painter, expected.rect());
    painter.end();
    EXPECT_EQ(picture.copy(place), expected);
    expected.fill(view.palette().color(QPalette::Window));
    EXPECT_NE(picture.copy(place), expected);
    QWidget *icon = view.childAt(place.center());
    ASSERT_EQ(icon->size(), place.size());
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(icon)->state().invisible)
        << "the name is read out instead";
}

TEST_F(ShownAbout, HasNoFootWithoutANotice)
{
    AboutView bare(model, {.version = u"1"_s, .copyright = {}}, [](const QUrl &) {});
    ASSERT_TRUE(showActive(bare));
    for (const QLabel *label : bare.findChildren<QLabel *>())
        EXPECT_FALSE(label->isVisible() && label->text().isEmpty());
    ASSERT_TRUE(showActive(view));
    EXPECT_LT(bare.height(), view.height());
}

TEST(VersionRecord, IsThatOfTheApplication)
{
    QCoreApplication::setApplicationVersion(u"1.2.3"_s);
    const VersionRecord record = VersionRecord::ofApplication();
    QCoreApplication::setApplicationVersion({});
    EXPECT_EQ(record.version, u"1.2.3"_s);
    EXPECT_EQ(record.copyright, u"Copyright © 2026 The Tonearm Project. GPL-3.0-or-later."_s);
}

} // namespace tonearm
