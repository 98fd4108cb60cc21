// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/settings/AppSettings.h"

#include "app/settings/SettingsFile.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QTemporaryDir>

#include <sys/stat.h>

#include <memory>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

struct FlagCase
{
    QString key;
    bool (AppSettings::*read)() const;
    void (AppSettings::*write)(bool);
    bool initial;
};

const QList<FlagCase> flags = {
    {u"autoMapTracklistOnSelect"_s, &AppSettings::autoMapOnSelect, &AppSettings::setAutoMapOnSelect, true},
    {u"shrinkOversizedArtwork"_s, &AppSettings::shrinkOversizedArtwork,
     &AppSettings::setShrinkOversizedArtwork, true},
    {u"organizeIntoArtistAlbumFolders"_s, &AppSettings::organizeIntoArtistAlbumFolders,
     &AppSettings::setOrganizeIntoArtistAlbumFolders, true},
    {u"ejectDiscAfterRipping"_s, &AppSettings::ejectDiscAfterRipping, &AppSettings::setEjectDiscAfterRipping,
     true},
    {u"verifyRipsByRereading"_s, &AppSettings::verifyRipsByRereading, &AppSettings::setVerifyRipsByRereading,
     false},
    {u"useSecureCDRipping"_s, &AppSettings::useSecureCDRipping, &AppSettings::setUseSecureCDRipping, false},
};

/// The application from its launch to its end.
struct Session
{
    explicit Session(const QString &path)
        : store(path)
        , settings(store)
    {
    }

    SettingsStore store;
    AppSettings settings;
};

class AppSettingsTest : public testing::Test
{
protected:
    /// Ends the session before, if there is one, and launches anew.
    AppSettings &launch()
    {
        m_session.reset();
        m_session = std::make_unique<Session>(m_path);
        return m_session->settings;
    }

    AppSettings &launchWith(const QJsonObject &stored)
    {
        m_session.reset();
        replaceSettings(m_path, stored);
        return launch();
    }

    QJsonObject stored() const { return readSettings(m_path).values; }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"tonearm/settings.json"_s);
    std::unique_ptr<Session> m_session;

    void SetUp() override { makePrivateFolder(m_folder.filePath(u"tonearm"_s)); }
};

/// Counts how often a value that was read in a binding is told to have changed.
template <typename Value> class Observer
{
public:
    explicit Observer(std::function<Value()> read)
    {
        m_value.setBinding([this, read = std::move(read)] {
            ++m_evaluations;
            return read();
        });
        m_evaluations = 0;
    }

    int told() const { return m_evaluations; }

private:
    int m_evaluations = 0;
    QProperty<Value> m_value;
};

} // namespace

TEST_F(AppSettingsTest, StartWithTheDefaultsAndStoreNothing)
{
    const AppSettings &settings = launch();
    EXPECT_EQ(settings.defaultOutputDirectory(), std::nullopt);
    EXPECT_EQ(settings.autoMapOnSelect(), true);
    EXPECT_EQ(settings.shrinkOversizedArtwork(), true);
    EXPECT_EQ(settings.artworkSizeBudgetKilobytes(), 600);
    EXPECT_EQ(settings.organizeIntoArtistAlbumFolders(), true);
    EXPECT_EQ(settings.ejectDiscAfterRipping(), true);
    EXPECT_EQ(settings.verifyRipsByRereading(), false);
    EXPECT_EQ(settings.useSecureCDRipping(), false);
    EXPECT_EQ(settings.saveFailure(), std::nullopt);
    EXPECT_EQ(test::namesIn(m_folder.filePath(u"tonearm"_s)), QStringList());
}

TEST_F(AppSettingsTest, StoreEachFlagUnderItsKeyAndLoadItAgain)
{
    for (const FlagCase &flag : flags) {
        for (const bool value : {!flag.initial, flag.initial}) {
            (launch().*flag.write)(value);
            EXPECT_EQ((m_session->settings.*flag.read)(), value) << flag.key.toStdString();
            EXPECT_EQ(stored().value(flag.key), QJsonValue(value)) << flag.key.toStdString();
            EXPECT_EQ((launch().*flag.read)(), value) << flag.key.toStdString();
        }
    }
}

