// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/MergedReleases.h"

#include "helpers/Printing.h"
#include "metadata/Records.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::discogsSource;
using test::idsOf;
using test::musicBrainzSource;

namespace {

ReleaseInfo dated(const QString &id, const QString &year, MetadataSource source = musicBrainzSource)
{
    return {.id = id, .title = u"Blue"_s, .year = year, .source = source};
}

ReleaseInfo titled(const QString &id, const QString &title, const QString &year = {})
{
    return {.id = id, .title = title, .year = year};
}

// Lists of releases in which much is alike: the same ones for the same seed.
class RandomReleases
{
public:
    explicit RandomReleases(unsigned seed)
        : m_engine(seed)
    {
    }

    QList<ReleaseInfo> next()
    {
        QList<ReleaseInfo> releases;
        const std::size_t count = below(40);
        for (std::size_t index = 0; index < count; ++index) {
            releases.append(ReleaseInfo{
                .id = QString::number(below(60)),
                .artist = oneOf({u"Björk"_s, u"BJORK"_s, u"bjo\u0308rk"_s, u"椎名林檎"_s, QString()}),
                .title = oneOf({u"Álbum"_s, u" ALBUM"_s, u"Other"_s, u"אלבום"_s}),
                .year =
                    oneOf({QString(), u"1975"_s, u"1998"_s, u"+1998"_s, u"1998-05"_s, u"????"_s, u"-1"_s}),
                .catalogNumber = oneOf({QString(), u"CD-1"_s, u"cd-1"_s, u"CD-2"_s}),
                .barcode = QString::number(index),
                .source = below(2) == 0 ? musicBrainzSource : discogsSource,
            });
        }
        return releases;
    }

    void shuffle(QList<ReleaseInfo> &releases) { std::shuffle(releases.begin(), releases.end(), m_engine); }

private:
    std::size_t below(std::size_t count)
    {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_engine);
    }

    QString oneOf(const QStringList &texts) { return texts[static_cast<qsizetype>(below(texts.size()))]; }

    std::mt19937 m_engine;
};

constexpr unsigned seeds = 300;

bool isSameRelease(const ReleaseInfo &first, const ReleaseInfo &second)
{
    return first.source == second.source && first.id == second.id;
}

// By what the texts of RandomReleases mean, not by how the program compares them.
bool isAlike(const ReleaseInfo &first, const ReleaseInfo &second)
{
    const auto spelled = [](const QString &text) {
        return text.toUpper()
            .replace(u"BJO\u0308RK"_s, u"BJORK"_s)
            .replace(u"BJÖRK"_s, u"BJORK"_s)
            .replace(u"Á"_s, u"A"_s);
    };
    return first.source == second.source && spelled(first.artist) == spelled(second.artist) &&
           spelled(first.title) == spelled(second.title) && first.year == second.year &&
           spelled(first.catalogNumber) == spelled(second.catalogNumber);
}

} // namespace

TEST(WithoutRepetitions, DropsLaterPressingsThatAreAlike)
{
    const ReleaseInfo first{.id = u"1"_s,
                            .artist = u"Björk"_s,
                            .title = u"Début"_s,
                            .year = u"1993"_s,
                            .catalogNumber = u"TPLP 31CD"_s};
    ReleaseInfo alike = first;
    alike.id = u"2"_s;
    alike.artist = u"BJORK"_s;
    alike.title = u"debut"_s;
    alike.catalogNumber = u"tplp 31cd"_s;
    ReleaseInfo other = first;
    other.id = u"3"_s;
    other.catalogNumber = u"TPLP 31"_s;
    ReleaseInfo later = first;
    later.id = u"4"_s;
    later.year = u"1994"_s;
    EXPECT_EQ(idsOf(withoutRepetitions({first, alike, other, later})), (QStringList{u"1"_s, u"3"_s, u"4"_s}));
}

TEST(WithoutRepetitions, ComparesCatalogueNumbersWithTheirAccents)
{
    ReleaseInfo plain = titled(u"1"_s, u"Blue"_s);
    plain.catalogNumber = u"E1"_s;
    ReleaseInfo accented = titled(u"2"_s, u"Blue"_s);
    accented.catalogNumber = u"É1"_s;
    EXPECT_EQ(withoutRepetitions({plain, accented}).size(), 2);
}

