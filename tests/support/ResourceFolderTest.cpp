// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ResourceFolder.h"

#include "helpers/Contents.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>

namespace tonearm {

using namespace Qt::StringLiterals;

TEST(ResourceFolder, LiesBesideTheFolderOfThePrograms)
{
    const auto folder = resourceFolder();
    ASSERT_TRUE(folder);
    EXPECT_EQ(QDir(*folder + u"/../.."_s).canonicalPath(),
              QDir(QCoreApplication::applicationDirPath() + u"/.."_s).canonicalPath());
    EXPECT_TRUE(folder->endsWith(u"/share/tonearm"_s));
    EXPECT_FALSE(folder->contains(u".."_s));
}

TEST(ResourceFolder, HoldsTheGenres)
{
    const auto folder = resourceFolder();
    ASSERT_TRUE(folder);
    EXPECT_TRUE(test::namesIn(*folder).contains(u"Genres.json"_s));
}

} // namespace tonearm
