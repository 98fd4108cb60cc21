// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/chapters/PreviewButton.h"

#include "app/screens/elements/Icons.h"
#include "app/screens/elements/Spinner.h"

namespace tonearm {

using namespace Qt::StringLiterals;

PreviewButton::PreviewButton(QWidget *parent)
    : QToolButton(parent)
    , m_spinner(new Spinner(this))
{
    setAutoRaise(true);
    // A row is one stop of the keyboard, which has a key of its own for the preview.
    setFocusPolicy(Qt::NoFocus);
    m_spinner->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_spinner->hide();
}

QSize PreviewButton::sizeHint() const
{
    constexpr int side = 20;
    return {side, side};
}

void PreviewButton::setState(ChapterPreviewState state, int number, int seconds)
{
    const bool isPlaying = state == ChapterPreviewState::playing;
    const bool isPreparing = state == ChapterPreviewState::preparing;
    setIcon(isPreparing ? QIcon()
                        : tonearm::icon(isPlaying ? IconName::stop : IconName::play,
                                        isPlaying ? Tone::information : Tone::text));
    setToolTip(isPlaying ? u"Stop"_s : u"Play the first %1 seconds of this chapter"_s.arg(seconds));
    setAccessibleName(isPlaying ? u"Stop preview of chapter %1"_s.arg(number)
                                : u"Preview chapter %1"_s.arg(number));
    m_spinner->setVisible(isPreparing);
}

void PreviewButton::resizeEvent(QResizeEvent *event)
{
    QToolButton::resizeEvent(event);
    m_spinner->move((width() - m_spinner->width()) / 2, (height() - m_spinner->height()) / 2);
}

} // namespace tonearm
