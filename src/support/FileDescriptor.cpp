// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FileDescriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

namespace tonearm {

void FileDescriptor::close()
{
    if (m_number >= 0)
        ::close(std::exchange(m_number, -1));
}

Pipe Pipe::open()
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::system_error(errno, std::generic_category());
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

} // namespace tonearm
