// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ImageFileName.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

bool isTaken(const QString &name)
{
    return hasImageExtension(QUrl::fromLocalFile(u"/covers/"_s + name));
}

} // namespace

TEST(ImageFileName, IsOneOfAJpegOrPng)
{
    EXPECT_EQ(imageExtensions(), (QStringList{u"jpg"_s, u"jpeg"_s, u"png"_s}));
    for (const QString &name :
         {u"front.jpg"_s, u"front.jpeg"_s, u"front.png"_s, u"FRONT.JPG"_s, u"a.b.Png"_s})
        EXPECT_TRUE(isTaken(name)) << qPrintable(name);
}

TEST(ImageFileName, IsNoOtherOne)
{
    for (const QString &name : {u"front.gif"_s, u"front.webp"_s, u"jpg"_s, u"front.jpg.txt"_s, u"front"_s})
        EXPECT_FALSE(isTaken(name)) << qPrintable(name);
}

} // namespace tonearm
