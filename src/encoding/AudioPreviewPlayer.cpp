// SPDX-License-Identifier: GPL-3.0-or-later
#include "encoding/AudioPreviewPlayer.h"

#include <QMetaObject>

#include <utility>

namespace tonearm {

AudioPreviewPlayer::AudioPreviewPlayer(PreviewSounds &sounds)
    : m_sounds(sounds)
{
}

void AudioPreviewPlayer::play(const QUrl &url, FinishCallback onFinish)
{
    stop();
    const auto playback = std::make_shared<Playback>();
    const auto onEnd = [this, ended = std::weak_ptr(playback)] {
        QMetaObject::invokeMethod(
            &m_context, [this, ended] { finish(ended); }, Qt::QueuedConnection);
    };
    playback->sound = m_sounds.open(url, onEnd);
    playback->onFinish = std::move(onFinish);
    playback->sound->start();
    m_playback = playback;
}

void AudioPreviewPlayer::stop()
{
    m_playback.reset();
}

void AudioPreviewPlayer::finish(const std::weak_ptr<Playback> &ended)
{
    // A sound that has been stopped or replaced since is gone, and its end means nothing.
    if (ended.expired())
        return;
    const FinishCallback onFinish = std::move(m_playback->onFinish);
    m_playback.reset();
    if (onFinish)
        onFinish();
}

} // namespace tonearm
