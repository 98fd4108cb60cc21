// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "web/MetadataServiceError.h"

#include <QNetworkReply>
#include <QString>

#include <optional>

namespace tonearm {

/// How a transfer ended, apart from what it brought.
struct TransferOutcome
{
    QNetworkReply::NetworkError error = QNetworkReply::NoError;
    /// The network's own words for the error.
    QString errorText = {};
    /// The reply's status; absent if none came or if this isn't HTTP.
    std::optional<int> status = {};
    /// Whether the connection ended before the reply did, seen or not seen by the network.
    bool isCutOff = false;
    /// The most that was to be taken, and whether the reply brought more.
    qint64 bodyLimit = 0;
    bool isTooLarge = false;
    /// Whether what it brought came packed and can't be unpacked.
    bool isDamaged = false;
};

/// What the outcome is told as; nothing if the reply is good. A transfer that broke is told as such
/// whatever its status, since a part of a reply is no reply.
std::optional<MetadataServiceError> failureOf(const TransferOutcome &outcome, MetadataSource source);

} // namespace tonearm
