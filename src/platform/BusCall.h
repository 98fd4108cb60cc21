// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <functional>

namespace tonearm {

/// Makes a call on the bus and returns at once. `onReply` is called from the event loop with the answer or
/// with an error, one of silence included, at most once; it isn't when the application ends before.
void callBus(const QDBusConnection &bus, const QDBusMessage &request,
             std::function<void(const QDBusMessage &)> onReply);

} // namespace tonearm
