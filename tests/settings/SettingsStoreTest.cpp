// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/settings/SettingsStore.h"

#include "app/settings/FolderLock.h"
#include "app/settings/SettingsFile.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "helpers/SmallDisk.h"
#include "settings/OrdinaryUser.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QTemporaryDir>

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class SettingsStoreTest : public testing::Test
{
protected:
    void write(const QByteArray &contents) const { test::writeFile(m_path, contents); }

    QByteArray contents() const { return test::readFile(m_path); }

    QStringList names() const { return test::namesIn(m_folder.path()); }

    QString inFolder(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"settings.json"_s);
};

mode_t modeOf(const QString &path)
{
    struct stat found = {};
    EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &found), 0);
    return found.st_mode & 07777;
}

// A disk that takes no more bytes.
class FullDisk
{
public:
    FullDisk()
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit none = m_before;
        none.rlim_cur = 0;
        ::setrlimit(RLIMIT_FSIZE, &none);
    }

    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    void (*m_handler)(int);
    rlimit m_before = {};
};

const QList<QByteArray> damagedFiles = {
    "no JSON",
    "{\"a\": 1",
    "{\"a\": 1}}",
    "[{\"a\": 1}]",
    "7",
    "null",
    "\"a\"",
    " \n",
    "{\"a\": \"\xff\"}",
    QByteArray("\0\0\0\0", 4),
    QByteArray("{\0\"\0a\0\"\0:\0001\0}\0", 14),
    QByteArray(100000, '['),
    QByteArray(2000000, ' ') + "{}",
};

} // namespace

TEST_F(SettingsStoreTest, WritesNothingUntilSomethingIsSet)
{
    {
        const SettingsStore store(inFolder(u"new/settings.json"_s));
        EXPECT_EQ(store.text(u"key"), std::nullopt);
        EXPECT_TRUE(store.value(u"key").isUndefined());
    }
    EXPECT_EQ(names(), QStringList());
}

TEST_F(SettingsStoreTest, KeepsEachValueWithItsType)
{
    SettingsStore(m_path).set(u"text", u"Größe \"1\"\n"_s);
    SettingsStore(m_path).set(u"yes", true);
    SettingsStore(m_path).set(u"no", false);
    SettingsStore(m_path).set(u"number", qint64(9007199254740993));
    SettingsStore(m_path).set(u"zero", 0);
    SettingsStore(m_path).set(u"object", QJsonObject{{u"a"_s, 1.5}});

    const SettingsStore store(m_path);
    EXPECT_EQ(store.text(u"text"), u"Größe \"1\"\n"_s);
    EXPECT_EQ(store.flag(u"yes"), true);
    EXPECT_EQ(store.flag(u"no"), false);
    EXPECT_EQ(store.integer(u"number"), 9007199254740993);
    EXPECT_EQ(store.integer(u"zero"), 0);
    EXPECT_EQ(store.value(u"object").toObject(), (QJsonObject{{u"a"_s, 1.5}}));
}

TEST_F(SettingsStoreTest, TakesNoValueForOneOfAnotherType)
{
    write(R"({"text": "true", "flag": true, "number": 1, "half": 0.5, "null": null, "huge": 1e30})");
    const SettingsStore store(m_path);
    EXPECT_EQ(store.flag(u"text"), std::nullopt);
    EXPECT_EQ(store.integer(u"text"), std::nullopt);
    EXPECT_EQ(store.integer(u"flag"), std::nullopt);
    EXPECT_EQ(store.text(u"flag"), std::nullopt);
    EXPECT_EQ(store.flag(u"number"), std::nullopt);
    EXPECT_EQ(store.text(u"number"), std::nullopt);
    EXPECT_EQ(store.integer(u"half"), std::nullopt);
    EXPECT_EQ(store.integer(u"huge"), std::nullopt);
    EXPECT_EQ(store.text(u"null"), std::nullopt);
    EXPECT_TRUE(store.value(u"null").isNull());
}

