// SPDX-License-Identifier: GPL-3.0-or-later
// The switches: their words, and that each is bound to its setting both ways.
#include "settingswindow/ShownSettings.h"

#include <QAccessible>
#include <QCheckBox>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct Switch
{
    QString tab;
    QString title;
    bool (*isOn)(const AppSettings &);
    void (*set)(AppSettings &, bool);
};

const QList<Switch> &switches()
{
    static const QList<Switch> all = {
        {u"File Output"_s, u"File tracks into Artist/Album folders"_s,
         [](const AppSettings &settings) { return settings.organizeIntoArtistAlbumFolders(); },
         [](AppSettings &settings, bool on) { settings.setOrganizeIntoArtistAlbumFolders(on); }},
        {u"Audio CDs"_s, u"Eject the disc when you finish with it"_s,
         [](const AppSettings &settings) { return settings.ejectDiscAfterRipping(); },
         [](AppSettings &settings, bool on) { settings.setEjectDiscAfterRipping(on); }},
        {u"Audio CDs"_s, u"Verify each track by reading it twice"_s,
         [](const AppSettings &settings) { return settings.verifyRipsByRereading(); },
         [](AppSettings &settings, bool on) { settings.setVerifyRipsByRereading(on); }},
        {u"Audio CDs"_s, u"Read discs securely with cd-paranoia"_s,
         [](const AppSettings &settings) { return settings.useSecureCDRipping(); },
         [](AppSettings &settings, bool on) { settings.setUseSecureCDRipping(on); }},
        {u"Metadata"_s, u"Apply a release's tracklist as soon as it's selected"_s,
         [](const AppSettings &settings) { return settings.autoMapOnSelect(); },
         [](AppSettings &settings, bool on) { settings.setAutoMapOnSelect(on); }},
        {u"Metadata"_s, u"Shrink artwork that's over the size limit"_s,
         [](const AppSettings &settings) { return settings.shrinkOversizedArtwork(); },
         [](AppSettings &settings, bool on) { settings.setShrinkOversizedArtwork(on); }}};
    return all;
}

struct SwitchesTest : ShownSettings
{
    QCheckBox &box(const Switch &wanted)
    {
        showTab(wanted.tab);
        return find<QCheckBox>(wanted.title);
    }

    // The paragraph is there, and 8 below what it explains.
    void expectExplanation(const QString &tab, const QWidget *explained, const QString &text)
    {
        showTab(tab);
        const QLabel &paragraph = find<QLabel>(text);
        const int bottom = explained->mapTo(&view(), QPoint(0, explained->height())).y();
        EXPECT_EQ(paragraph.mapTo(&view(), QPoint()).y() - bottom, 8);
        EXPECT_LT(paragraph.font().pointSizeF(), view().font().pointSizeF());
    }

    void expectExplained(const QString &tab, const QString &title, const QString &text)
    {
        showTab(tab);
        auto &box = find<QCheckBox>(title);
        expectExplanation(tab, &box, text);
        EXPECT_EQ(box.accessibleDescription(), text);
    }
};

} // namespace

TEST_F(SwitchesTest, StandInTheirOrder)
{
    QStringList shown;
    for (const QString &tab : {u"File Output"_s, u"Audio CDs"_s, u"Metadata"_s}) {
        showTab(tab);
        QList<QCheckBox *> boxes = tabs().currentWidget()->findChildren<QCheckBox *>();
        std::sort(boxes.begin(), boxes.end(), [this](const QCheckBox *one, const QCheckBox *other) {
            return one->mapTo(&view(), QPoint()).y() < other->mapTo(&view(), QPoint()).y();
        });
        for (const QCheckBox *box : boxes)
            shown.append(box->text());
    }
    QStringList expected;
    for (const Switch &one : switches())
        expected.append(one.title);
    EXPECT_EQ(shown, expected);
}

TEST_F(SwitchesTest, ShowTheSettings)
{
    for (const Switch &one : switches())
        EXPECT_EQ(box(one).isChecked(), one.isOn(settings)) << one.title.toStdString();
}

