// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

namespace tonearm {

/// Owns a file descriptor and closes it.
class FileDescriptor
{
public:
    FileDescriptor() = default;

    explicit FileDescriptor(int number)
        : m_number(number)
    {
    }

    ~FileDescriptor() { close(); }

    FileDescriptor(FileDescriptor &&other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    {
    }

    FileDescriptor &operator=(FileDescriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }

    void close();

    int number() const { return m_number; }

private:
    int m_number = -1;
};

/// A pipe whose ends no child inherits by accident.
struct Pipe
{
    FileDescriptor readEnd;
    FileDescriptor writeEnd;

    /// Throws std::system_error.
    static Pipe open();
};

} // namespace tonearm
