// SPDX-License-Identifier: GPL-3.0-or-later
// The plain reader against mounted volumes: that of an image, and one whose disc fails on purpose.
#include "cddafs/AiffHeader.h"
#include "cddafs/FuseVolume.h"
#include "disc/OpticalDiscService.h"
#include "disc/RippingFixture.h"
#include "disc/UnreliableSource.h"
#include "helpers/CddafsProgram.h"
#include "helpers/DiscImage.h"
#include "helpers/Mounting.h"
#include "support/Cancellation.h"
#include "support/Digest.h"

#include <atomic>
#include <thread>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::await;
using test::awaitError;
using test::FailingSource;
using test::Gate;
using test::UnreliableSource;

namespace {

// The one volume that a test has mounted, as the mount table has it.
class OneVolume : public VolumeListing
{
public:
    explicit OneVolume(QString folder)
        : m_folder(std::move(folder))
    {
    }

    QList<MountedVolume> volumes() const override
    {
        const auto entry = test::mountedOn(m_folder);
        if (!entry)
            return {};
        QString type = entry->type;
        return {
            {.url = QUrl::fromLocalFile(m_folder), .type = type.remove(u"fuse."_s), .source = entry->source}};
    }

private:
    const QString m_folder;
};

// A disc image that the program mounts.
class MountedImageTest : public testing::Test
{
protected:
    void SetUp() override
    {
        SKIP_WITHOUT_MOUNTS();
        m_program =
            std::make_unique<test::CddafsProgram>(QStringList{u"--in"_s, m_volumes.path(), m_image.path()});
        ASSERT_EQ(m_program->waitForMount(), m_volumes.filePath(u"Album"_s));
    }

    QList<DiscInfo> scan() { return await(m_scanner.scan({})); }

    QByteArray fileOf(int number) const
    {
        const QByteArray sound = test::swappedSamples(m_image.sound(number));
        return aiffHeader(sound.size() / discFrameBytes) + sound;
    }

    QTemporaryDir m_images;
    QTemporaryDir m_volumes;
    QTemporaryDir m_temporary;
    test::DiscImage m_image{
        m_images.path(),
        {.tracks = {{.sectors = 100}, {.sectors = 31, .title = "Second"}}, .title = "Album"}};
    OpticalDiscService m_scanner{std::make_shared<OneVolume>(m_volumes.filePath(u"Album"_s))};
    std::unique_ptr<test::CddafsProgram> m_program;
};

// A disc of one track that a thread of the test serves.
class ServedDisc
{
public:
    explicit ServedDisc(UnreliableSource::Judge judge)
        : m_source(std::move(judge))
        , m_volume(volumeFiles(layout(), {}), m_source, "/dev/sr0", m_folder.path().toUtf8())
        , m_thread([this] { m_volume.serve(); })
    {
    }

    ~ServedDisc()
    {
        unmount();
        m_thread.join();
    }

    void unmount() const { test::unmount(m_folder.path()); }

    DiscTrack track() const
    {
        return {.number = 1,
                .frameCount = sectors,
                .audioFileURL = QUrl::fromLocalFile(m_folder.filePath(u"1 Audio Track.aiff"_s))};
    }

    static QByteArray file() { return aiffHeader(sectors) + FailingSource::fileSectors(start, sectors); }

    static constexpr qint64 start = 500;
    static constexpr qint64 sectors = 200;

private:
    static DiscLayout layout() { return {{{1, start + sectors, {{1, start, true}}}}}; }

    QTemporaryDir m_folder;
    UnreliableSource m_source;
    FuseVolume m_volume;
    std::thread m_thread;
};

class ServedDiscTest : public test::RippingFixture
{
protected:
    void SetUp() override { SKIP_WITHOUT_MOUNTS(); }

    DiscRippingService m_service{m_temporary.path(), m_files, noWaits()};
};

} // namespace

TEST_F(MountedImageTest, IsFoundWithItsTracks)
{
    const QList<DiscInfo> discs = scan();
    ASSERT_EQ(discs.size(), 1);
    EXPECT_EQ(discs[0].volumeName, u"Album"_s);
    EXPECT_EQ(discs[0].rawDevice, QUrl::fromLocalFile(m_image.path()));
    ASSERT_EQ(discs[0].tracks.size(), 2);
    EXPECT_EQ(discs[0].tracks[0].frameCount, 100);
    EXPECT_EQ(discs[0].tracks[0].title, std::nullopt);
    EXPECT_EQ(discs[0].tracks[1].frameCount, 31);
    EXPECT_EQ(discs[0].tracks[1].title, u"Second"_s);
}

