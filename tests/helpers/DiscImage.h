// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/CdTextPacks.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace tonearm::test {

/// One track of a disc that is to be made. Lengths are in sectors, 1/75 second each.
struct ImageTrack
{
    bool isAudio = true;
    int sectors = 20;
    /// What comes before the track proper, with sound of its own; in front of track 1 a hidden track.
    int pregap = 0;
    /// Silence in front of the pregap; takes no room on the file system.
    int silence = 0;
    /// In any encoding; no quotation marks.
    QByteArray title = {};
};

/// A disc that is to be made. Tracks are numbered without gaps, as .cue sheets want it.
struct ImageRecipe
{
    QList<ImageTrack> tracks = {{}, {}, {}};
    int firstNumber = 1;
    QByteArray title = {};
    /// If present, the titles are in a CD-Text file of that charset instead of the sheet itself.
    std::optional<CdTextCharset> textFile = {};
};

/// A disc image: a .cue sheet with a .bin file beside it, filled with noise that is the same each time and
/// different in every sector.
class DiscImage
{
public:
    /// Writes "<name>.cue" and what belongs to it into a folder, or fails the test.
    DiscImage(const QString &folder, ImageRecipe recipe, const QString &name = QStringLiteral("image"));

    /// The sheet's path.
    const QString &path() const { return m_path; }

    const QString &binPath() const { return m_binPath; }

    /// The logical sector at which a track starts.
    int start(int number) const;

    /// The logical sector behind the last track.
    int leadout() const;

    /// A track's sectors as they are in the image, with little-endian samples.
    QByteArray sound(int number) const;

    int firstNumber() const { return m_recipe.firstNumber; }

    int lastNumber() const { return m_recipe.firstNumber + static_cast<int>(m_recipe.tracks.size()) - 1; }

private:
    QByteArray sheet(const QString &binName, const QString &textName) const;
    QByteArray trackLines(int number) const;
    void writeSectors() const;
    const ImageTrack &track(int number) const;

    ImageRecipe m_recipe;
    QString m_path;
    QString m_binPath;
};

/// The same samples in the other byte order.
QByteArray swappedSamples(QByteArray samples);

} // namespace tonearm::test