TEST_F(AppSettingsTest, StoreOnlyTheKeyThatIsWritten)
{
    launch().setVerifyRipsByRereading(true);
    EXPECT_EQ(stored(), (QJsonObject{{u"verifyRipsByRereading"_s, true}}));
}

TEST_F(AppSettingsTest, StoreAValueThatIsTheDefault)
{
    launch().setAutoMapOnSelect(true);
    EXPECT_EQ(stored(), (QJsonObject{{u"autoMapTracklistOnSelect"_s, true}}));
}

TEST_F(AppSettingsTest, TakeTheDefaultOfAFlagStoredAsAnythingElse)
{
    for (const FlagCase &flag : flags) {
        const QList<QJsonValue> others = {u"true"_s, u"false"_s,       u""_s,        0,
                                          1,         QJsonValue::Null, QJsonArray(), QJsonObject()};
        for (const QJsonValue &other : others)
            EXPECT_EQ((launchWith({{flag.key, other}}).*flag.read)(), flag.initial) << flag.key.toStdString();
    }
}

TEST_F(AppSettingsTest, TakeTheDefaultBudgetIfItIsStoredAsAnythingElse)
{
    for (const QJsonValue &other :
         {QJsonValue(u"700"_s), QJsonValue(true), QJsonValue(700.5), QJsonValue(1e300), QJsonValue()})
        EXPECT_EQ(launchWith({{u"artworkSizeBudgetKilobytes"_s, other}}).artworkSizeBudgetKilobytes(), 600);
}

TEST_F(AppSettingsTest, ClampTheArtworkBudgetWhenItIsWritten)
{
    const QList<std::pair<qint64, qint64>> cases = {{10, 50},     {49, 50},     {50, 50},     {51, 51},
                                                    {5000, 5000}, {5001, 5000}, {9000, 5000}, {-1, 50}};
    for (const auto &[written, kept] : cases) {
        launch().setArtworkSizeBudgetKilobytes(written);
        EXPECT_EQ(m_session->settings.artworkSizeBudgetKilobytes(), kept);
        EXPECT_EQ(stored().value(u"artworkSizeBudgetKilobytes"), QJsonValue(kept));
    }
}

TEST_F(AppSettingsTest, LoadABudgetOutsideItsLimitsAsItStands)
{
    for (const qint64 budget : {10000, 10, 0, -5}) {
        EXPECT_EQ(launchWith({{u"artworkSizeBudgetKilobytes"_s, budget}}).artworkSizeBudgetKilobytes(),
                  budget);
        m_session->settings.setAutoMapOnSelect(false);
        EXPECT_EQ(stored().value(u"artworkSizeBudgetKilobytes"), QJsonValue(budget));
    }
}

TEST_F(AppSettingsTest, StoreTheOutputDirectoryAsAPlainPath)
{
    for (const QString &path : {u"/music"_s, u"/"_s, u"/a b/100% #1?/%2F"_s, u"/Größe/日本/\n\"x\""_s}) {
        launch().setDefaultOutputDirectory(QUrl::fromLocalFile(path));
        EXPECT_EQ(stored(), (QJsonObject{{u"defaultOutputDirectoryPath"_s, path}}));
        EXPECT_EQ(launch().defaultOutputDirectory(), QUrl::fromLocalFile(path));
    }
}

TEST_F(AppSettingsTest, RemoveTheKeyOfAClearedOutputDirectory)
{
    launchWith({{u"defaultOutputDirectoryPath"_s, u"/music"_s}, {u"useSecureCDRipping"_s, true}});
    m_session->settings.setDefaultOutputDirectory(std::nullopt);
    EXPECT_EQ(m_session->settings.defaultOutputDirectory(), std::nullopt);
    EXPECT_EQ(stored(), (QJsonObject{{u"useSecureCDRipping"_s, true}}));
    EXPECT_EQ(launch().defaultOutputDirectory(), std::nullopt);
}

