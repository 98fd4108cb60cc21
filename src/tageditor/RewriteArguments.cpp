// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/RewriteArguments.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QStringList streamArguments(const ArtworkWrite &artwork, const QString &image)
{
    switch (artwork.kind) {
    case ArtworkWrite::Kind::replace:
        return {u"-i"_s, image, u"-map"_s, u"0:a"_s, u"-map"_s, u"1:v"_s};
    case ArtworkWrite::Kind::keep:
        return {u"-map"_s, u"0"_s};
    case ArtworkWrite::Kind::remove:
        return {u"-map"_s, u"0:a"_s, u"-vn"_s};
    }
    Q_UNREACHABLE();
}

QStringList coverArguments()
{
    return {u"-disposition:v:0"_s,  u"attached_pic"_s,  u"-metadata:s:v"_s,
            u"title=Album cover"_s, u"-metadata:s:v"_s, u"comment=Cover (front)"_s};
}

} // namespace

QStringList rewriteArguments(const Rewrite &rewrite)
{
    QStringList result = {u"-hide_banner"_s, u"-v"_s, u"error"_s, u"-y"_s, u"-i"_s, rewrite.input};
    result << streamArguments(rewrite.write.artwork, rewrite.image) << u"-c"_s << u"copy"_s;
    if (rewrite.write.artwork.kind == ArtworkWrite::Kind::replace)
        result << coverArguments();
    if (rewrite.isPreflight)
        result << u"-t"_s << u"1"_s;
    if (rewrite.id3Version)
        result << u"-id3v2_version"_s << QString::number(*rewrite.id3Version);
    return result << rewrite.write.metadata << rewrite.output;
}

} // namespace tonearm
