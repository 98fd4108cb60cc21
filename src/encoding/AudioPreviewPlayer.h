// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "encoding/PreviewSound.h"

#include <QObject>
#include <QUrl>

#include <functional>
#include <memory>

namespace tonearm {

/// Plays one preview at a time. For the main thread only, which needs an event loop.
class AudioPreviewPlayer
{
public:
    using FinishCallback = std::function<void()>;

    /// `sounds` has to outlive the player.
    explicit AudioPreviewPlayer(PreviewSounds &sounds);

    /// Starts a file, in place of the one that plays. `onFinish` is called once, from the event loop, when
    /// the file is over or can't be decoded further; not if it is stopped or replaced. Throws what
    /// PreviewSounds::open throws, and then nothing plays.
    void play(const QUrl &url, FinishCallback onFinish);

    /// Falls silent, if anything plays, without calling its `onFinish`.
    void stop();

private:
    // One sound under way. It has no other owner, so that the end of an earlier one, should it still be on
    // its way, finds nobody.
    struct Playback
    {
        std::unique_ptr<PreviewSound> sound;
        FinishCallback onFinish;
    };

    void finish(const std::weak_ptr<Playback> &ended);

    PreviewSounds &m_sounds;
    // Takes the ends of sounds to this thread. Outlives every sound.
    QObject m_context;
    std::shared_ptr<Playback> m_playback;
};

} // namespace tonearm
