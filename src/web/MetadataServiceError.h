// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/DescribedError.h"
#include "workflow/records/MetadataSource.h"

#include <QString>

#include <optional>

namespace tonearm {

/// Why an online service gave no answer that can be used.
class MetadataServiceError : public DescribedError
{
public:
    enum class Kind {
        invalidQuery,
        unauthorized,
        rateLimited,
        httpFailure,
        malformedResponse,
        networkFailure,
        releaseNotFound
    };

    /// `text` is what couldn't become part of a URL.
    static MetadataServiceError invalidQuery(QString text);
    static MetadataServiceError unauthorized(MetadataSource source);
    static MetadataServiceError rateLimited(MetadataSource source);
    static MetadataServiceError httpFailure(MetadataSource source, int statusCode);
    /// `detail` is a sentence of its own.
    static MetadataServiceError malformedResponse(MetadataSource source, QString detail);
    /// `detail` is a sentence of its own.
    static MetadataServiceError networkFailure(MetadataSource source, QString detail);
    static MetadataServiceError releaseNotFound(MetadataSource source, QString id);

    QString description() const override;
    std::optional<QString> recoverySuggestion() const override;

    Kind kind;
    /// Absent for invalidQuery only.
    std::optional<MetadataSource> source;
    /// The query's text, the detail or the release's ID; empty for the other kinds.
    QString text;
    /// For httpFailure only, else 0.
    int statusCode;

    /// Whether the service answered that it hasn't got what was asked for.
    bool saysNotFound() const;

    bool operator==(const MetadataServiceError &other) const;

private:
    MetadataServiceError(Kind errorKind, std::optional<MetadataSource> service, QString words, int status);
};

} // namespace tonearm