TEST_F(SettingsStoreTest, RemovesAKeyThatIsSetToNothing)
{
    write(R"({"a": 1, "b": 2})");
    SettingsStore store(m_path);
    store.set(u"a", QJsonValue::Undefined);
    EXPECT_EQ(store.integer(u"a"), std::nullopt);
    EXPECT_EQ(contents(), "{\n    \"b\": 2\n}\n");
}

TEST_F(SettingsStoreTest, LeavesUnknownKeysAsTheyAre)
{
    write(
        R"({"later": {"list": [1, 2.5, "x", null, true], "": {}}, "flag": false, "odd": "\ud800", "n": null})");
    SettingsStore(m_path).set(u"ours", 1);
    const QJsonObject values = readSettings(m_path).values;
    EXPECT_EQ(values.size(), 5);
    EXPECT_EQ(values[u"later"].toObject()[u"list"].toArray(),
              (QJsonArray{1, 2.5, u"x"_s, QJsonValue::Null, true}));
    EXPECT_TRUE(values[u"later"].toObject()[u""].isObject());
    EXPECT_EQ(values[u"flag"], QJsonValue(false));
    EXPECT_EQ(values[u"odd"].toString(), QString(QChar(0xD800)));
    EXPECT_TRUE(values[u"n"].isNull());
}

TEST_F(SettingsStoreTest, WritesAnEqualValueToo)
{
    SettingsStore store(m_path);
    store.set(u"a", 1);
    write("{}");
    store.set(u"a", 1);
    EXPECT_EQ(SettingsStore(m_path).integer(u"a"), 1);
}

TEST_F(SettingsStoreTest, MakesItsFileAndFolderPrivateToTheUser)
{
    const QString path = inFolder(u"config/tonearm/settings.json"_s);
    SettingsStore(path).set(u"a", 1);
    EXPECT_EQ(modeOf(path), 0600);
    EXPECT_EQ(modeOf(inFolder(u"config/tonearm"_s)), 0700);
    EXPECT_EQ(modeOf(inFolder(u"config"_s)), 0700);
}

