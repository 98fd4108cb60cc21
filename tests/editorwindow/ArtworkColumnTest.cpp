// SPDX-License-Identifier: GPL-3.0-or-later
// The artwork of the selected files.
#include "editorwindow/EditorWindowTest.h"

#include "app/screens/elements/ArtworkWell.h"
#include "app/screens/elements/IconLabel.h"
#include "app/screens/elements/Spinner.h"
#include "app/screens/elements/Tooltip.h"
#include "helpers/Contents.h"
#include "helpers/Menus.h"
#include "helpers/Rendering.h"

#include <QAccessible>
#include <QCheckBox>
#include <QTest>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct ArtworkColumnTest : EditorWindowTest
{
    ArtworkWell &well() { return window.find<ArtworkWell>(u"Cover art drop area"_s); }

    QString description()
    {
        return QAccessible::queryAccessibleInterface(&well())->text(QAccessible::Description);
    }

    QCheckBox &toggle() { return window.find<QCheckBox>(model.optimizeLabel()); }

    QStringList entries()
    {
        QMenu &menu = openContextMenu(well());
        const QStringList texts = entriesOf(menu);
        menu.close();
        return texts;
    }

    void dropAndWait(const QUrl &url)
    {
        EXPECT_TRUE(drop(well(), {url}));
        ASSERT_TRUE(eventually(
            [&] { return model.chosenArtwork.value() && model.chosenArtwork.value()->originalURL == url; }));
    }

    static EditableAudioFile rowWithArt(const QString &name)
    {
        EditableAudioFile row = rowOf(name);
        row.tags.hasAttachedPicture = true;
        return row;
    }

    // Shows one row whose picture is known and of this size in bytes.
    void showArt(qint64 byteCount)
    {
        const EditableAudioFile row = rowWithArt(u"a.flac"_s);
        ArtworkFingerprint known;
        known.digest = u"d"_s;
        known.byteCount = byteCount;
        known.pixelWidth = 600;
        known.pixelHeight = 300;
        QImage image(60, 30, QImage::Format_RGB32);
        image.fill(Qt::red);
        model.artworkFingerprints = QHash<QUrl, ArtworkFingerprint>{{row.url, known}};
        model.artworkPreviews = QHash<QUrl, QImage>{{row.url, image}};
        show({row});
    }
};

} // namespace

TEST_F(ArtworkColumnTest, HasAWell)
{
    EXPECT_EQ(well().size(), QSize(104, 104));
    EXPECT_EQ(well().parentWidget()->width(), 220);
    EXPECT_EQ(well().toolTip(), plainTooltip(u"Drag a JPEG or PNG here, or right-click to choose, view or "
                                             u"remove the artwork of the selected files"_s));
    EXPECT_EQ(description(), u"No selection"_s);
}

TEST_F(ArtworkColumnTest, ShowsTheStateOfTheSelection)
{
    show({rowOf(u"a.flac"_s)});
    EXPECT_EQ(description(), u"No artwork"_s);
    model.removeArtwork();
    EXPECT_EQ(description(), u"Artwork will be removed"_s);
    model.changes = TagChangeSet();
    showArt(1000);
    EXPECT_EQ(description(), u"Holds a picture"_s);
}

TEST_F(ArtworkColumnTest, WarnsOfFilesWithoutArtwork)
{
    show({rowWithArt(u"a.flac"_s), rowOf(u"b.flac"_s), rowOf(u"c.flac"_s), rowOf(u"d.flac"_s)});
    EXPECT_EQ(description(), u"Some files have no artwork"_s);
    const QImage warning = rendered(well());
    well().setContent({ArtworkWellContent::Empty{u"Some files have no artwork"_s}});
    EXPECT_NE(rendered(well()), warning);
    well().setContent({ArtworkWellContent::Conflicting{u"Some files have no artwork"_s}});
    EXPECT_EQ(rendered(well()), warning);
    EXPECT_EQ(entries().last(), u"Remove"_s);
}

