// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/settings/SettingsFile.h"
#include "app/settings/SettingsStore.h"

#include "helpers/Contents.h"
#include "settings/ChildProcess.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int changes = 60;
// Two writers without a rest wait for each other more than any user's two windows do.
constexpr auto patience = 30s;

void writeKeys(const QString &path, const QString &prefix)
{
    SettingsStore store(path, patience);
    for (int number = 0; number < changes; ++number)
        store.set(QString(prefix + QString::number(number)), number);
}

bool isWholeObject(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && QJsonDocument::fromJson(file.readAll()).isObject();
}

} // namespace

TEST(SharedSettings, OfTwoProcessesLoseNoKeyAndAreNeverTorn)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"settings.json"_s);
    test::writeFile(path, "{}");
    test::ChildProcess first([&] { writeKeys(path, u"a"_s); });
    test::ChildProcess second([&] { writeKeys(path, u"b"_s); });

    int readings = 0;
    while (!first.hasEnded() || !second.hasEnded()) {
        ASSERT_TRUE(isWholeObject(path));
        ++readings;
    }
    EXPECT_GT(readings, 0);
    EXPECT_TRUE(first.succeeded());
    EXPECT_TRUE(second.succeeded());

    const SettingsStore store(path);
    for (int number = 0; number < changes; ++number) {
        EXPECT_EQ(store.integer(QString(u'a' + QString::number(number))), number);
        EXPECT_EQ(store.integer(QString(u'b' + QString::number(number))), number);
    }
    EXPECT_EQ(test::namesIn(folder.path()), QStringList(u"settings.json"_s));
}

TEST(SharedSettings, StayWholeWhenTheWriterIsKilled)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"settings.json"_s);
    test::writeFile(path, "{}");
    for (int round = 0; round < 10; ++round) {
        test::ChildProcess writer([&] {
            SettingsStore store(path, patience);
            for (int number = 0;; ++number)
                store.set(u"number", number);
        });
        while (SettingsStore(path).integer(u"number").value_or(-1) < round)
            ASSERT_FALSE(writer.hasEnded());
        writer.kill();
        EXPECT_FALSE(writer.succeeded());
        EXPECT_TRUE(isWholeObject(path));
        EXPECT_NO_THROW(SettingsStore(path).set(u"number", -1));
    }
}

TEST(SharedSettings, AreTakenOverFromTheOtherProcessWithTheNextWrite)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"settings.json"_s);
    SettingsStore mine(path);
    SettingsStore other(path);
    other.set(u"theirs", u"x"_s);
    EXPECT_EQ(mine.text(u"theirs"), std::nullopt);
    mine.set(u"ours", u"y"_s);
    EXPECT_EQ(mine.text(u"theirs"), u"x"_s);
    EXPECT_EQ(SettingsStore(path).text(u"theirs"), u"x"_s);
    EXPECT_EQ(SettingsStore(path).text(u"ours"), u"y"_s);
}

} // namespace tonearm
