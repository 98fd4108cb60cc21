// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/DescribedError.h"

#include <QString>

#include <pulse/pulseaudio.h>

namespace tonearm {

/// The library for sound isn't there.
class PulseLibraryError : public DescribedError
{
public:
    explicit PulseLibraryError(QString loaderMessage);

    QString description() const override;

    /// The dynamic linker's own words.
    QString reason;

    bool operator==(const PulseLibraryError &other) const { return reason == other.reason; }
};

/// The functions of libpulse that a preview needs. The library, which brings a dozen others, is loaded when
/// this object is made and stays for the life of the process.
class PulseLibrary
{
public:
    /// Throws PulseLibraryError.
    explicit PulseLibrary(const QString &name);

    decltype(&pa_mainloop_new) mainloopNew = nullptr;
    decltype(&pa_mainloop_free) mainloopFree = nullptr;
    decltype(&pa_mainloop_get_api) mainloopGetApi = nullptr;
    decltype(&pa_mainloop_iterate) mainloopIterate = nullptr;
    decltype(&pa_mainloop_wakeup) mainloopWakeup = nullptr;

    decltype(&pa_context_new) contextNew = nullptr;
    decltype(&pa_context_connect) contextConnect = nullptr;
    decltype(&pa_context_disconnect) contextDisconnect = nullptr;
    decltype(&pa_context_get_state) contextGetState = nullptr;
    decltype(&pa_context_set_state_callback) contextSetStateCallback = nullptr;
    decltype(&pa_context_unref) contextUnref = nullptr;

    decltype(&pa_stream_new) streamNew = nullptr;
    decltype(&pa_stream_connect_playback) streamConnectPlayback = nullptr;
    decltype(&pa_stream_disconnect) streamDisconnect = nullptr;
    decltype(&pa_stream_drain) streamDrain = nullptr;
    decltype(&pa_stream_get_state) streamGetState = nullptr;
    decltype(&pa_stream_set_state_callback) streamSetStateCallback = nullptr;
    decltype(&pa_stream_set_write_callback) streamSetWriteCallback = nullptr;
    decltype(&pa_stream_unref) streamUnref = nullptr;
    decltype(&pa_stream_write) streamWrite = nullptr;

    decltype(&pa_operation_unref) operationUnref = nullptr;
};

} // namespace tonearm
