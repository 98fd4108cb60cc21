// SPDX-License-Identifier: GPL-3.0-or-later
// When the pictures of selected files are read, and when not.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/EditorFixture.h"
#include "helpers/FFmpegStandIn.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::EditorFixture;
using State = EditorArtworkState;

namespace {

// A picture whose reading lasts until the test lets it end; each one leaves a line in "reads".
class SlowArtworkReading : public testing::Test
{
protected:
    void SetUp() override
    {
        const QString cover = m_fixture.makeNoise(u"cover.jpg"_s, 16).toLocalFile();
        m_fixture.songs().makeSongWithCover(u"a.flac"_s, cover);
        test::writeFile(m_fixture.songs().path(u"corrupt.flac"_s), "no song");
        m_fixture.open();
        ASSERT_TRUE(m_tools.waitFor(u"reads"_s));
        ASSERT_TRUE(m_model.isReadingArtwork.value());
    }

    void expectEnd()
    {
        EXPECT_TRUE(test::eventually([this] { return !m_tools.isRunning(); }));
        EXPECT_TRUE(test::eventually([this] { return !m_model.isReadingArtwork.value(); }));
        EXPECT_TRUE(m_model.artworkFingerprints.value().isEmpty());
    }

    test::FFmpegStandIn m_tools{R"(echo $$ > "$here/pid"; echo one >> "$here/reads"
                                   while [ ! -e "$here/go" ]; do sleep 0.01; done
                                   exec "$ffmpeg" "$@")"};
    EditorFixture m_fixture{m_tools.location()};
    MetadataEditorModel &m_model = m_fixture.model();
};

} // namespace

TEST(EditorArtworkReading, PassesOverRowsThatWereSelectedBriefly)
{
    const test::FFmpegStandIn tools("for input; do case \"$input\" in *.flac) name=$(basename \"$input\"); "
                                    "esac; done\ntouch \"$here/read-$name\"\nexec \"$ffmpeg\" \"$@\"");
    // Long enough for selections that follow one another without a turn of the event loop.
    EditorFixture fixture(tools.location(), std::chrono::milliseconds(50));
    const QString cover = fixture.makeNoise(u"cover.jpg"_s, 16).toLocalFile();
    for (const QString &name : {u"a.flac"_s, u"b.flac"_s, u"c.flac"_s})
        fixture.songs().makeSongWithCover(name, cover);
    fixture.open();
    fixture.select({u"a.flac"_s});
    fixture.select({u"b.flac"_s});
    fixture.select({u"c.flac"_s});
    ASSERT_NO_FATAL_FAILURE(fixture.waitForArtwork());
    EXPECT_EQ(fixture.model().artworkFingerprints.value().keys(), QList<QUrl>{fixture.row(u"c.flac"_s).url});
    EXPECT_TRUE(QFile::exists(tools.path(u"read-c.flac"_s)));
    EXPECT_FALSE(QFile::exists(tools.path(u"read-a.flac"_s)));
    EXPECT_FALSE(QFile::exists(tools.path(u"read-b.flac"_s)));
    // What has been read is kept.
    ASSERT_TRUE(QFile::remove(tools.path(u"read-c.flac"_s)));
    fixture.select({u"a.flac"_s});
    ASSERT_NO_FATAL_FAILURE(fixture.waitForArtwork());
    fixture.select({u"c.flac"_s});
    EXPECT_EQ(fixture.model().artworkState().kind, State::Kind::image);
    EXPECT_FALSE(QFile::exists(tools.path(u"read-c.flac"_s)));
}

TEST_F(SlowArtworkReading, GoesOnWhenTheSameRowsAreSelectedAgain)
{
    const QSet<QUrl> selected = m_model.selection.value();
    ASSERT_EQ(selected.size(), 1);
    m_model.setSelection(selected);
    m_fixture.select({u"a.flac"_s, u"corrupt.flac"_s});
    EXPECT_EQ(m_model.selection.value(), selected);
    test::writeFile(m_tools.path(u"go"_s), "");
    ASSERT_NO_FATAL_FAILURE(m_fixture.waitForArtwork());
    EXPECT_EQ(m_model.artworkState().kind, State::Kind::image);
    EXPECT_EQ(test::readFile(m_tools.path(u"reads"_s)), "one\n");
}

TEST_F(SlowArtworkReading, EndsWhenTheWindowIsClosed)
{
    m_model.reset();
    expectEnd();
}

TEST_F(SlowArtworkReading, EndsWhenAnotherFolderIsOpened)
{
    ASSERT_TRUE(QDir().mkpath(m_fixture.path(u"empty"_s)));
    m_fixture.open(m_fixture.url(u"empty"_s));
    expectEnd();
}

} // namespace tonearm
