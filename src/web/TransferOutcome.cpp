// SPDX-License-Identifier: GPL-3.0-or-later
#include "web/TransferOutcome.h"

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// Whether the error only repeats the status, and the transfer itself ended well.
bool isStatusError(const TransferOutcome &outcome)
{
    if (outcome.status.value_or(0) < 400)
        return false;
    // All errors from this one on concern the contents or the protocol, those before it the network.
    return outcome.error >= QNetworkReply::ContentAccessDenied ||
           outcome.error == QNetworkReply::ProxyAuthenticationRequiredError;
}

QString sentence(const QString &text)
{
    return text.endsWith(u'.') ? text : QString(text + u'.');
}

QString networkDetail(const TransferOutcome &outcome)
{
    switch (outcome.error) {
    case QNetworkReply::OperationCanceledError: // what a timeout makes of a transfer
    case QNetworkReply::TimeoutError:
        return u"The request timed out."_s;
    default:
        return sentence(outcome.errorText);
    }
}

std::optional<MetadataServiceError> statusFailure(int status, MetadataSource source)
{
    if (status >= 200 && status <= 299)
        return std::nullopt;
    switch (status) {
    case 401:
    case 403:
        return MetadataServiceError::unauthorized(source);
    case 429:
    case 503:
        return MetadataServiceError::rateLimited(source);
    default:
        return MetadataServiceError::httpFailure(source, status);
    }
}

} // namespace

std::optional<MetadataServiceError> failureOf(const TransferOutcome &outcome, MetadataSource source)
{
    if (outcome.error != QNetworkReply::NoError && !isStatusError(outcome))
        return MetadataServiceError::networkFailure(source, networkDetail(outcome));
    if (outcome.isCutOff)
        return MetadataServiceError::networkFailure(source, u"Connection closed."_s);
    if (!outcome.status)
        return MetadataServiceError::malformedResponse(source, u"The reply wasn't an HTTP response."_s);
    if (const auto failure = statusFailure(*outcome.status, source))
        return failure;
    if (outcome.isDamaged)
        return MetadataServiceError::networkFailure(source, u"The reply couldn't be unpacked."_s);
    if (outcome.isTooLarge) {
        const QString megabytes = QString::number(static_cast<double>(outcome.bodyLimit) / 1e6);
        return MetadataServiceError::networkFailure(source,
                                                    u"The reply is larger than %1 MB."_s.arg(megabytes));
    }
    return std::nullopt;
}

} // namespace tonearm
