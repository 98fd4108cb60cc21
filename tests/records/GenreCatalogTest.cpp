// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/records/GenreCatalog.h"

#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "support/ResourceFolder.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <barrier>
#include <thread>
#include <vector>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

class GenreCatalogTest : public testing::Test
{
protected:
    void write(const QByteArray &json) { test::writeFile(m_path, json); }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"Genres.json"_s);
};

const QByteArray twoGenres = R"([{"name": "Zydeco"}, {"name": "Blues"}])";
const QList<Genre> zydecoAndBlues = {{u"Zydeco"_s}, {u"Blues"_s}};

} // namespace

TEST_F(GenreCatalogTest, ListsGenresInTheOrderOfTheFile)
{
    write(twoGenres);
    EXPECT_EQ(GenreCatalog(m_path).defaults(), zydecoAndBlues);
}

TEST_F(GenreCatalogTest, ReadsTheFileOnceOnly)
{
    write(twoGenres);
    const GenreCatalog catalog(m_path);
    EXPECT_EQ(catalog.defaults(), zydecoAndBlues);
    ASSERT_TRUE(QFile::remove(m_path));
    EXPECT_EQ(catalog.defaults(), zydecoAndBlues);
}

TEST_F(GenreCatalogTest, StaysEmptyOnceTheFileWasMalformed)
{
    write("[{");
    const GenreCatalog catalog(m_path);
    EXPECT_EQ(catalog.defaults(), QList<Genre>());
    write(twoGenres);
    EXPECT_EQ(catalog.defaults(), QList<Genre>());
}

TEST_F(GenreCatalogTest, StaysEmptyOnceTheFileWasMissing)
{
    const GenreCatalog catalog(m_path);
    EXPECT_EQ(catalog.defaults(), QList<Genre>());
    write(twoGenres);
    EXPECT_EQ(catalog.defaults(), QList<Genre>());
}

TEST_F(GenreCatalogTest, IsEmptyIfAnyEntryIsNoGenre)
{
    const QList<QByteArray> malformed = {
        "",
        "null",
        "{}",
        R"({"name": "Blues"})",
        R"(["Blues"])",
        R"([{"name": "Blues"}, {}])",
        R"([{"name": "Blues"}, {"name": null}])",
        R"([{"name": "Blues"}, {"name": 7}])",
        R"([{"Name": "Blues"}])",
        "[{\"name\": \"\xff\"}]",
    };
    for (const QByteArray &json : malformed) {
        write(json);
        EXPECT_EQ(GenreCatalog(m_path).defaults(), QList<Genre>()) << json.toStdString();
    }
}

TEST_F(GenreCatalogTest, IsEmptyIfTheFileIsAFolderOrHasNoName)
{
    EXPECT_EQ(GenreCatalog(m_folder.path()).defaults(), QList<Genre>());
    EXPECT_EQ(GenreCatalog(QString()).defaults(), QList<Genre>());
}

TEST_F(GenreCatalogTest, GivesTheSameListToThreadsThatAskAtOnce)
{
    write(twoGenres);
    const GenreCatalog catalog(m_path);
    constexpr int callers = 8;
    std::barrier<> start(callers);
    std::vector<QList<Genre>> results(callers);
    {
        std::vector<std::jthread> threads;
        for (QList<Genre> &result : results) {
            threads.emplace_back([&] {
                start.arrive_and_wait();
                result = catalog.defaults();
            });
        }
    }
    for (const QList<Genre> &result : results)
        EXPECT_EQ(result, zydecoAndBlues);
}

TEST(GenreResource, OffersGenresInOrderAndEachOnce)
{
    const auto resources = resourceFolder();
    ASSERT_TRUE(resources);
    const QList<Genre> genres = GenreCatalog(*resources + u"/Genres.json"_s).defaults();
    EXPECT_GT(genres.size(), 20);
    QSet<QString> seen;
    for (const Genre &genre : genres) {
        EXPECT_EQ(genre.name, genre.name.trimmed());
        EXPECT_FALSE(genre.name.isEmpty());
        EXPECT_FALSE(seen.contains(genre.name)) << genre.name.toStdString();
        seen.insert(genre.name);
    }
}

} // namespace tonearm
