// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/records/AudioStreamInfo.h"

#include <QWidget>

#include <optional>

class QLabel;

namespace tonearm {

class IconView;

/// What the source's audio is, and what encoding it to FLAC means. Hidden without a source.
class SourceAudioRow : public QWidget
{
    Q_OBJECT

public:
    explicit SourceAudioRow(QWidget *parent = nullptr);

    void setAudio(const std::optional<AudioStreamInfo> &audio);

private:
    IconView *m_badge;
    QLabel *m_summary;
    QLabel *m_note;
};

} // namespace tonearm