TEST_F(AppSettingsTest, TakeAPathWithASlashAtItsEndForTheSameDirectory)
{
    const QUrl music = QUrl::fromLocalFile(u"/music"_s);
    EXPECT_EQ(launchWith({{u"defaultOutputDirectoryPath"_s, u"/music/"_s}}).defaultOutputDirectory(), music);
    launch().setDefaultOutputDirectory(QUrl::fromLocalFile(u"/music/"_s));
    EXPECT_EQ(m_session->settings.defaultOutputDirectory(), music);
    EXPECT_EQ(stored(), (QJsonObject{{u"defaultOutputDirectoryPath"_s, u"/music"_s}}));
}

TEST_F(AppSettingsTest, HaveNoOutputDirectoryWhereTheStoredValueIsNoPlace)
{
    const QList<QJsonValue> others = {u""_s, u"Music"_s, u"file:///music"_s, 7, true, QJsonValue::Null};
    for (const QJsonValue &other : others)
        EXPECT_EQ(launchWith({{u"defaultOutputDirectoryPath"_s, other}}).defaultOutputDirectory(),
                  std::nullopt);
    launch().setDefaultOutputDirectory(QUrl(u"https://localhost/music"_s));
    EXPECT_EQ(m_session->settings.defaultOutputDirectory(), std::nullopt);
}

TEST_F(AppSettingsTest, TellObserversOfEachChangeAndOfNothingElse)
{
    AppSettings &settings = launch();
    for (const FlagCase &flag : flags) {
        const Observer<bool> observer([&] { return (settings.*flag.read)(); });
        (settings.*flag.write)(flag.initial);
        EXPECT_EQ(observer.told(), 0) << flag.key.toStdString();
        (settings.*flag.write)(!flag.initial);
        EXPECT_EQ(observer.told(), 1) << flag.key.toStdString();
        (settings.*flag.write)(!flag.initial);
        EXPECT_EQ(observer.told(), 1) << flag.key.toStdString();
    }
}

TEST_F(AppSettingsTest, TellObserversOfTheBudgetThatIsKept)
{
    AppSettings &settings = launch();
    const Observer<qint64> observer([&] { return settings.artworkSizeBudgetKilobytes(); });
    settings.setArtworkSizeBudgetKilobytes(9000);
    EXPECT_EQ(observer.told(), 1);
    settings.setArtworkSizeBudgetKilobytes(8000);
    EXPECT_EQ(observer.told(), 1);
}

TEST_F(AppSettingsTest, TellObserversOfTheOutputDirectory)
{
    AppSettings &settings = launch();
    const Observer<std::optional<QUrl>> observer([&] { return settings.defaultOutputDirectory(); });
    settings.setDefaultOutputDirectory(std::nullopt);
    EXPECT_EQ(observer.told(), 0);
    settings.setDefaultOutputDirectory(QUrl::fromLocalFile(u"/music"_s));
    settings.setDefaultOutputDirectory(QUrl::fromLocalFile(u"/music/"_s));
    EXPECT_EQ(observer.told(), 1);
    settings.setDefaultOutputDirectory(std::nullopt);
    EXPECT_EQ(observer.told(), 2);
}

TEST_F(AppSettingsTest, KeepAValueThatCannotBeStoredAndSayWhy)
{
    AppSettings &settings = launch();
    const QByteArray path = m_path.toUtf8();
    ASSERT_EQ(::mkdir(path.constData(), 0700), 0);
    settings.setAutoMapOnSelect(false);
    EXPECT_FALSE(settings.autoMapOnSelect());
    ASSERT_TRUE(settings.saveFailure());
    EXPECT_EQ(
        settings.saveFailure()->description,
        u"The settings couldn't be saved to \"settings.json\": There is something else of that name."_s);
    EXPECT_EQ(settings.saveFailure()->recoverySuggestion,
              u"What you set stays in effect until Tonearm quits."_s);

    ASSERT_EQ(::rmdir(path.constData()), 0);
    settings.setUseSecureCDRipping(true);
    EXPECT_EQ(settings.saveFailure(), std::nullopt);
    EXPECT_EQ(stored(),
              (QJsonObject{{u"autoMapTracklistOnSelect"_s, false}, {u"useSecureCDRipping"_s, true}}));
}

} // namespace tonearm
