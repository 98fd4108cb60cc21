// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/AudioPackets.h"

#include <QMap>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype linesOfPacket = 3;

} // namespace

AudioPackets AudioPackets::decoded(const QByteArray &listing)
{
    QMap<int, Stream> streams;
    const QList<QByteArray> lines = listing.split('\n');
    for (qsizetype line = 0; line + linesOfPacket <= lines.size(); line += linesOfPacket) {
        Stream &stream = streams[lines[line].toInt()];
        ++stream.count;
        stream.marks += lines[line + 1] + ' ' + lines[line + 2] + '\n';
    }
    return {streams.values()};
}

QList<qsizetype> AudioPackets::counts() const
{
    QList<qsizetype> result;
    for (const Stream &stream : streams)
        result.append(stream.count);
    return result;
}

QStringList audioPacketArguments(const QString &path)
{
    // One line for each value, without names.
    return {u"-v"_s,
            u"error"_s,
            u"-select_streams"_s,
            u"a"_s,
            u"-show_entries"_s,
            u"packet=stream_index,size,data_hash"_s,
            u"-show_data_hash"_s,
            u"CRC32"_s,
            u"-of"_s,
            u"default=noprint_wrappers=1:nokey=1"_s,
            path};
}

} // namespace tonearm
