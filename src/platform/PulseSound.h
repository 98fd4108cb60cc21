// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "encoding/PreviewSound.h"
#include "platform/PulseLibrary.h"
#include "platform/WavFile.h"

#include <QByteArray>

#include <atomic>
#include <memory>
#include <optional>
#include <thread>

namespace tonearm {

/// A WAV file played by a sound server. All but the opening happens on a thread of its own.
class PulseSound : public PreviewSound
{
public:
    /// `server` as libpulse writes it; absent for the user's own. A server that can't be reached ends the
    /// sound.
    PulseSound(std::shared_ptr<const PulseLibrary> library, WavFile file, std::optional<QByteArray> server,
               PreviewSounds::EndCallback onEnd);
    ~PulseSound() override;

    void start() override;

private:
    struct Release
    {
        std::shared_ptr<const PulseLibrary> library;

        void operator()(pa_mainloop *loop) const { library->mainloopFree(loop); }

        void operator()(pa_context *context) const;
        void operator()(pa_stream *stream) const;
    };

    template <typename Type> using Owned = std::unique_ptr<Type, Release>;

    void play();
    bool connectToServer();
    bool openStream();
    void supply(std::size_t bytes);
    void drain();

    static void onContextState(pa_context *context, void *sound);
    static void onStreamState(pa_stream *stream, void *sound);
    static void onWritable(pa_stream *stream, std::size_t bytes, void *sound);
    static void onDrained(pa_stream *stream, int isSuccess, void *sound);

    std::shared_ptr<const PulseLibrary> m_library;
    std::optional<QByteArray> m_server;
    PreviewSounds::EndCallback m_onEnd;
    std::atomic<bool> m_isStopping = false;
    Owned<pa_mainloop> m_loop;

    // The thread's own.
    WavFile m_file;
    Owned<pa_context> m_context;
    Owned<pa_stream> m_stream;
    bool m_isOver = false;

    std::thread m_thread;
};

} // namespace tonearm
