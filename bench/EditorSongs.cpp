// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorSongs.h"

#include "helpers/Contents.h"
#include "helpers/Media.h"

#include <QFile>

namespace tonearm::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr double secondsOfSong = 0.5;
constexpr int digits = 5;

QByteArray padded(int number)
{
    return QByteArray::number(number).rightJustified(digits, '0');
}

} // namespace

void makeSongs(const test::EditorFixture &fixture, int count)
{
    const QString model = fixture.path(u"model.flac"_s);
    const QByteArray placeholder(digits, '#');
    const QString number = QString::fromLatin1(placeholder);
    test::makeMedia(model,
                    {.channelLayout = u"mono"_s,
                     .duration = secondsOfSong,
                     .metadata = {u"title=Song "_s + number, u"track="_s + number, u"artist=The Artist"_s,
                                  u"album=The Album"_s, u"genre=Jazz"_s, u"date=1999"_s, u"disc=1"_s}});
    const QByteArray bytes = test::readFile(model);
    for (int index = 1; index <= count; ++index) {
        QByteArray song = bytes;
        // Of the same length, so that nothing else in the file has to change.
        song.replace(placeholder, padded(index));
        test::writeFile(fixture.songs().path(QString::fromLatin1(padded(index)) + u".flac"_s), song);
    }
}

} // namespace tonearm::bench
