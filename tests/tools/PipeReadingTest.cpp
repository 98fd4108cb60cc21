// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PipeReading.h"

#include "support/FileDescriptor.h"

#include <gtest/gtest.h>

#include <QByteArray>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <future>
#include <system_error>
#include <thread>
#include <utility>

namespace tonearm {

namespace {

// More than a pipe holds.
constexpr qsizetype plenty = 1000000;

void writeAll(const FileDescriptor &writeEnd, const QByteArray &bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(writeEnd.number(), bytes.data() + written,
                                      static_cast<std::size_t>(bytes.size() - written));
        ASSERT_GT(count, 0);
        written += count;
    }
}

// Has the system refuse to watch any descriptor, for a while.
class NoDescriptorsAllowed
{
public:
    NoDescriptorsAllowed()
    {
        EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &m_original), 0);
        const rlimit none{0, m_original.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    }

    ~NoDescriptorsAllowed() { EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &m_original), 0); }

    NoDescriptorsAllowed(const NoDescriptorsAllowed &) = delete;
    NoDescriptorsAllowed &operator=(const NoDescriptorsAllowed &) = delete;

private:
    rlimit m_original{};
};

PipeSource collecting(const Pipe &pipe, QByteArray &bytes)
{
    return {pipe.readEnd.number(), [&bytes](QByteArrayView chunk) { bytes.append(chunk); }};
}

} // namespace

TEST(PipeReading, ReadsAPipeToItsEnd)
{
    Pipe pipe = Pipe::open();
    QByteArray bytes;
    std::jthread writer([end = std::move(pipe.writeEnd)] { writeAll(end, QByteArray(plenty, 'a')); });
    // The captured write end goes with the thread's function, which is what ends the pipe.
    readToEnd({collecting(pipe, bytes)});
    EXPECT_EQ(bytes, QByteArray(plenty, 'a'));
}

TEST(PipeReading, StallsNoWriterThatFillsOnePipeAfterTheOther)
{
    Pipe first = Pipe::open();
    Pipe second = Pipe::open();
    std::jthread writer([one = std::move(first.writeEnd), two = std::move(second.writeEnd)] {
        writeAll(two, QByteArray(plenty, '2'));
        writeAll(one, QByteArray(plenty, '1'));
        writeAll(two, QByteArray(plenty, '2'));
    });
    QByteArray ones;
    QByteArray twos;
    readToEnd({collecting(first, ones), collecting(second, twos)});
    EXPECT_EQ(ones, QByteArray(plenty, '1'));
    EXPECT_EQ(twos, QByteArray(2 * plenty, '2'));
}

TEST(PipeReading, GoesOnWithOnePipeWhenTheOtherHasEnded)
{
    Pipe ended = Pipe::open();
    Pipe open = Pipe::open();
    ended.writeEnd.close();
    std::jthread writer([end = std::move(open.writeEnd)] { writeAll(end, QByteArray(plenty, 'a')); });
    QByteArray nothing;
    QByteArray bytes;
    readToEnd({collecting(ended, nothing), collecting(open, bytes)});
    EXPECT_EQ(nothing, QByteArray());
    EXPECT_EQ(bytes, QByteArray(plenty, 'a'));
}

TEST(PipeReading, HandsAChunkOnBeforeThePipeEnds)
{
    Pipe pipe = Pipe::open();
    Pipe answer = Pipe::open();
    QByteArray heard;
    std::jthread writer([&, end = std::move(pipe.writeEnd)] {
        writeAll(end, "ping");
        char byte = '\0';
        heard.append(::read(answer.readEnd.number(), &byte, 1) == 1 ? byte : '?');
    });
    readToEnd({{pipe.readEnd.number(), [&](QByteArrayView) { writeAll(answer.writeEnd, "!"); }}});
    writer.join();
    EXPECT_EQ(heard, "!");
}

TEST(PipeReading, EndsAtOnceWithoutPipes)
{
    constexpr std::chrono::seconds patience(10);
    const std::future<void> reading = std::async(std::launch::async, [] { readToEnd({}); });
    EXPECT_EQ(reading.wait_for(patience), std::future_status::ready);
}

TEST(PipeReading, TakesNoFailureToReadForTheEnd)
{
    // The system says that a folder can be read, and refuses to.
    const FileDescriptor folder(::open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    EXPECT_THROW(readToEnd({{folder.number(), [](QByteArrayView) {}}}), std::system_error);
}

TEST(PipeReading, FailsWhenThePipesCannotBeWatched)
{
    const Pipe pipe = Pipe::open();
    const NoDescriptorsAllowed limit;
    EXPECT_THROW(readToEnd({{pipe.readEnd.number(), [](QByteArrayView) {}}}), std::system_error);
}

} // namespace tonearm