TEST_F(MountedImageTest, IsRippedAndVerified)
{
    DiscRippingService service(m_temporary.path());
    const QList<DiscInfo> discs = scan();
    ASSERT_EQ(discs.size(), 1);
    for (const DiscTrack &track : discs[0].tracks) {
        const RippedTrack ripped = await(service.rip(track, discs[0], {}, {}));
        const QByteArray expected = fileOf(static_cast<int>(track.number));
        EXPECT_TRUE(test::readFile(ripped.url.toLocalFile()) == expected) << track.number;
        EXPECT_EQ(ripped.checksum, sha256Hex(expected));
        EXPECT_TRUE(await(service.verify(track, discs[0], ripped.checksum, {}, {})));
    }
}

TEST_F(MountedImageTest, IsNoMoreWhenItIsUnmounted)
{
    ASSERT_EQ(scan().size(), 1);
    m_program->terminate();
    ASSERT_EQ(m_program->waitForEnd(), 0);
    EXPECT_EQ(scan().size(), 0);
}

TEST_F(MountedImageTest, FailsAReadingWhenItDisappears)
{
    const auto files = std::make_shared<test::FaultyFiles>();
    const auto gate = std::make_shared<Gate>();
    files->onRead = [gate](const auto &reading) {
        if (reading.index == 1)
            gate->pass();
        return reading.bytes;
    };
    DiscRippingService service(m_temporary.path(), files, {.beforeRetry = 1ms});
    const DiscTrack track = scan().value(0).tracks.value(0);
    auto ripping = service.rip(track, {}, {}, {});
    ASSERT_TRUE(test::eventually([&] { return gate->isReached(); }));
    m_program->kill();
    m_program->waitForEnd();
    gate->open();
    EXPECT_EQ(awaitError<DiscError>(std::move(ripping)),
              DiscError::trackReadFailed(
                  1, u"The track could not be reopened. Gave up after 6 attempts at 75264 bytes."_s));
    EXPECT_EQ(test::namesIn(m_temporary.filePath(u"Tonearm/Rips"_s)), QStringList());
}

TEST_F(ServedDiscTest, IsReadWholeWhenASectorCanBeReadInTheEnd)
{
    std::atomic<int> failures = 0;
    const ServedDisc disc([&](qint64 first, qint64 count) {
        const bool isBad = first <= 600 && 600 < first + count;
        return !isBad || ++failures > 12;
    });
    const RippedTrack ripped = await(m_service.rip(disc.track(), {}, {}, {}));
    EXPECT_TRUE(test::readFile(ripped.url.toLocalFile()) == ServedDisc::file());
    EXPECT_EQ(ripped.checksum, sha256Hex(ServedDisc::file()));
    EXPECT_GT(m_files->log().count(u"wait 100"_s), 0);
    EXPECT_TRUE(await(m_service.verify(disc.track(), {}, ripped.checksum, {}, {})));
}

TEST_F(ServedDiscTest, FailsAtASectorThatIsGone)
{
    const ServedDisc disc([](qint64 first, qint64 count) { return !(first <= 600 && 600 < first + count); });
    const auto error = awaitError<DiscError>(m_service.rip(disc.track(), {}, {}, {}));
    // The file has a header as large as a sector.
    EXPECT_EQ(error, DiscError::trackReadFailed(
                         1, u"Input/output error. Gave up after 6 attempts at 237552 bytes."_s));
    EXPECT_EQ(rips(), QStringList());
}

TEST_F(ServedDiscTest, IsLeftAloneAtOnceWhenItStalls)
{
    const auto gate = std::make_shared<Gate>();
    const ServedDisc disc([gate](qint64 first, qint64) {
        if (first > 550)
            gate->pass();
        return true;
    });
    auto ripping = m_service.rip(disc.track(), {}, {}, m_stop.get_token());
    EXPECT_TRUE(test::eventually([&] { return gate->isReached(); }));
    m_stop.request_stop();
    EXPECT_TRUE(awaitError<CancellationError>(std::move(ripping)));
    EXPECT_EQ(rips(), QStringList());
    gate->open();
}

TEST_F(ServedDiscTest, CanBeUnmountedAfterAReadingWasLeftBehind)
{
    const auto gate = std::make_shared<Gate>();
    {
        const ServedDisc disc([gate](qint64, qint64) {
            gate->pass();
            return true;
        });
        auto ripping = m_service.rip(disc.track(), {}, {}, m_stop.get_token());
        EXPECT_TRUE(test::eventually([&] { return gate->isReached(); }));
        m_stop.request_stop();
        EXPECT_TRUE(awaitError<CancellationError>(std::move(ripping)));
        gate->open();
        EXPECT_TRUE(test::eventually([this] { return m_files->log().endsWith(u"close"_s); }));
    }
    EXPECT_EQ(rips(), QStringList());
}

} // namespace tonearm
