// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/NaturalOrder.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QLocale>
#include <QStringList>

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

/// Makes a locale the user's for as long as it lives.
class UserLocale
{
public:
    explicit UserLocale(const QLocale &locale) { QLocale::setDefault(locale); }

    ~UserLocale() { QLocale::setDefault(m_before); }

    UserLocale(const UserLocale &) = delete;
    UserLocale &operator=(const UserLocale &) = delete;

private:
    QLocale m_before;
};

QStringList sorted(QStringList names)
{
    std::ranges::sort(names, NaturalOrder());
    return names;
}

const QList<QLocale> locales = {QLocale::c(), QLocale(u"en_GB"_s), QLocale(u"de_DE"_s), QLocale(u"sv_SE"_s)};

} // namespace

TEST(NaturalOrder, SortsNumbersByTheirValueInEveryLocale)
{
    const QStringList expected = {u"1.flac"_s, u"2.flac"_s, u"10.flac"_s, u"Side 2"_s, u"Side 10"_s};
    for (const QLocale &locale : locales) {
        const UserLocale user(locale);
        EXPECT_EQ(sorted({u"Side 10"_s, u"10.flac"_s, u"2.flac"_s, u"Side 2"_s, u"1.flac"_s}), expected)
            << locale.name().toStdString();
    }
}

TEST(NaturalOrder, DisregardsCaseInEveryLocale)
{
    for (const QLocale &locale : locales) {
        const UserLocale user(locale);
        EXPECT_EQ(sorted({u"c"_s, u"B"_s, u"a"_s}), (QStringList{u"a"_s, u"B"_s, u"c"_s}));
        EXPECT_EQ(NaturalOrder().compare(u"TRACK"_s, u"track"_s), 0) << locale.name().toStdString();
    }
}

TEST(NaturalOrder, PutsLettersWhereTheUserLooksForThem)
{
    const QStringList names = {u"Zebra"_s, u"Öl"_s, u"Otto"_s};
    {
        const UserLocale german(QLocale(u"de_DE"_s));
        EXPECT_EQ(sorted(names), (QStringList{u"Öl"_s, u"Otto"_s, u"Zebra"_s}));
    }
    const UserLocale swedish(QLocale(u"sv_SE"_s));
    EXPECT_EQ(sorted(names), (QStringList{u"Otto"_s, u"Zebra"_s, u"Öl"_s}));
}

TEST(NaturalOrder, IsTheSameFromBothSides)
{
    const QStringList names = {
        u""_s, u"1"_s, u"01"_s, u"1a"_s, u"a1"_s, u"A01"_s, u"ä"_s, u"語"_s, u"99999999999999999999"_s};
    const NaturalOrder order;
    for (const QString &first : names) {
        EXPECT_EQ(order.compare(first, first), 0);
        for (const QString &second : names) {
            const int forth = order.compare(first, second);
            const int back = order.compare(second, first);
            EXPECT_EQ(forth > 0, back < 0) << first.toStdString() << " and " << second.toStdString();
            EXPECT_EQ(order(first, second), forth < 0);
        }
    }
}

} // namespace tonearm
