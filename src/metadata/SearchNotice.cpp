// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/SearchNotice.h"

#include "support/Cancellation.h"
#include "web/MetadataServiceError.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

MetadataSearchOutcome::Notice noticeAbout(const MetadataServiceError &error, MetadataSource source)
{
    return {
        .source = source,
        .message = ErrorWords{error.description(), error.recoverySuggestion()}.joined(u" "_s),
        .isConfigurationIssue = error == MetadataServiceError::unauthorized(source),
    };
}

} // namespace

std::optional<MetadataSearchOutcome::Notice> noticeOf(const std::exception_ptr &failure,
                                                      MetadataSource source)
{
    try {
        std::rethrow_exception(failure);
    } catch (const CancellationError &) {
        return std::nullopt;
    } catch (const MetadataServiceError &error) {
        return noticeAbout(error, source);
    } catch (...) {
        const QString words = describe(failure).description;
        return noticeAbout(MetadataServiceError::networkFailure(source, words), source);
    }
}

} // namespace tonearm
