// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <csignal>
#include <optional>

namespace tonearm::test {

/// Puts a file in the place of this process's standard input, for a while.
class BorrowedStandardInput
{
public:
    explicit BorrowedStandardInput(const QString &path);
    ~BorrowedStandardInput();
    BorrowedStandardInput(const BorrowedStandardInput &) = delete;
    BorrowedStandardInput &operator=(const BorrowedStandardInput &) = delete;

private:
    int m_original;
};

/// Sets an environment variable, for a while.
class BorrowedVariable
{
public:
    BorrowedVariable(const char *name, const QByteArray &value);
    ~BorrowedVariable();
    BorrowedVariable(const BorrowedVariable &) = delete;
    BorrowedVariable &operator=(const BorrowedVariable &) = delete;

private:
    const char *m_name;
    std::optional<QByteArray> m_original;
};

/// Works in another folder, for a while.
class BorrowedWorkingDirectory
{
public:
    explicit BorrowedWorkingDirectory(const QString &path);
    ~BorrowedWorkingDirectory();
    BorrowedWorkingDirectory(const BorrowedWorkingDirectory &) = delete;
    BorrowedWorkingDirectory &operator=(const BorrowedWorkingDirectory &) = delete;

private:
    QString m_original;
};

/// Ignores a signal and blocks another on this thread, for a while.
class BorrowedSignals
{
public:
    BorrowedSignals(int ignored, int blocked);
    ~BorrowedSignals();
    BorrowedSignals(const BorrowedSignals &) = delete;
    BorrowedSignals &operator=(const BorrowedSignals &) = delete;

private:
    int m_ignored;
    struct sigaction m_originalAction = {};
    sigset_t m_originalMask = {};
};

} // namespace tonearm::test
