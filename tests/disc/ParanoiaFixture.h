// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/ParanoiaRippingService.h"
#include "helpers/Contents.h"
#include "helpers/StandInTools.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <chrono>
#include <stop_token>
#include <utility>

namespace tonearm::test {

/// The secure reader with a script in cd-paranoia's place, which is asked for track 3 of a disc, ten frames
/// long, so that 23564 bytes are expected of it.
class ParanoiaFixture : public testing::Test
{
protected:
    static constexpr qint64 expectedBytes = 23564;

    /// Looks often, and never gives up.
    static constexpr StallTimes patient{.poll = std::chrono::milliseconds(1),
                                        .patience = std::chrono::hours(1)};
    /// Some hundred times faster than the real times; long enough for a program to start on a busy machine.
    static constexpr StallTimes impatient{.poll = std::chrono::milliseconds(1),
                                          .patience = std::chrono::milliseconds(400)};

    explicit ParanoiaFixture(StallTimes times = patient)
        : m_service(m_tools.location(), m_folder.path(), times)
    {
    }

    /// What the program does. It finds the file to write, its last argument, in $output, can
    /// `write <bytes>` to that, and `waitFor <name>` until the test has made a file.
    void setProgram(const QByteArray &body)
    {
        m_tools.add(QStringLiteral("cd-paranoia"), R"(
            write() { head -c "$1" /dev/zero >> "$output"; }
            waitFor() { until [ -e "$here/$1" ]; do sleep 0.01; done; }
            for output; do :; done
            )" + body);
    }

    QCoro::Task<RippedTrack> rip(TrackRipping::Progress onProgress = {}, std::stop_token stop = {})
    {
        return m_service.rip(track, disc, std::move(onProgress), std::move(stop));
    }

    QCoro::Task<bool> verify(const QString &checksum, TrackRipping::Progress onProgress = {},
                             std::stop_token stop = {})
    {
        return m_service.verify(track, disc, checksum, std::move(onProgress), std::move(stop));
    }

    QString ripFolder() const { return m_folder.filePath(QStringLiteral("Tonearm/SecureRips")); }

    /// What lies in the folder for rips.
    QStringList files() const { return namesIn(ripFolder()); }

    StandInTools &tools() { return m_tools; }

    ParanoiaRippingService &service() { return m_service; }

    // NOLINTBEGIN(cppcoreguidelines-non-private-member-variables-in-classes): a fixture
    DiscTrack track{.number = 3, .frameCount = 10};
    DiscInfo disc{.volumeURL = {},
                  .volumeName = {},
                  .discID = {},
                  .tracks = {},
                  .rawDevice = QUrl(QStringLiteral("file:///dev/the drive"))};
    // NOLINTEND(cppcoreguidelines-non-private-member-variables-in-classes)

private:
    StandInTools m_tools;
    QTemporaryDir m_folder;
    ParanoiaRippingService m_service;
};

} // namespace tonearm::test
