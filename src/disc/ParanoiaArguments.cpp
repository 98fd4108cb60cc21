// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/ParanoiaArguments.h"

#include "support/Numbers.h"

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// A length as cd-paranoia takes it: minutes, seconds and frames, "61:01.01".
QString lengthText(qint64 frames)
{
    const qint64 counted = std::max(qint64{0}, frames);
    const qint64 seconds = counted / discFramesPerSecond;
    return minutesAndSeconds(static_cast<double>(seconds)) + u'.' + padded(counted % discFramesPerSecond, 2);
}

QStringList spanArguments(const DiscTrack &track)
{
    const QString number = QString::number(track.number);
    if (!track.precedesDataSession)
        return {number};
    return {u"-Y"_s, u"%1[0]-%1[%2]"_s.arg(number, lengthText(track.frameCount))};
}

} // namespace

QStringList paranoiaArguments(const DiscTrack &track, const QString &device, const QString &output)
{
    return QStringList{u"-d"_s, device, u"-w"_s, u"--never-skip=8"_s} + spanArguments(track) +
           QStringList{output};
}

} // namespace tonearm
