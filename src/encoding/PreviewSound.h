// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>

#include <functional>
#include <memory>

namespace tonearm {

/// The sound of one file, opened to be played once. Its destruction falls silent, and returns only when
/// no call of its callback is under way and none will follow.
class PreviewSound
{
public:
    PreviewSound() = default;
    virtual ~PreviewSound() = default;
    PreviewSound(const PreviewSound &) = delete;
    PreviewSound &operator=(const PreviewSound &) = delete;

    /// Begins to play. Doesn't block.
    virtual void start() = 0;
};

/// Where sounds come from. The desktop's form loads nothing before the first file.
class PreviewSounds
{
public:
    /// Called once when a sound is over or can't be played on, from any thread.
    using EndCallback = std::function<void()>;

    PreviewSounds() = default;
    virtual ~PreviewSounds() = default;
    PreviewSounds(const PreviewSounds &) = delete;
    PreviewSounds &operator=(const PreviewSounds &) = delete;

    /// Opens a WAV file. Throws at once, a DescribedError or std::system_error, if it can't be played.
    virtual std::unique_ptr<PreviewSound> open(const QUrl &url, EndCallback onEnd) = 0;
};

} // namespace tonearm