TEST_F(SwitchesTest, SetTheSettings)
{
    for (const Switch &one : switches()) {
        const bool before = one.isOn(settings);
        box(one).click();
        EXPECT_EQ(one.isOn(settings), !before) << one.title.toStdString();
        box(one).click();
        EXPECT_EQ(one.isOn(settings), before) << one.title.toStdString();
    }
}

TEST_F(SwitchesTest, SetNothingElse)
{
    for (const Switch &one : switches()) {
        QList<bool> expected;
        for (const Switch &other : switches())
            expected.append(other.isOn(settings) != (other.title == one.title));
        box(one).click();
        QList<bool> found;
        for (const Switch &other : switches())
            found.append(other.isOn(settings));
        EXPECT_EQ(found, expected) << one.title.toStdString();
    }
}

TEST_F(SwitchesTest, FollowChangesThatAreMadeElsewhere)
{
    for (const Switch &one : switches()) {
        const bool before = one.isOn(settings);
        one.set(settings, !before);
        EXPECT_EQ(box(one).isChecked(), !before) << one.title.toStdString();
    }
}

TEST_F(SwitchesTest, StoreNothingByThemselves)
{
    EXPECT_FALSE(QFileInfo::exists(settingsFile()));
    settings.setUseSecureCDRipping(true);
    // A change that the window only follows is stored once, by who made it.
    ASSERT_TRUE(QFile::remove(settingsFile()));
    showTab(u"Audio CDs"_s);
    EXPECT_TRUE(find<QCheckBox>(u"Read discs securely with cd-paranoia"_s).isChecked());
    EXPECT_FALSE(QFileInfo::exists(settingsFile()));
}

TEST_F(SwitchesTest, AreToggledByTheSpaceBar)
{
    box(switches()[1]).setFocus();
    press(Qt::Key_Space);
    EXPECT_FALSE(settings.ejectDiscAfterRipping());
}

TEST_F(SwitchesTest, AreToggledByAssistiveTools)
{
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(&box(switches()[3]));
    ASSERT_TRUE(interface && interface->actionInterface());
    interface->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(settings.useSecureCDRipping());
}

TEST_F(SwitchesTest, AreExplained)
{
    expectExplained(
        u"File Output"_s, u"File tracks into Artist/Album folders"_s,
        u"With this on, a rip of Rush — Exit Stage Left lands in Rush/Exit Stage Left beneath the folder above. Names are cleaned of characters that upset filesystems. Off, every track is written straight into the output folder."_s);
    expectExplained(
        u"Audio CDs"_s, u"Eject the disc when you finish with it"_s,
        u"The disc stays in the drive after a rip so the results can be read over. With this on, the button that clears the inputs ejects the disc at the same time."_s);
    expectExplained(
        u"Audio CDs"_s, u"Verify each track by reading it twice"_s,
        u"Each track is read from the disc a second time and the two reads compared, so a track that came off differently can be flagged rather than saved silently. It roughly doubles the time a rip takes."_s);
    expectExplained(
        u"Audio CDs"_s, u"Read discs securely with cd-paranoia"_s,
        u"cd-paranoia re-reads and correlates sectors, so a scratched disc is either recovered or reported rather than passed through with errors. On a clean disc it produces identical audio and takes about twice as long."_s);
    expectExplained(u"Metadata"_s, u"Apply a release's tracklist as soon as it's selected"_s,
                    u"Turn this off to review a release before its titles replace the chapter names."_s);
}

TEST_F(SwitchesTest, StandInSections)
{
    EXPECT_TRUE(shows<QLabel>(u"Default Folder"_s));
    showTab(u"Metadata"_s);
    EXPECT_TRUE(shows<QLabel>(u"Tracklists"_s));
    EXPECT_TRUE(shows<QLabel>(u"Artwork"_s));
}

TEST_F(SwitchesTest, ShowWhatWasStoredWhenTheWindowOpensAgain)
{
    box(switches()[2]).click();
    close();
    open();
    EXPECT_TRUE(box(switches()[2]).isChecked());
}

} // namespace tonearm
