// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QLocale>

#include <string>

namespace tonearm::test {

/// The machine's time zone, for the life of this object. A POSIX zone such as "TST-3" (three hours east
/// of Greenwich) needs no zone database.
class TimeZone
{
public:
    explicit TimeZone(const QByteArray &zone);
    ~TimeZone();
    TimeZone(const TimeZone &) = delete;
    TimeZone &operator=(const TimeZone &) = delete;

private:
    QByteArray m_before;
    bool m_wasSet;
};

/// The locale of Qt, and of the C library where the machine has it, for the life of this object.
class Locale
{
public:
    /// `name` as in "de_DE".
    explicit Locale(const QByteArray &name);
    ~Locale();
    Locale(const Locale &) = delete;
    Locale &operator=(const Locale &) = delete;

private:
    QLocale m_before;
    std::string m_libraryBefore;
};

} // namespace tonearm::test
