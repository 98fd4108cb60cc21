// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/ArtworkFolder.h"
#include "artwork/CoverArtPreparation.h"

#include "helpers/Contents.h"

#include <QDir>
#include <QTemporaryDir>
#include <QUrl>

#include <memory>

namespace tonearm::test {

/// A temporary directory with a user's pictures and the application's own.
class PictureFolder
{
public:
    QString path(const QString &name) const { return m_pictures.filePath(name); }

    QUrl url(const QString &name) const { return QUrl::fromLocalFile(path(name)); }

    /// Writes a user's picture.
    QUrl add(const QString &name, const QByteArray &bytes) const
    {
        writeFile(path(name), bytes);
        return url(name);
    }

    /// Where the application's own pictures lie.
    QString artworkPath() const { return m_base.filePath(QStringLiteral("Tonearm/Artwork")); }

    /// The names of the application's own pictures.
    QStringList artworkNames() const { return namesIn(artworkPath()); }

    const std::shared_ptr<ArtworkFolder> &artwork() const { return m_artwork; }

    CoverArtPreparation preparation() const { return CoverArtPreparation(m_artwork); }

private:
    QTemporaryDir m_pictures;
    QTemporaryDir m_base;
    std::shared_ptr<ArtworkFolder> m_artwork = std::make_shared<ArtworkFolder>(m_base.path());
};

} // namespace tonearm::test
