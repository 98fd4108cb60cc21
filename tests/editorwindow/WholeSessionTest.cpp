// SPDX-License-Identifier: GPL-3.0-or-later
// Whole sessions with real files, read back by a tagger of another make.
#include "editorwindow/EditorWindowTest.h"

#include "app/screens/elements/ArtworkWell.h"
#include "helpers/Contents.h"
#include "helpers/Mutagen.h"

#include <QCryptographicHash>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct WholeSession : EditorWindowTest
{
    void chooseFolder()
    {
        surroundings.panels().prepareAnswer(surroundings.songs().url());
        click(window.button(u"Choose Folder…"_s));
        ASSERT_TRUE(
            eventually([this] { return !model.isLoading.value() && !model.selection.value().isEmpty(); }));
    }

    QMap<QString, QStringList> tagsOf(const QString &name)
    {
        return mutagenTags(surroundings.songs().path(name));
    }

    const QStringList names = {u"a.flac"_s, u"b.mp3"_s, u"c.m4a"_s};
};

} // namespace

TEST_F(WholeSession, GivesThreeFormatsAnAlbumAndACover)
{
    QList<QByteArray> sound;
    for (const QString &name : names) {
        surroundings.songs().makeSong(name, {u"title=Song of "_s + name, u"artist=The Artist"_s});
        sound.append(audioPacketDigest(surroundings.songs().path(name)));
    }
    ASSERT_NO_FATAL_FAILURE(chooseFolder());
    EXPECT_EQ(model.selection.value().size(), 3);
    const QUrl cover = surroundings.makeNoise(u"cover.jpg"_s, 64);

    // As it is pasted, or composed.
    window.box(u"Album Title"_s).insert(u" Ænima – 音楽 "_s);
    EXPECT_TRUE(drop(window.find<ArtworkWell>(u"Cover art drop area"_s), {cover}));
    ASSERT_TRUE(eventually([this] { return model.chosenArtwork.value().has_value(); }));
    EXPECT_TRUE(window.shows(u"3 files will be written."_s));
    press(Qt::Key_S, Qt::ControlModifier);
    window.waitFor(u"Saved 3 files."_s);

    const QString digest = QString::fromLatin1(
        QCryptographicHash::hash(readFile(cover.toLocalFile()), QCryptographicHash::Sha256).toHex());
    for (qsizetype index = 0; index < names.size(); ++index) {
        const QString name = names.at(index);
        EXPECT_EQ(tagsOf(name).value(u"album"_s), QStringList{u"Ænima – 音楽"_s}) << name.toStdString();
        EXPECT_EQ(tagsOf(name).value(u"title"_s), QStringList{u"Song of "_s + name});
        EXPECT_EQ(mutagenPictures(surroundings.songs().path(name)), QStringList{digest});
        EXPECT_EQ(audioPacketDigest(surroundings.songs().path(name)), sound.at(index));
    }
    EXPECT_EQ(window.box(u"Album Title"_s).text(), u"Ænima – 音楽"_s);
    EXPECT_FALSE(window.button(u"Save"_s).isEnabled());
    press(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
}

TEST_F(WholeSession, GoesOnFromOneSaveToTheNext)
{
    surroundings.songs().makeSong(u"a.flac"_s, {u"artist=A"_s, u"date=1969"_s});
    surroundings.songs().makeSong(u"b.mp3"_s, {u"artist=B"_s, u"date=1970"_s});
    ASSERT_NO_FATAL_FAILURE(chooseFolder());
    EXPECT_EQ(window.box(u"Year"_s).placeholderText(), u"-"_s);
    window.fillIn(u"Year"_s, u"1971-05-01"_s);
    click(window.button(u"Save"_s));
    window.waitFor(u"Saved 2 files."_s);
    EXPECT_EQ(window.box(u"Year"_s).text(), u"1971"_s);
    select({u"b.mp3"_s});
    window.fillIn(u"Artist"_s, u"Both"_s);
    EXPECT_FALSE(window.shows(u"Saved 2 files."_s));
    click(window.button(u"Save"_s));
    window.waitFor(u"Saved 1 file."_s);
    EXPECT_EQ(tagsOf(u"a.flac"_s).value(u"artist"_s), QStringList{u"A"_s});
    EXPECT_EQ(tagsOf(u"b.mp3"_s).value(u"artist"_s), QStringList{u"Both"_s});
    EXPECT_EQ(tagsOf(u"b.mp3"_s).value(u"date"_s), QStringList{u"1971"_s});
}

TEST_F(WholeSession, TakesACoverOut)
{
    surroundings.songs().makeSongWithCover(u"a.flac"_s, surroundings.songs().makePicture(u"cover.jpg"_s));
    ASSERT_NO_FATAL_FAILURE(chooseFolder());
    ASSERT_EQ(mutagenPictures(surroundings.songs().path(u"a.flac"_s)).size(), 1);
    ASSERT_NO_FATAL_FAILURE(surroundings.waitForArtwork());
    EXPECT_TRUE(window.shows(model.artworkCaption().value()));
    model.removeArtwork();
    click(window.button(u"Save"_s));
    window.waitFor(u"Saved 1 file."_s);
    EXPECT_TRUE(mutagenPictures(surroundings.songs().path(u"a.flac"_s)).isEmpty());
    EXPECT_FALSE(model.artworkCaption());
}

} // namespace tonearm
