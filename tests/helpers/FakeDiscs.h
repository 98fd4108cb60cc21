// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/OpticalDiscScanning.h"
#include "disc/TrackRipping.h"
#include "encoding/PreviewSound.h"
#include "workflow/DiscEjector.h"

#include <QList>
#include <QUrl>

#include <functional>
#include <memory>

namespace tonearm::test {

/// A machine with the discs that a test puts in.
class FakeDiscScan : public OpticalDiscScanning
{
public:
    QCoro::Task<QList<DiscInfo>> scan(std::stop_token stop) override;

    QList<DiscInfo> discs;
    int scanCount = 0;
};

/// Takes the ejected disc out of a FakeDiscScan, unless it is told to refuse.
class FakeEjector : public DiscEjector
{
public:
    explicit FakeEjector(FakeDiscScan &scan)
        : m_scan(scan)
    {
    }

    QCoro::Task<> eject(QUrl volumeURL, std::stop_token stop) override;

    bool refuses = false;
    QList<QUrl> ejected;
    /// What else goes with a disc.
    std::function<void()> onEject = [] {};

private:
    FakeDiscScan &m_scan;
};

/// A secure reader that does as a test says.
class FakeReader : public TrackRipping
{
public:
    QCoro::Task<RippedTrack> rip(DiscTrack track, DiscInfo disc, Progress onProgress,
                                 std::stop_token stop) override;
    QCoro::Task<bool> verify(DiscTrack track, DiscInfo disc, QString checksum, Progress onProgress,
                             std::stop_token stop) override;

    QString readerName() const override { return QStringLiteral("the secure reader"); }

    /// May throw.
    std::function<RippedTrack(const DiscTrack &)> onRip;
    std::function<bool(const DiscTrack &)> onVerify;
    /// From now on it reads, or verifies, until it is stopped.
    bool isEndlessRip = false;
    bool isEndlessVerify = false;
};

/// Sounds without a sound: what is open plays until the test ends it.
class SilentSounds : public PreviewSounds
{
public:
    std::unique_ptr<PreviewSound> open(const QUrl &url, EndCallback onEnd) override;

    /// Ends what was started last, as a sound ends by itself.
    void finish() const { m_onEnd(); }

    /// What has been started.
    const QList<QUrl> &started() const { return *m_started; }

    /// How many sounds there are at the moment.
    int openCount() const { return *m_openCount; }

    bool refuses = false;

private:
    EndCallback m_onEnd;
    std::shared_ptr<QList<QUrl>> m_started = std::make_shared<QList<QUrl>>();
    std::shared_ptr<int> m_openCount = std::make_shared<int>(0);
};

} // namespace tonearm::test
