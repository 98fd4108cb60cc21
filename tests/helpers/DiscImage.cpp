// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/DiscImage.h"

#include "helpers/Contents.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <cstdint>
#include <cstring>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int sectorBytes = 2352;
constexpr int sectorsPerSecond = 75;

QByteArray padded(int number)
{
    return QByteArray::number(number).rightJustified(2, '0');
}

QByteArray timeOf(int sector)
{
    return padded(sector / sectorsPerSecond / 60) + ':' + padded(sector / sectorsPerSecond % 60) + ':' +
           padded(sector % sectorsPerSecond);
}

QByteArray quoted(const QByteArray &keyword, const QByteArray &text)
{
    return text.isEmpty() ? QByteArray() : keyword + " \"" + text + "\"\n";
}

QByteArray noise(int sector)
{
    QByteArray bytes(sectorBytes, '\0');
    auto state = static_cast<std::uint32_t>(sector) * 2654435761U + 1;
    for (qsizetype at = 0; at < bytes.size(); at += qsizetype{sizeof state}) {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        std::memcpy(bytes.data() + at, &state, sizeof state);
    }
    return bytes;
}

} // namespace

DiscImage::DiscImage(const QString &folder, ImageRecipe recipe, const QString &name)
    : m_recipe(std::move(recipe))
    , m_path(folder + u'/' + name + u".cue")
    , m_binPath(folder + u'/' + name + u".bin")
{
    const QString textName = name + u".cdt";
    writeFile(m_path, sheet(name + u".bin", textName));
    writeSectors();
    if (!m_recipe.textFile)
        return;
    QList<QByteArray> titles = {m_recipe.title};
    for (const ImageTrack &track : m_recipe.tracks)
        titles.append(track.title);
    writeFile(folder + u'/' + textName, cdTextPacks(titles, m_recipe.firstNumber, *m_recipe.textFile));
}

int DiscImage::start(int number) const
{
    int sector = 0;
    for (int before = m_recipe.firstNumber; before < number; ++before)
        sector += track(before).silence + track(before).pregap + track(before).sectors;
    return sector + track(number).silence + track(number).pregap;
}

int DiscImage::leadout() const
{
    return start(lastNumber()) + track(lastNumber()).sectors;
}

QByteArray DiscImage::sound(int number) const
{
    QByteArray bytes;
    for (int index = 0; index < track(number).sectors; ++index)
        bytes += noise(start(number) + index);
    return bytes;
}

QByteArray DiscImage::sheet(const QString &binName, const QString &textName) const
{
    QByteArray text;
    if (m_recipe.textFile)
        text += quoted("CDTEXTFILE", textName.toUtf8());
    else
        text += quoted("TITLE", m_recipe.title);
    text += "FILE \"" + binName.toUtf8() + "\" BINARY\n";
    for (int number = firstNumber(); number <= lastNumber(); ++number)
        text += trackLines(number);
    return text;
}

QByteArray DiscImage::trackLines(int number) const
{
    const ImageTrack &made = track(number);
    QByteArray lines = "  TRACK " + padded(number) + (made.isAudio ? " AUDIO\n" : " MODE1/2352\n");
    if (!m_recipe.textFile)
        lines += quoted("    TITLE", made.title);
    if (made.pregap > 0)
        lines += "    INDEX 00 " + timeOf(start(number) - made.pregap) + '\n';
    return lines + "    INDEX 01 " + timeOf(start(number)) + '\n';
}

void DiscImage::writeSectors() const
{
    QFile file(m_binPath);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << m_binPath.toStdString();
    for (int number = firstNumber(); number <= lastNumber(); ++number) {
        const int from = start(number) - track(number).pregap;
        ASSERT_TRUE(file.seek(qint64{from} * sectorBytes));
        for (int sector = from; sector < start(number) + track(number).sectors; ++sector)
            ASSERT_EQ(file.write(noise(sector)), sectorBytes);
    }
}

const ImageTrack &DiscImage::track(int number) const
{
    return m_recipe.tracks[number - m_recipe.firstNumber];
}

QByteArray swappedSamples(QByteArray samples)
{
    for (qsizetype at = 0; at + 1 < samples.size(); at += 2)
        std::swap(samples[at], samples[at + 1]);
    return samples;
}

} // namespace tonearm::test
