// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/aboutwindows/LicenceDocument.h"

#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "support/ResourceFolder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct LicenceDocuments : testing::Test
{
    void add(const QString &name, const QByteArray &contents = "text")
    {
        QDir().mkpath(folder.filePath(u"Licenses"_s));
        writeFile(folder.filePath(u"Licenses/"_s + name), contents);
    }

    QList<LicenceDocument> found() const { return licenceDocuments(folder.path()); }

    QStringList ids() const
    {
        QStringList ids;
        for (const LicenceDocument &document : found())
            ids.append(document.id);
        return ids;
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(LicenceDocuments, AreNamedByTheirFilesWithoutTheExtension)
{
    add(u"LGPL-2.1.txt"_s);
    const LicenceDocument expected{u"LGPL-2.1"_s,
                                   QUrl::fromLocalFile(folder.filePath(u"Licenses/LGPL-2.1.txt"_s))};
    EXPECT_EQ(found(), QList<LicenceDocument>{expected});
}

TEST_F(LicenceDocuments, BeginWithTheNotices)
{
    for (const QString &name : {u"AAA.txt"_s, u"README.txt"_s, u"ZZZ.txt"_s, u"0.txt"_s})
        add(name);
    EXPECT_EQ(ids(), (QStringList{u"README"_s, u"0"_s, u"AAA"_s, u"ZZZ"_s}));
}

TEST_F(LicenceDocuments, FollowEachOtherAsPeopleCount)
{
    for (const QString &name : {u"GPL-10.txt"_s, u"GPL-2.txt"_s, u"apache.txt"_s, u"LGPL-3.txt"_s})
        add(name);
    EXPECT_EQ(ids(), (QStringList{u"apache"_s, u"GPL-2"_s, u"GPL-10"_s, u"LGPL-3"_s}));
}

TEST_F(LicenceDocuments, AreNoneWithoutAFolder)
{
    EXPECT_EQ(licenceDocuments(std::nullopt), QList<LicenceDocument>());
    EXPECT_EQ(found(), QList<LicenceDocument>());
}

TEST_F(LicenceDocuments, AreFilesOnly)
{
    add(u"GPL-3.txt"_s);
    ASSERT_TRUE(QDir().mkpath(folder.filePath(u"Licenses/more"_s)));
    EXPECT_EQ(ids(), QStringList{u"GPL-3"_s});
}

TEST_F(LicenceDocuments, HaveLabels)
{
    EXPECT_EQ(sidebarLabel({u"README"_s, {}}), u"Notices"_s);
    EXPECT_EQ(sidebarLabel({u"GPL-3"_s, {}}), u"GPL-3"_s);
    EXPECT_EQ(sidebarLabel({u"Readme"_s, {}}), u"Readme"_s);
}

TEST_F(LicenceDocuments, AreReadWhole)
{
    add(u"GPL-3.txt"_s, "first\nlast © line\n");
    EXPECT_EQ(textOf(found().first()), u"first\nlast © line\n"_s);
}

TEST_F(LicenceDocuments, SayThatTheyCannotBeRead)
{
    add(u"GPL-3.txt"_s);
    const LicenceDocument document = found().first();
    ASSERT_TRUE(QFile::remove(document.url.toLocalFile()));
    EXPECT_EQ(textOf(document), u"\"GPL-3.txt\" could not be read: No such file or directory."_s);
}

TEST(ShippedLicences, AreThoseThatTheToolsAndLibrariesAreUnder)
{
    const QList<LicenceDocument> documents = licenceDocuments(resourceFolder());
    ASSERT_FALSE(documents.isEmpty());
    EXPECT_EQ(sidebarLabel(documents.first()), u"Notices"_s);
    QStringList ids;
    for (const LicenceDocument &document : documents) {
        ids.append(document.id);
        EXPECT_GT(textOf(document).size(), 500) << document.id.toStdString();
    }
    for (const QString &licence : {u"GPL-2"_s, u"GPL-3"_s, u"LGPL-2.1"_s, u"LGPL-3"_s})
        EXPECT_TRUE(ids.contains(licence)) << licence.toStdString();
}

} // namespace tonearm