TEST(WithoutRepetitions, DropsTheSameReleaseNamedTwice)
{
    EXPECT_EQ(withoutRepetitions({titled(u"1"_s, u"Blue"_s), titled(u"1"_s, u"Red"_s)}),
              (QList{titled(u"1"_s, u"Blue"_s)}));
}

TEST(WithoutRepetitions, KeepsWhatTheOtherServiceHasToo)
{
    const QList<ReleaseInfo> releases{dated(u"1"_s, u"1993"_s, musicBrainzSource),
                                      dated(u"1"_s, u"1993"_s, discogsSource)};
    EXPECT_EQ(withoutRepetitions(releases), releases);
}

TEST(WithoutRepetitions, LosesNothingButWhatIsThereAlready)
{
    for (unsigned seed = 0; seed < seeds; ++seed) {
        SCOPED_TRACE(seed);
        const QList<ReleaseInfo> releases = RandomReleases(seed).next();
        QList<ReleaseInfo> expected;
        for (qsizetype index = 0; index < releases.size(); ++index) {
            const ReleaseInfo &release = releases[index];
            const auto isSame = [&](const ReleaseInfo &other) { return isSameRelease(other, release); };
            const auto isLike = [&](const ReleaseInfo &other) { return isAlike(other, release); };
            if (std::none_of(releases.cbegin(), releases.cbegin() + index, isSame) &&
                std::none_of(expected.cbegin(), expected.cend(), isLike))
                expected.append(release);
        }
        EXPECT_EQ(withoutRepetitions(releases), expected);
    }
}

TEST(WithoutRepetitions, ChangesNothingTheSecondTime)
{
    for (unsigned seed = 0; seed < seeds; ++seed) {
        const QList<ReleaseInfo> once = withoutRepetitions(RandomReleases(seed).next());
        EXPECT_EQ(withoutRepetitions(once), once) << seed;
    }
}

TEST(SortedForAlbum, PutsTheOldestFirstAndUnknownYearsLast)
{
    EXPECT_EQ(
        idsOf(sortedForAlbum({dated(u"a"_s, u"1998"_s), dated(u"b"_s, {}), dated(u"c"_s, u"1975"_s),
                              dated(u"d"_s, u"1998-05"_s), dated(u"e"_s, u"+1980"_s), dated(u"f"_s, u"-5"_s),
                              dated(u"g"_s, u" 1970"_s), dated(u"h"_s, u"????"_s)},
                             {})),
        (QStringList{u"f"_s, u"c"_s, u"e"_s, u"a"_s, u"b"_s, u"d"_s, u"g"_s, u"h"_s}));
}

TEST(SortedForAlbum, PutsMusicBrainzFirstInAYear)
{
    EXPECT_EQ(idsOf(sortedForAlbum({dated(u"d1"_s, u"1998"_s, discogsSource), dated(u"m1"_s, u"1998"_s),
                                    dated(u"d0"_s, u"1975"_s, discogsSource),
                                    dated(u"d2"_s, u"1998"_s, discogsSource), dated(u"m2"_s, u"1998"_s)},
                                   {})),
              (QStringList{u"d0"_s, u"m1"_s, u"m2"_s, u"d1"_s, u"d2"_s}));
}

TEST(SortedForAlbum, PutsExactMatchesOfTheTitleFirst)
{
    const QList<ReleaseInfo> releases{
        titled(u"a"_s, u"Album II"_s, u"1960"_s), titled(u"b"_s, u"ALBUM"_s, u"1998"_s),
        titled(u"c"_s, u"The Album"_s, u"1970"_s), titled(u"d"_s, u" álbum\n"_s, u"1975"_s)};
    EXPECT_EQ(idsOf(sortedForAlbum(releases, u" Álbum "_s)), (QStringList{u"d"_s, u"b"_s, u"a"_s, u"c"_s}));
}

TEST(SortedForAlbum, GoesByTheYearForABlankAlbum)
{
    const QList<ReleaseInfo> releases{titled(u"a"_s, u"Album"_s, u"1998"_s), titled(u"b"_s, {}, u"1999"_s),
                                      titled(u"c"_s, u"Other"_s, u"1975"_s)};
    for (const QString &album : {QString(), u" \n"_s})
        EXPECT_EQ(idsOf(sortedForAlbum(releases, album)), (QStringList{u"c"_s, u"a"_s, u"b"_s}));
}

