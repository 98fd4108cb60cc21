// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/records/AudioStreamInfo.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

struct CodecName
{
    QStringView codec;
    QStringView display;
};

constexpr std::array<CodecName, 11> codecNames{{
    {u"flac", u"FLAC"},
    {u"truehd", u"Dolby TrueHD"},
    {u"mlp", u"MLP"},
    {u"alac", u"ALAC"},
    {u"ac3", u"Dolby Digital"},
    {u"eac3", u"Dolby Digital Plus"},
    {u"dts", u"DTS"},
    {u"aac", u"AAC"},
    {u"mp3", u"MP3"},
    {u"opus", u"Opus"},
    {u"vorbis", u"Vorbis"},
}};

constexpr std::array<QStringView, 7> losslessCodecs{u"flac",        u"truehd", u"mlp",    u"alac",
                                                    u"wmalossless", u"tta",    u"wavpack"};

constexpr qint64 cdBitDepth = 16;
constexpr qint64 cdSampleRateHertz = 44100;

bool isPcm(const QString &codecName)
{
    return codecName.startsWith(u"pcm_");
}

bool isPositive(std::optional<qint64> number)
{
    return number && *number >= 1;
}

// What stands before the remark in brackets: "5.1" of "5.1(side)".
QString layoutText(const QString &layout)
{
    const QStringList pieces = layout.split(u'(', Qt::SkipEmptyParts);
    const QString name = pieces.value(0);
    if (name == u"mono")
        return u"Mono"_s;
    if (name == u"stereo")
        return u"Stereo"_s;
    return name;
}

QString countText(qint64 channels)
{
    if (channels == 1)
        return u"Mono"_s;
    if (channels == 2)
        return u"Stereo"_s;
    return u"%1 channels"_s.arg(channels);
}

} // namespace

QString AudioStreamInfo::codecDisplayName() const
{
    if (codecName == u"dts" && profile && !profile->isEmpty())
        return *profile;
    const auto *const known = std::ranges::find(codecNames, codecName, &CodecName::codec);
    if (known != codecNames.end())
        return known->display.toString();
    return isPcm(codecName) ? u"LPCM"_s : codecName.toUpper();
}

bool AudioStreamInfo::isLossless() const
{
    if (isPcm(codecName) || std::ranges::find(losslessCodecs, codecName) != losslessCodecs.end())
        return true;
    return codecName == u"dts" && profile &&
           (profile->contains(u"MA", Qt::CaseInsensitive) ||
            profile->contains(u"Master Audio", Qt::CaseInsensitive));
}

std::optional<QString> AudioStreamInfo::sampleRateText() const
{
    if (!isPositive(sampleRateHertz))
        return std::nullopt;
    QString kilohertz = QString::number(*sampleRateHertz / 1000);
    qint64 rest = *sampleRateHertz % 1000;
    if (rest != 0)
        kilohertz += u'.';
    for (; rest != 0; rest = rest * 10 % 1000)
        kilohertz += QString::number(rest / 100);
    return kilohertz + u" kHz"_s;
}

std::optional<QString> AudioStreamInfo::channelText() const
{
    const QString layout = layoutText(channelLayout.value_or(QString()));
    if (!layout.isEmpty())
        return layout;
    return isPositive(channelCount) ? std::optional(countText(*channelCount)) : std::nullopt;
}

QString AudioStreamInfo::summaryLine() const
{
    QStringList pieces{codecDisplayName()};
    if (isPositive(bitDepth))
        pieces.append(u"%1-bit"_s.arg(*bitDepth));
    if (const auto rate = sampleRateText())
        pieces.append(*rate);
    if (const auto channels = channelText())
        pieces.append(*channels);
    if (!bitDepth && isPositive(bitRateBitsPerSecond))
        pieces.append(u"%1 kbps"_s.arg(*bitRateBitsPerSecond / 1000));
    return pieces.join(u" · "_s);
}

AudioQuality AudioStreamInfo::quality() const
{
    if (!isLossless())
        return AudioQuality::lossy;
    const bool isCd =
        bitDepth.value_or(cdBitDepth) <= cdBitDepth && sampleRateHertz.value_or(0) <= cdSampleRateHertz;
    return isCd ? AudioQuality::cd : AudioQuality::highResolution;
}

QString AudioStreamInfo::qualityNote() const
{
    switch (quality()) {
    case AudioQuality::lossy:
        return u"The source is lossy. Encoding to FLAC preserves it exactly as it is, but can't recover "
               u"detail the disc's own codec discarded."_s;
    case AudioQuality::cd:
        return u"The source is lossless at CD quality — 16-bit, 44.1 kHz — so the FLAC files will be a "
               u"bit-exact copy."_s;
    case AudioQuality::highResolution:
        return u"The source is lossless and beyond CD quality, so the FLAC files will be a bit-exact copy "
               u"at full resolution."_s;
    }
    Q_UNREACHABLE();
}

} // namespace tonearm
