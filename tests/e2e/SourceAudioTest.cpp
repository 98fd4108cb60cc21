// SPDX-License-Identifier: GPL-3.0-or-later
// What the window says of the source's audio.
#include "e2e/ShownWindow.h"

#include "app/screens/elements/IconView.h"
#include "app/screens/mainwindow/SourceAudioRow.h"
#include "helpers/Printing.h"
#include "helpers/Rendering.h"

#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct Kind
{
    AudioStreamInfo audio;
    QString word;
    QString name;
};

AudioStreamInfo stream(const QString &codec, qint64 sampleRate, std::optional<qint64> bits)
{
    AudioStreamInfo audio;
    audio.codecName = codec;
    audio.sampleRateHertz = sampleRate;
    audio.bitDepth = bits;
    audio.channelLayout = u"stereo"_s;
    return audio;
}

QList<Kind> kinds()
{
    return {
        {stream(u"flac"_s, 44100, 16), u"CD quality"_s,
         u"Source audio: CD quality. FLAC · 16-bit · 44.1 kHz · Stereo"_s},
        {stream(u"truehd"_s, 96000, 24), u"High resolution"_s,
         u"Source audio: High resolution. Dolby TrueHD · 24-bit · 96 kHz · Stereo"_s},
        {stream(u"ac3"_s, 48000, {}), u"Lossy"_s, u"Source audio: Lossy. Dolby Digital · 48 kHz · Stereo"_s}};
}

using SourceAudioTest = WindowTest;

} // namespace

TEST_F(SourceAudioTest, IsntThereWithoutASource)
{
    EXPECT_FALSE(window.window().findChild<SourceAudioRow *>()->isVisible());
    model.sourceAudio = kinds().first().audio;
    EXPECT_TRUE(window.window().findChild<SourceAudioRow *>()->isVisible());
    model.sourceAudio = std::nullopt;
    EXPECT_FALSE(window.window().findChild<SourceAudioRow *>()->isVisible());
}

TEST_F(SourceAudioTest, TellsItsClassInWords)
{
    for (const Kind &kind : kinds()) {
        SCOPED_TRACE(kind.word.toStdString());
        model.sourceAudio = kind.audio;
        EXPECT_TRUE(window.shows<SourceAudioRow>(kind.name));
        EXPECT_TRUE(window.shows<QLabel>(kind.audio.summaryLine()));
        EXPECT_TRUE(window.shows<QLabel>(kind.audio.qualityNote()));
        EXPECT_EQ(window.find<IconView>(kind.word).size(), QSize(20, 20));
    }
}

TEST_F(SourceAudioTest, TellsItsClassByABadge)
{
    QList<QImage> badges;
    for (const Kind &kind : kinds()) {
        model.sourceAudio = kind.audio;
        badges.append(rendered(window.find<IconView>(kind.word)));
    }
    EXPECT_NE(badges[0], badges[1]);
    EXPECT_NE(badges[0], badges[2]);
    EXPECT_NE(badges[1], badges[2]);
}

TEST_F(SourceAudioTest, FollowsTheDesktopFromLightToDark)
{
    model.sourceAudio = kinds().first().audio;
    const QImage light = rendered(window.find<IconView>(u"CD quality"_s));
    const PaletteScope dark(darkPalette());
    const QImage badge = rendered(window.find<IconView>(u"CD quality"_s));
    const auto brightest = [](const QImage &image) {
        int value = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                value = std::max(value, qGray(image.pixel(x, y)));
        return value;
    };
    EXPECT_NE(badge, light);
    // Bright strokes on the dark ground.
    EXPECT_GT(brightest(badge), 200);
}

} // namespace tonearm
