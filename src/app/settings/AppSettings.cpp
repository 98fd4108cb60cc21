// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/settings/AppSettings.h"

#include "app/settings/SettingsFile.h"

#include <QDir>

#include <algorithm>
#include <limits>

namespace tonearm {

namespace {

// Two keys differ from the names of their settings and stay so: what is stored under them must be found.
constexpr QStringView defaultOutputDirectoryKey = u"defaultOutputDirectoryPath";
constexpr QStringView autoMapOnSelectKey = u"autoMapTracklistOnSelect";
constexpr QStringView shrinkOversizedArtworkKey = u"shrinkOversizedArtwork";
constexpr QStringView artworkSizeBudgetKilobytesKey = u"artworkSizeBudgetKilobytes";
constexpr QStringView organizeIntoArtistAlbumFoldersKey = u"organizeIntoArtistAlbumFolders";
constexpr QStringView ejectDiscAfterRippingKey = u"ejectDiscAfterRipping";
constexpr QStringView verifyRipsByRereadingKey = u"verifyRipsByRereading";
constexpr QStringView useSecureCDRippingKey = u"useSecureCDRipping";

constexpr qint64 defaultArtworkBudget = 600;

// One form for one directory, so that the same directory compares equal.
std::optional<QUrl> directoryAt(const QString &path)
{
    if (!QDir::isAbsolutePath(path))
        return std::nullopt;
    return QUrl::fromLocalFile(path).adjusted(QUrl::StripTrailingSlash);
}

} // namespace

AppSettings::AppSettings(SettingsStore &store)
    : m_store(store)
    , m_defaultOutputDirectory(directoryAt(store.text(defaultOutputDirectoryKey).value_or(QString())))
    , m_autoMapOnSelect(store.flag(autoMapOnSelectKey).value_or(true))
    , m_shrinkOversizedArtwork(store.flag(shrinkOversizedArtworkKey).value_or(true))
    , m_artworkSizeBudgetKilobytes(
          store.integer(artworkSizeBudgetKilobytesKey).value_or(defaultArtworkBudget))
    , m_organizeIntoArtistAlbumFolders(store.flag(organizeIntoArtistAlbumFoldersKey).value_or(true))
    , m_ejectDiscAfterRipping(store.flag(ejectDiscAfterRippingKey).value_or(true))
    , m_verifyRipsByRereading(store.flag(verifyRipsByRereadingKey).value_or(false))
    , m_useSecureCDRipping(store.flag(useSecureCDRippingKey).value_or(false))
{
}

void AppSettings::setDefaultOutputDirectory(const std::optional<QUrl> &directory)
{
    const std::optional<QUrl> location = directory ? directoryAt(directory->toLocalFile()) : std::nullopt;
    store(defaultOutputDirectoryKey, location ? QJsonValue(location->toLocalFile()) : QJsonValue::Undefined);
    m_defaultOutputDirectory = location;
}

void AppSettings::setAutoMapOnSelect(bool value)
{
    store(autoMapOnSelectKey, value);
    m_autoMapOnSelect = value;
}

void AppSettings::setShrinkOversizedArtwork(bool value)
{
    store(shrinkOversizedArtworkKey, value);
    m_shrinkOversizedArtwork = value;
}

void AppSettings::setArtworkSizeBudgetKilobytes(qint64 value)
{
    const qint64 clamped = std::clamp(value, smallestArtworkBudget, largestArtworkBudget);
    store(artworkSizeBudgetKilobytesKey, clamped);
    m_artworkSizeBudgetKilobytes = clamped;
}

void AppSettings::setOrganizeIntoArtistAlbumFolders(bool value)
{
    store(organizeIntoArtistAlbumFoldersKey, value);
    m_organizeIntoArtistAlbumFolders = value;
}

void AppSettings::setEjectDiscAfterRipping(bool value)
{
    store(ejectDiscAfterRippingKey, value);
    m_ejectDiscAfterRipping = value;
}

void AppSettings::setVerifyRipsByRereading(bool value)
{
    store(verifyRipsByRereadingKey, value);
    m_verifyRipsByRereading = value;
}

void AppSettings::setUseSecureCDRipping(bool value)
{
    store(useSecureCDRippingKey, value);
    m_useSecureCDRipping = value;
}

void AppSettings::store(QStringView key, const QJsonValue &value)
{
    try {
        m_store.set(key, value);
        m_saveFailure = std::nullopt;
    } catch (const SettingsError &error) {
        m_saveFailure = ErrorWords{error.description(), error.recoverySuggestion()};
    }
}

// A file may hold any number, even one whose bytes can't be counted.
qint64 AppSettings::artworkByteBudget() const
{
    constexpr qint64 bytesPerKilobyte = 1024;
    constexpr qint64 most = std::numeric_limits<qint64>::max() / bytesPerKilobyte;
    return std::clamp(artworkSizeBudgetKilobytes(), -most, most) * bytesPerKilobyte;
}

} // namespace tonearm
