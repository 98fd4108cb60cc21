// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Borrowed.h"

#include "support/FileDescriptor.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <unistd.h>

namespace tonearm::test {

BorrowedStandardInput::BorrowedStandardInput(const QString &path)
    : m_original(::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1))
{
    const FileDescriptor file(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC));
    EXPECT_EQ(::dup2(file.number(), STDIN_FILENO), STDIN_FILENO);
}

BorrowedStandardInput::~BorrowedStandardInput()
{
    const FileDescriptor original(m_original);
    EXPECT_EQ(::dup2(m_original, STDIN_FILENO), STDIN_FILENO);
}

BorrowedVariable::BorrowedVariable(const char *name, const QByteArray &value)
    : m_name(name)
    , m_original(qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name)) : std::nullopt)
{
    EXPECT_TRUE(qputenv(name, value));
}

BorrowedVariable::~BorrowedVariable()
{
    EXPECT_TRUE(m_original ? qputenv(m_name, *m_original) : qunsetenv(m_name));
}

BorrowedWorkingDirectory::BorrowedWorkingDirectory(const QString &path)
    : m_original(QDir::currentPath())
{
    EXPECT_TRUE(QDir::setCurrent(path));
}

BorrowedWorkingDirectory::~BorrowedWorkingDirectory()
{
    EXPECT_TRUE(QDir::setCurrent(m_original));
}

BorrowedSignals::BorrowedSignals(int ignored, int blocked)
    : m_ignored(ignored)
{
    struct sigaction ignore = {};
    ignore.sa_handler = SIG_IGN;
    EXPECT_EQ(::sigaction(ignored, &ignore, &m_originalAction), 0);
    sigset_t mask;
    sigemptyset(&mask);
    sigaddset(&mask, blocked);
    EXPECT_EQ(::pthread_sigmask(SIG_BLOCK, &mask, &m_originalMask), 0);
}

BorrowedSignals::~BorrowedSignals()
{
    EXPECT_EQ(::sigaction(m_ignored, &m_originalAction, nullptr), 0);
    EXPECT_EQ(::pthread_sigmask(SIG_SETMASK, &m_originalMask, nullptr), 0);
}

} // namespace tonearm::test
