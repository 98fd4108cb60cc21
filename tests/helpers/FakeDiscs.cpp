// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/FakeDiscs.h"

#include "support/InterruptibleSleep.h"

#include <cerrno>
#include <chrono>
#include <system_error>
#include <utility>

namespace tonearm::test {

namespace {

constexpr std::chrono::hours endless{1};

class SilentSound : public PreviewSound
{
public:
    SilentSound(QUrl url, std::shared_ptr<QList<QUrl>> started, std::shared_ptr<int> openCount)
        : m_url(std::move(url))
        , m_started(std::move(started))
        , m_openCount(std::move(openCount))
    {
        ++*m_openCount;
    }

    ~SilentSound() override { --*m_openCount; }

    void start() override { m_started->append(m_url); }

private:
    QUrl m_url;
    std::shared_ptr<QList<QUrl>> m_started;
    std::shared_ptr<int> m_openCount;
};

} // namespace

QCoro::Task<QList<DiscInfo>> FakeDiscScan::scan(std::stop_token /*stop*/)
{
    ++scanCount;
    // GCC 12 would move the member itself out.
    const QList<DiscInfo> found = discs;
    co_return found;
}

QCoro::Task<> FakeEjector::eject(QUrl volumeURL, std::stop_token /*stop*/)
{
    ejected.append(volumeURL);
    if (refuses)
        throw std::system_error(EBUSY, std::generic_category());
    onEject();
    m_scan.discs.removeIf([&volumeURL](const DiscInfo &disc) { return disc.volumeURL == volumeURL; });
    co_return;
}

QCoro::Task<RippedTrack> FakeReader::rip(DiscTrack track, DiscInfo /*disc*/, Progress onProgress,
                                         std::stop_token stop)
{
    onProgress(1);
    if (isEndlessRip)
        co_await interruptibleSleep(endless, stop);
    co_return onRip(track);
}

QCoro::Task<bool> FakeReader::verify(DiscTrack track, DiscInfo /*disc*/, QString /*checksum*/,
                                     Progress onProgress, std::stop_token stop)
{
    onProgress(1);
    if (isEndlessVerify)
        co_await interruptibleSleep(endless, stop);
    co_return onVerify(track);
}

std::unique_ptr<PreviewSound> SilentSounds::open(const QUrl &url, EndCallback onEnd)
{
    if (refuses)
        throw std::system_error(ENOENT, std::generic_category());
    m_onEnd = std::move(onEnd);
    return std::make_unique<SilentSound>(url, m_started, m_openCount);
}

} // namespace tonearm::test