TEST_F(ArtworkColumnTest, TurnsWhileArtworkIsRead)
{
    model.isReadingArtwork = true;
    show({rowWithArt(u"a.flac"_s)});
    EXPECT_TRUE(well().findChild<Spinner *>()->isVisible());
    EXPECT_EQ(description(), u"Reading artwork…"_s);
}

TEST_F(ArtworkColumnTest, TellsThePicturesSizes)
{
    showArt(123'000);
    auto &caption = window.find<IconLabel>(u"600 × 300 · 123 KB"_s);
    EXPECT_GE(caption.mapTo(&widget(), QPoint()).y(),
              well().mapTo(&widget(), QPoint()).y() + well().height() + 6);
    select({});
    EXPECT_FALSE(window.shows(u"600 × 300 · 123 KB"_s));
}

TEST_F(ArtworkColumnTest, HasAMenuForWhatCanBeDone)
{
    EXPECT_EQ(entries(), (QStringList{u"(Choose…)"_s, u"-"_s, u"(View Artwork)"_s, u"(Remove)"_s}));
    show({rowOf(u"a.flac"_s)});
    EXPECT_EQ(entries(), (QStringList{u"Choose…"_s, u"-"_s, u"(View Artwork)"_s, u"(Remove)"_s}));
    showArt(1000);
    EXPECT_EQ(entries(), (QStringList{u"Choose…"_s, u"-"_s, u"View Artwork"_s, u"Remove"_s}));
}

TEST_F(ArtworkColumnTest, ConsidersTheFirstOfThreeDroppedFiles)
{
    show({rowOf(u"a.flac"_s)});
    const QUrl first = surroundings.makeNoise(u"first.jpg"_s, 16);
    EXPECT_TRUE(drop(well(), {first, surroundings.url(u"2.jpg"_s), surroundings.url(u"3.jpg"_s)}));
    ASSERT_TRUE(eventually([this] { return model.chosenArtwork.value().has_value(); }));
    EXPECT_EQ(model.chosenArtwork.value()->originalURL, first);
    EXPECT_EQ(description(), u"Holds a picture"_s);
    EXPECT_TRUE(window.shows<IconLabel>(model.artworkCaption().value()));
}

TEST_F(ArtworkColumnTest, TakesNoDropWithoutASelection)
{
    EXPECT_FALSE(drop(well(), {surroundings.makeNoise(u"first.jpg"_s, 16)}));
}

TEST_F(ArtworkColumnTest, RefusesWhatIsNoPicture)
{
    show({rowOf(u"a.flac"_s)});
    EXPECT_FALSE(drop(well(), {surroundings.url(u"moving.gif"_s)}));
    EXPECT_EQ(window.dialog().text(), u"Unsupported Image"_s);
    window.answer(u"OK"_s);
    EXPECT_FALSE(model.alert.value());
    writeFile(surroundings.path(u"noise.JPG"_s), "noise");
    EXPECT_TRUE(drop(well(), {surroundings.url(u"noise.JPG"_s)}));
    EXPECT_EQ(window.dialog().text(), u"Couldn't Read That Image"_s);
    window.answer(u"OK"_s);
    EXPECT_EQ(description(), u"No artwork"_s);
}

TEST_F(ArtworkColumnTest, IsChosenAndRemovedByTheMenu)
{
    show({rowOf(u"a.flac"_s)});
    surroundings.panels().prepareAnswer(surroundings.makeNoise(u"front.jpg"_s, 16));
    pick(openContextMenu(well()), u"Choose…"_s);
    ASSERT_TRUE(eventually([this] { return model.chosenArtwork.value().has_value(); }));
    EXPECT_EQ(surroundings.panels().requests().last().title, u"Choose Artwork"_s);
    pick(openContextMenu(well()), u"Remove"_s);
    EXPECT_EQ(description(), u"Artwork will be removed"_s);
}

TEST_F(ArtworkColumnTest, IsHandledByKeyboard)
{
    show({rowOf(u"a.flac"_s)});
    surroundings.panels().prepareAnswer(surroundings.makeNoise(u"front.jpg"_s, 16));
    well().setFocus();
    press(Qt::Key_Space);
    QTest::keyClick(&openMenu(), Qt::Key_Down);
    QTest::keyClick(&openMenu(), Qt::Key_Return);
    EXPECT_TRUE(eventually([this] { return model.chosenArtwork.value().has_value(); }));
}

TEST_F(ArtworkColumnTest, GoesToTheViewer)
{
    int requests = 0;
    QObject::connect(&widget(), &MetadataEditorWindow::artworkViewingRequested, &widget(),
                     [&] { ++requests; });
    showArt(123'000);
    pick(openContextMenu(well()), u"View Artwork"_s);
    EXPECT_EQ(requests, 1);
    ASSERT_TRUE(viewer.image.value());
    EXPECT_EQ(*viewer.image.value(), model.artworkState().picture);
    EXPECT_EQ(viewer.pixelWidth.value(), 600);
    EXPECT_EQ(viewer.pixelHeight.value(), 300);
    EXPECT_EQ(viewer.summary.value(), u"600 × 300 · 123 KB"_s);
    // A copy, which a change of the selection doesn't touch.
    select({});
    EXPECT_TRUE(viewer.image.value());
}

TEST_F(ArtworkColumnTest, CanOnlyBeShrunkWhereItIsTooLarge)
{
    const qint64 budget = 500 * 1024;
    surroundings.settings().setArtworkSizeBudgetKilobytes(500);
    showArt(budget);
    EXPECT_EQ(toggle().text(), u"Optimize cover art over 500 KB"_s);
    EXPECT_FALSE(toggle().isEnabled());
    EXPECT_EQ(toggle().toolTip(), plainTooltip(u"None of the selected files have artwork over the limit."_s));
    showArt(budget + 1);
    EXPECT_TRUE(toggle().isEnabled());
    EXPECT_EQ(toggle().toolTip(),
              plainTooltip(u"Re-encode the embedded artwork of the selected files that are over the limit, "
                           u"and shrink any image you choose to the same limit."_s));
}

TEST_F(ArtworkColumnTest, IsShrunkByTheToggle)
{
    surroundings.settings().setArtworkSizeBudgetKilobytes(500);
    showArt(600 * 1024);
    EXPECT_FALSE(toggle().isChecked());
    toggle().setFocus();
    press(Qt::Key_Space);
    EXPECT_TRUE(model.isOptimizing());
    EXPECT_TRUE(toggle().isChecked());
    EXPECT_TRUE(model.hasPendingChanges());
    click(toggle());
    EXPECT_FALSE(model.isOptimizing());
    EXPECT_FALSE(toggle().isChecked());
}

TEST_F(ArtworkColumnTest, IsLabelledWithTheLimit)
{
    for (const qint64 limit : {AppSettings::smallestArtworkBudget, AppSettings::largestArtworkBudget}) {
        surroundings.settings().setArtworkSizeBudgetKilobytes(limit);
        EXPECT_EQ(toggle().text(), u"Optimize cover art over %1 KB"_s.arg(limit));
        WindowUser::settle();
        EXPECT_GE(toggle().width(), toggle().sizeHint().width());
    }
}

TEST_F(ArtworkColumnTest, CantBeChangedDuringASave)
{
    showArt(1000);
    const QUrl url = surroundings.makeNoise(u"first.jpg"_s, 16);
    model.isSaving = true;
    EXPECT_FALSE(well().isEnabled());
    EXPECT_FALSE(drop(well(), {url}));
    EXPECT_THROW(openContextMenu(well()), std::runtime_error);
    model.isSaving = false;
    dropAndWait(url);
}

} // namespace tonearm