TEST_F(SettingsStoreTest, KeepsThePermissionsThatTheUserGaveTheFile)
{
    write("{}");
    ASSERT_TRUE(QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
    SettingsStore(m_path).set(u"a", 1);
    EXPECT_EQ(modeOf(m_path), 0640);
}

TEST_F(SettingsStoreTest, ReadsADamagedFileAsEmptyAndLeavesItAlone)
{
    for (const QByteArray &damaged : damagedFiles) {
        write(damaged);
        EXPECT_EQ(SettingsStore(m_path).integer(u"a"), std::nullopt) << damaged.left(20).toStdString();
        EXPECT_EQ(contents(), damaged);
        EXPECT_EQ(names(), QStringList(u"settings.json"_s));
    }
}

TEST_F(SettingsStoreTest, KeepsEachDamagedFileBesideTheNewOne)
{
    int number = 0;
    for (const QByteArray &damaged : damagedFiles) {
        write(damaged);
        SettingsStore(m_path).set(u"b", 2);
        EXPECT_EQ(contents(), "{\n    \"b\": 2\n}\n");
        EXPECT_EQ(test::readFile(inFolder(u"settings.json.damaged-%1"_s.arg(++number))), damaged);
    }
    EXPECT_EQ(names().size(), damagedFiles.size() + 1);
}

TEST_F(SettingsStoreTest, TakesAnEmptyFileForNoSettings)
{
    write("");
    SettingsStore(m_path).set(u"a", 1);
    EXPECT_EQ(names(), QStringList(u"settings.json"_s));
}

TEST_F(SettingsStoreTest, BringsBackWhatItReadBeforeTheFileWasDamaged)
{
    write(R"({"a": 1})");
    SettingsStore store(m_path);
    write("{\"a\": ");
    store.set(u"b", 2);
    EXPECT_EQ(SettingsStore(m_path).integer(u"a"), 1);
    EXPECT_EQ(test::readFile(inFolder(u"settings.json.damaged-1"_s)), "{\"a\": ");
}

TEST_F(SettingsStoreTest, BringsItBackLaterWhereAFullDiskWasInTheWay)
{
    const QString folder = inFolder(u"disk"_s);
    const test::SmallDisk disk(folder, 64);
    if (!disk.isMounted())
        GTEST_SKIP() << "This user may mount nothing.";
    const QString path = folder + u"/settings.json"_s;
    test::writeFile(path, R"({"a": 1, "d": 1})");
    SettingsStore store(path);
    test::writeFile(path, "{\"a\": ");
    QFile filler(folder + u"/filler"_s);
    ASSERT_TRUE(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (filler.write(QByteArray(4096, 'x')) == 4096) {
    }
    EXPECT_THROW(store.set(u"b", 2), SettingsError);
    ASSERT_TRUE(filler.remove());
    // Another process has mended the file meanwhile.
    SettingsStore other(path);
    other.set(u"d", 4);
    other.set(u"e", 5);
    store.set(u"c", 3);
    const SettingsStore later(path);
    EXPECT_EQ(later.integer(u"a"), 1);
    EXPECT_EQ(later.integer(u"b"), 2);
    EXPECT_EQ(later.integer(u"c"), 3);
    EXPECT_EQ(later.integer(u"d"), 4) << "what the other has written is newer";
    EXPECT_EQ(later.integer(u"e"), 5);
}

TEST_F(SettingsStoreTest, KeepsAFileThatItMayNotReadBesideTheNewOne)
{
    write(R"({"a": 1})");
    ASSERT_TRUE(QFile::setPermissions(m_path, QFile::Permissions()));
    {
        const test::OrdinaryUser user(m_folder.path());
        SettingsStore store(m_path);
        EXPECT_EQ(store.integer(u"a"), std::nullopt);
        store.set(u"b", 2);
        EXPECT_EQ(SettingsStore(m_path).integer(u"b"), 2);
    }
    ASSERT_TRUE(QFile::setPermissions(inFolder(u"settings.json.damaged-1"_s), QFile::ReadOwner));
    EXPECT_EQ(test::readFile(inFolder(u"settings.json.damaged-1"_s)), R"({"a": 1})");
}

TEST_F(SettingsStoreTest, LeavesAFolderOrPipeOfItsNameAlone)
{
    const QString pipe = inFolder(u"pipe"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    ASSERT_EQ(::mkdir(QFile::encodeName(m_path).constData(), 0700), 0);
    for (const QString &path : {m_path, pipe}) {
        SettingsStore store(path);
        const auto error = test::errorOf<SettingsError>([&] { store.set(u"a", 1); });
        EXPECT_EQ(error,
                  SettingsError(QFileInfo(path).fileName(), u"There is something else of that name"_s));
        EXPECT_EQ(store.integer(u"a"), 1);
    }
    EXPECT_EQ(names(), (QStringList{u"pipe"_s, u"settings.json"_s}));
}

TEST_F(SettingsStoreTest, WritesThroughALinkAndLeavesItOne)
{
    const QTemporaryDir elsewhere;
    const QString target = elsewhere.filePath(u"tonearm.json"_s);
    test::writeFile(target, R"({"a": 1})");
    ASSERT_TRUE(QFile::link(target, inFolder(u"middle"_s)));
    ASSERT_TRUE(QFile::link(u"middle"_s, m_path));
    SettingsStore(m_path).set(u"b", 2);
    EXPECT_TRUE(QFileInfo(m_path).isSymLink());
    EXPECT_TRUE(QFileInfo(inFolder(u"middle"_s)).isSymLink());
    EXPECT_EQ(SettingsStore(target).integer(u"a"), 1);
    EXPECT_EQ(SettingsStore(target).integer(u"b"), 2);
}

TEST_F(SettingsStoreTest, KeepsADamagedFileBesideItselfIfALinkLedToIt)
{
    const QTemporaryDir elsewhere;
    const QString target = elsewhere.filePath(u"tonearm.json"_s);
    test::writeFile(target, "damaged");
    ASSERT_TRUE(QFile::link(target, m_path));
    SettingsStore(m_path).set(u"b", 2);
    EXPECT_TRUE(QFileInfo(m_path).isSymLink());
    EXPECT_EQ(test::namesIn(elsewhere.path()), (QStringList{u"tonearm.json"_s, u"tonearm.json.damaged-1"_s}));
    EXPECT_EQ(SettingsStore(target).integer(u"b"), 2);
}

TEST_F(SettingsStoreTest, MakesTheTargetOfALinkThatLeadsNowhereYet)
{
    const QString target = inFolder(u"target.json"_s);
    ASSERT_TRUE(QFile::link(target, m_path));
    SettingsStore(m_path).set(u"a", 1);
    EXPECT_TRUE(QFileInfo(m_path).isSymLink());
    EXPECT_EQ(SettingsStore(target).integer(u"a"), 1);
    EXPECT_EQ(modeOf(target), 0600);
}

TEST_F(SettingsStoreTest, TellsThatItsFolderTakesNoFilesAndHoldsTheValue)
{
    write(R"({"a": 1})");
    const test::OrdinaryUser user(m_folder.path());
    ASSERT_TRUE(QFile::setPermissions(m_folder.path(), QFile::ReadOwner | QFile::ExeOwner));
    SettingsStore store(m_path);
    const auto error = test::errorOf<SettingsError>([&] { store.set(u"b", 2); });
    ASSERT_TRUE(
        QFile::setPermissions(m_folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));

    ASSERT_TRUE(error);
    EXPECT_EQ(error->description(),
              u"The settings couldn't be saved to \"settings.json\": Permission denied."_s);
    EXPECT_EQ(error->recoverySuggestion(), u"What you set stays in effect until Tonearm quits."_s);
    EXPECT_EQ(store.integer(u"b"), 2);
    EXPECT_EQ(SettingsStore(m_path).integer(u"b"), std::nullopt);
}

TEST_F(SettingsStoreTest, LosesNothingToAFullDisk)
{
    write(R"({"a": 1})");
    SettingsStore store(m_path);
    std::optional<SettingsError> error;
    {
        const FullDisk disk;
        error = test::errorOf<SettingsError>([&] { store.set(u"b", 2); });
    }
    EXPECT_EQ(error, SettingsError(u"settings.json"_s, u"File too large"_s));
    EXPECT_EQ(contents(), R"({"a": 1})");
    EXPECT_EQ(names(), QStringList(u"settings.json"_s));
    EXPECT_EQ(store.integer(u"b"), 2);
}

TEST_F(SettingsStoreTest, WritesWithTheNextChangeWhatCouldNotBeWritten)
{
    write(R"({"a": 1, "c": 3})");
    SettingsStore store(m_path);
    {
        const FullDisk disk;
        EXPECT_THROW(store.set(u"a", QJsonValue::Undefined), SettingsError);
        EXPECT_THROW(store.set(u"b", 2), SettingsError);
    }
    store.set(u"d", 4);
    const QJsonObject expected{{u"b"_s, 2}, {u"c"_s, 3}, {u"d"_s, 4}};
    EXPECT_EQ(readSettings(m_path), SettingsContents{.values = expected});
}

TEST_F(SettingsStoreTest, WritesAtItsEndWhatCouldNotBeWritten)
{
    {
        SettingsStore store(m_path);
        const FullDisk disk;
        EXPECT_THROW(store.set(u"b", 2), SettingsError);
    }
    EXPECT_EQ(SettingsStore(m_path).integer(u"b"), 2);
}

TEST_F(SettingsStoreTest, WaitsForAnotherWriterOnlySoLong)
{
    SettingsStore store(m_path, 5ms);
    {
        const FolderLock other(m_folder.path(), 0ms);
        EXPECT_EQ(test::errorOf<SettingsError>([&] { store.set(u"a", 1); }),
                  SettingsError(u"settings.json"_s, u"Another program is writing it"_s));
        EXPECT_EQ(names(), QStringList());
    }
    store.set(u"b", 2);
    EXPECT_EQ(SettingsStore(m_path).integer(u"a"), 1);
}

} // namespace tonearm
