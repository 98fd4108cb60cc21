// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/settings/SettingsStore.h"
#include "support/DescribedError.h"

#include <QProperty>
#include <QUrl>

#include <optional>

namespace tonearm {

/// The user's preferences. Each change is stored at once; a value that is read inside a binding is
/// tracked by it, and a write that changes nothing tells nobody. Lives on the main thread.
class AppSettings
{
public:
    /// The limits of the artwork budget, in kilobytes.
    static constexpr qint64 smallestArtworkBudget = 50;
    static constexpr qint64 largestArtworkBudget = 5000;

    /// Takes what is stored, and for each setting that isn't, or has another type, its default.
    explicit AppSettings(SettingsStore &store);

    /// Where jobs write unless the user picks another folder: an absolute location without a slash at
    /// its end. Anything else counts as none.
    std::optional<QUrl> defaultOutputDirectory() const { return m_defaultOutputDirectory; }

    void setDefaultOutputDirectory(const std::optional<QUrl> &directory);

    /// Whether a release's tracklist is mapped as soon as the release is chosen.
    bool autoMapOnSelect() const { return m_autoMapOnSelect; }

    void setAutoMapOnSelect(bool value);

    /// Whether cover art over the budget is encoded again.
    bool shrinkOversizedArtwork() const { return m_shrinkOversizedArtwork; }

    void setShrinkOversizedArtwork(bool value);

    /// The largest size of cover art. Clamped to its limits when set, not when loaded.
    qint64 artworkSizeBudgetKilobytes() const { return m_artworkSizeBudgetKilobytes; }

    /// The same in bytes, of 1024 to a kilobyte.
    qint64 artworkByteBudget() const;

    void setArtworkSizeBudgetKilobytes(qint64 value);

    /// Whether files go into folders by artist and album.
    bool organizeIntoArtistAlbumFolders() const { return m_organizeIntoArtistAlbumFolders; }

    void setOrganizeIntoArtistAlbumFolders(bool value);

    /// Whether clearing the inputs after a rip ejects the disc too.
    bool ejectDiscAfterRipping() const { return m_ejectDiscAfterRipping; }

    void setEjectDiscAfterRipping(bool value);

    /// Whether each track is read a second time and compared.
    bool verifyRipsByRereading() const { return m_verifyRipsByRereading; }

    void setVerifyRipsByRereading(bool value);

    /// Whether discs are read through cd-paranoia.
    bool useSecureCDRipping() const { return m_useSecureCDRipping; }

    void setUseSecureCDRipping(bool value);

    /// Why the last change isn't stored; it is in effect all the same. Nothing once a later change,
    /// which stores it too, went well.
    std::optional<ErrorWords> saveFailure() const { return m_saveFailure; }

private:
    void store(QStringView key, const QJsonValue &value);

    SettingsStore &m_store;
    QProperty<std::optional<QUrl>> m_defaultOutputDirectory;
    QProperty<bool> m_autoMapOnSelect;
    QProperty<bool> m_shrinkOversizedArtwork;
    QProperty<qint64> m_artworkSizeBudgetKilobytes;
    QProperty<bool> m_organizeIntoArtistAlbumFolders;
    QProperty<bool> m_ejectDiscAfterRipping;
    QProperty<bool> m_verifyRipsByRereading;
    QProperty<bool> m_useSecureCDRipping;
    QProperty<std::optional<ErrorWords>> m_saveFailure;
};

} // namespace tonearm
