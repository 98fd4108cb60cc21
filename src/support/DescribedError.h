// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <exception>
#include <optional>

namespace tonearm {

/// A failure that can be told to the user. Its words are part of the product.
class DescribedError : public std::exception
{
public:
    /// What went wrong, as one or more sentences.
    virtual QString description() const = 0;

    /// What the user can do about it, if there is anything to say.
    virtual std::optional<QString> recoverySuggestion() const { return std::nullopt; }

    /// For debuggers and test output only; never shown.
    const char *what() const noexcept override { return "tonearm::DescribedError"; }
};

/// The words for a failure, as they are shown.
struct ErrorWords
{
    QString description;
    std::optional<QString> recoverySuggestion;

    /// Both texts with the separator between them, or the description alone.
    QString joined(const QString &separator) const;

    bool operator==(const ErrorWords &) const = default;
};

/// Words any exception for the user: a DescribedError speaks for itself, a std::system_error is told by
/// the system's own message, any other by what it carries.
ErrorWords describe(const std::exception_ptr &error);

} // namespace tonearm