TEST(SortedForAlbum, OnlyMovesReleases)
{
    for (unsigned seed = 0; seed < seeds; ++seed) {
        const QList<ReleaseInfo> releases = RandomReleases(seed).next();
        const QList<ReleaseInfo> sorted = sortedForAlbum(releases, u"album"_s);
        EXPECT_TRUE(std::is_permutation(sorted.cbegin(), sorted.cend(), releases.cbegin(), releases.cend()))
            << seed;
    }
}

TEST(SortedForAlbum, ChangesNothingTheSecondTime)
{
    for (unsigned seed = 0; seed < seeds; ++seed) {
        const QList<ReleaseInfo> once = sortedForAlbum(RandomReleases(seed).next(), u"album"_s);
        EXPECT_EQ(sortedForAlbum(once, u"album"_s), once) << seed;
    }
}

TEST(SortedForAlbum, DecidesEveryPairAsItDecidesTheWhole)
{
    for (unsigned seed = 0; seed < seeds / 10; ++seed) {
        SCOPED_TRACE(seed);
        const QList<ReleaseInfo> sorted = sortedForAlbum(RandomReleases(seed).next(), u"album"_s);
        for (qsizetype later = 1; later < sorted.size(); ++later) {
            for (qsizetype earlier = 0; earlier < later; ++earlier) {
                const QList<ReleaseInfo> pair{sorted[earlier], sorted[later]};
                EXPECT_EQ(sortedForAlbum(pair, u"album"_s), pair);
            }
        }
    }
}

TEST(SortedForAlbum, LetsOnlyEqualReleasesKeepTheOrderTheyCameIn)
{
    for (unsigned seed = 0; seed < seeds; ++seed) {
        SCOPED_TRACE(seed);
        RandomReleases random(seed);
        QList<ReleaseInfo> releases = random.next();
        const QList<ReleaseInfo> sorted = sortedForAlbum(releases, u"album"_s);
        random.shuffle(releases);
        const QList<ReleaseInfo> shuffled = sortedForAlbum(releases, u"album"_s);
        const auto ranksOf = [](const QList<ReleaseInfo> &list) {
            QStringList ranks;
            for (const ReleaseInfo &release : list) {
                const bool isMatch = release.title.contains(u"LBUM"_s, Qt::CaseInsensitive);
                bool isNumber = false;
                const int year = release.year.toInt(&isNumber);
                ranks.append(
                    u"%1 %2 %3"_s.arg(isMatch).arg(isNumber ? year : 9999).arg(displayName(release.source)));
            }
            return ranks;
        };
        EXPECT_EQ(ranksOf(sorted), ranksOf(shuffled));
    }
}

TEST(FilledFromSummary, TakesFromTheSummaryOnlyWhatIsMissing)
{
    const ReleaseInfo summary{
        .id = u"1"_s,
        .artist = u"unused"_s,
        .title = u"Nina - Blue"_s,
        .year = u"1998"_s,
        .label = u"unused"_s,
        .catalogNumber = u"unused"_s,
        .country = u"NO"_s,
        .packaging = u"unused"_s,
        .mediaFormat = u"CD"_s,
        .barcode = u"unused"_s,
        .url = u"unused"_s,
        .source = discogsSource,
        .artworkURLs = {u"unused"_s},
        .trackCount = 3,
    };
    const ReleaseInfo filled{.id = u"1"_s,
                             .title = u"Nina - Blue"_s,
                             .year = u"1998"_s,
                             .country = u"NO"_s,
                             .mediaFormat = u"CD"_s,
                             .source = discogsSource};
    EXPECT_EQ(filledFromSummary(ReleaseInfo{.source = discogsSource}, summary), filled);

    const ReleaseInfo whole{
        .id = u"2"_s,
        .artist = u"Nina"_s,
        .title = u"Blue"_s,
        .year = u"1999"_s,
        .country = u"SE"_s,
        .mediaFormat = u"LP"_s,
        .source = discogsSource,
    };
    EXPECT_EQ(filledFromSummary(whole, summary), whole);
}

} // namespace tonearm
