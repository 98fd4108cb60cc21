// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/RewriteArguments.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QStringList words(const QString &text)
{
    return text.split(u' ');
}

TagWrite writeWith(const ArtworkWrite &artwork)
{
    return {.metadata = {u"-metadata"_s, u"title=A b"_s}, .artwork = artwork};
}

} // namespace

TEST(RewriteArguments, TakeOverEveryStreamToKeepTheArtwork)
{
    const Rewrite rewrite{.input = u"/in.flac"_s, .output = u"/out.flac"_s, .write = writeWith({})};
    EXPECT_EQ(rewriteArguments(rewrite),
              words(u"-hide_banner -v error -y -i /in.flac -map 0 -c copy -metadata"_s) +
                  QStringList({u"title=A b"_s, u"/out.flac"_s}));
}

TEST(RewriteArguments, TakeTheSoundAloneToRemoveTheArtwork)
{
    const Rewrite rewrite{.input = u"/in.flac"_s,
                          .output = u"/out.flac"_s,
                          .write = {.metadata = {}, .artwork = ArtworkWrite::remove()}};
    EXPECT_EQ(rewriteArguments(rewrite),
              words(u"-hide_banner -v error -y -i /in.flac -map 0:a -vn -c copy /out.flac"_s));
}

TEST(RewriteArguments, PutInAnotherPicture)
{
    const ArtworkWrite artwork = ArtworkWrite::replace(QUrl::fromLocalFile(u"/a.jpg"_s));
    const Rewrite rewrite{.input = u"/in.mp3"_s,
                          .output = u"/out.mp3"_s,
                          .write = writeWith(artwork),
                          .image = u"/a.jpg"_s,
                          .id3Version = 3,
                          .isPreflight = true};
    EXPECT_EQ(rewriteArguments(rewrite),
              words(u"-hide_banner -v error -y -i /in.mp3 -i /a.jpg -map 0:a -map 1:v -c copy "
                    "-disposition:v:0 attached_pic -metadata:s:v"_s) +
                  QStringList({u"title=Album cover"_s, u"-metadata:s:v"_s, u"comment=Cover (front)"_s,
                               u"-t"_s, u"1"_s, u"-id3v2_version"_s, u"3"_s, u"-metadata"_s, u"title=A b"_s,
                               u"/out.mp3"_s}));
}

} // namespace tonearm
