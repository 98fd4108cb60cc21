// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>

namespace tonearm {

/// Who makes the application, and the pages that its windows lead to.
namespace facts {

inline constexpr QStringView makerName = u"The Tonearm Project";
inline constexpr QStringView newsPage = u"https://tonearm.example/news";
inline constexpr QStringView helpPage = u"https://tonearm.example/help";
inline constexpr QStringView productPage = u"https://tonearm.example/";
inline constexpr QStringView musicBrainzDocumentation = u"https://musicbrainz.org/doc/MusicBrainz_API";
inline constexpr QStringView discogsDocumentation = u"https://www.discogs.com/developers";

} // namespace facts

/// What the application was built as.
struct VersionRecord
{
    QString version;
    /// Empty if there is none.
    QString copyright;

    /// Of the running application. Needs a QCoreApplication that has been told its version.
    static VersionRecord ofApplication();
};

} // namespace tonearm
