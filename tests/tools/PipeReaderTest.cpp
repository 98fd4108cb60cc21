// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PipeReader.h"

#include <gtest/gtest.h>

#include <QByteArray>

#include <fcntl.h>
#include <poll.h>

#include <system_error>
#include <utility>

namespace tonearm {

namespace {

// What can't be read, though the system says that it can.
FileDescriptor folder()
{
    return FileDescriptor(::open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

bool hasNoReader(const FileDescriptor &writeEnd)
{
    pollfd pipe{writeEnd.number(), POLLOUT, 0};
    return ::poll(&pipe, 1, 0) == 1 && (pipe.revents & POLLERR) != 0;
}

} // namespace

TEST(PipeReader, ReadsAllItsPipesWithoutAFailure)
{
    Pipe pipe = Pipe::open();
    PipeReader reader;
    QByteArray bytes;
    reader.add(std::move(pipe.readEnd), [&](QByteArrayView chunk) { bytes.append(chunk); });
    ASSERT_EQ(::write(pipe.writeEnd.number(), "abc", 3), 3);
    pipe.writeEnd.close();
    reader.readToEnd();
    EXPECT_NO_THROW(reader.throwIfFailed());
    EXPECT_EQ(bytes, "abc");
}

TEST(PipeReader, KeepsAFailureAndClosesEveryPipeForTheirWriters)
{
    Pipe pipe = Pipe::open();
    PipeReader reader;
    reader.add(std::move(pipe.readEnd), [](QByteArrayView) {});
    reader.add(folder(), [](QByteArrayView) {});
    EXPECT_FALSE(hasNoReader(pipe.writeEnd));
    reader.readToEnd();
    EXPECT_THROW(reader.throwIfFailed(), std::system_error);
    EXPECT_TRUE(hasNoReader(pipe.writeEnd));
}

} // namespace tonearm
