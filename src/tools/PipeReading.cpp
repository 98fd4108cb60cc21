// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PipeReading.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

namespace tonearm {

namespace {

constexpr int ended = -1; // poll passes over an entry with this descriptor

std::vector<pollfd> watched(const std::vector<PipeSource> &sources)
{
    std::vector<pollfd> pipes;
    pipes.reserve(sources.size());
    for (const PipeSource &source : sources)
        pipes.push_back({source.readEnd, POLLIN, 0});
    return pipes;
}

// To be called with errno still set: what has only been put off may be tried again.
void throwUnlessPutOff()
{
    if (errno != EINTR && errno != EAGAIN)
        throw std::system_error(errno, std::generic_category());
}

void readChunk(pollfd &pipe, const PipeSource &source)
{
    constexpr std::size_t chunkBytes = 65536; // a pipe's buffer on Linux
    std::array<char, chunkBytes> buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by read
    const ssize_t count = ::read(pipe.fd, buffer.data(), buffer.size());
    if (count > 0)
        source.onChunk(QByteArrayView(buffer.data(), count));
    else if (count == 0)
        pipe.fd = ended;
    else
        throwUnlessPutOff();
}

} // namespace

void readToEnd(const std::vector<PipeSource> &sources)
{
    std::vector<pollfd> pipes = watched(sources);
    while (std::any_of(pipes.begin(), pipes.end(), [](const pollfd &pipe) { return pipe.fd != ended; })) {
        if (::poll(pipes.data(), pipes.size(), -1) < 0) {
            throwUnlessPutOff();
            continue;
        }
        for (std::size_t index = 0; index < pipes.size(); ++index) {
            if (pipes[index].revents != 0)
                readChunk(pipes[index], sources[index]);
        }
    }
}

} // namespace tonearm
