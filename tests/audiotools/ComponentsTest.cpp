// SPDX-License-Identifier: GPL-3.0-or-later
#include "audiotools/AudioTools.h"

#include <gtest/gtest.h>

#include <QSet>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

QList<Component> neededOfKind(const QString &kind)
{
    QList<Component> components = neededComponents();
    components.removeIf([&](const Component &component) { return component.kind != kind; });
    return components;
}

/// The names in a listing of ffmpeg's, which stand in the given column; one line can hold several,
/// "matroska,webm".
QSet<QString> namesListed(const QString &option, int column)
{
    const ProgramRun run = runProgram(shippedTool(u"ffmpeg"_s), {u"-hide_banner"_s, option});
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    QSet<QString> names;
    for (const QString &line : QString::fromUtf8(run.output).split(u'\n')) {
        const QString entry = words(line).value(column);
        for (const QString &name : entry.split(u','))
            names.insert(name);
    }
    return names;
}

struct Listing
{
    const char *kind;
    const char *option;
    int column;
};

void PrintTo(const Listing &listing, std::ostream *out)
{
    *out << listing.option;
}

class ListedComponents : public testing::TestWithParam<Listing>
{
};

} // namespace

TEST_P(ListedComponents, AreAllInFFmpeg)
{
    const QSet<QString> listed = namesListed(QString::fromLatin1(GetParam().option), GetParam().column);
    const QList<Component> needed = neededOfKind(QString::fromLatin1(GetParam().kind));
    ASSERT_FALSE(needed.isEmpty());
    for (const Component &component : needed)
        EXPECT_TRUE(listed.contains(component.listedName)) << "no " << component.listedName.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Components, ListedComponents,
                         testing::Values(Listing{"demuxer", "-demuxers", 1}, Listing{"muxer", "-muxers", 1},
                                         Listing{"decoder", "-decoders", 1},
                                         Listing{"encoder", "-encoders", 1}, Listing{"filter", "-filters", 1},
                                         Listing{"bsf", "-bsfs", 0}, Listing{"protocol", "-protocols", 0}),
                         [](const auto &test) { return std::string(test.param.kind); });

// ffmpeg lists no parsers: how it was configured has to tell.
TEST(Components, ParsersAreAllInFFmpegAndInFFprobe)
{
    const QList<Component> needed = neededOfKind(u"parser"_s);
    ASSERT_FALSE(needed.isEmpty());
    for (const QString &tool : {u"ffmpeg"_s, u"ffprobe"_s}) {
        const QString configuration = buildConfiguration(shippedTool(tool));
        ASSERT_FALSE(configuration.isEmpty());
        const bool hasAll = !configuration.contains(u"--disable-everything"_s);
        for (const Component &component : needed)
            EXPECT_TRUE(hasAll ||
                        configuration.contains(u"--enable-parser="_s + component.configuredName + u'\n'))
                << tool.toStdString() << " has no " << component.configuredName.toStdString();
    }
}

TEST(Components, AreOfKindsThatTheseTestsKnow)
{
    const QSet<QString> known = {u"demuxer"_s, u"muxer"_s,  u"decoder"_s, u"encoder"_s,
                                 u"parser"_s,  u"filter"_s, u"bsf"_s,     u"protocol"_s};
    for (const Component &component : neededComponents())
        EXPECT_TRUE(known.contains(component.kind)) << component.kind.toStdString();
}

} // namespace tonearm::test
