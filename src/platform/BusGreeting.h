// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoroTask>

#include <QByteArray>
#include <QString>

#include <optional>
#include <stop_token>

namespace tonearm {

/// The name of the first local socket of a D-Bus address, as the kernel has it: a path, or a zero byte with
/// an abstract name behind it. Nothing if the address has none.
std::optional<QByteArray> localSocketOf(const QString &address);

/// Suspends until a bus has answered a first greeting, or has turned out not to be there; for a bus that is
/// reached otherwise than by a local socket, not at all. Throws CancellationError.
QCoro::Task<> waitForAnswer(QString address, std::stop_token stop);

} // namespace tonearm
