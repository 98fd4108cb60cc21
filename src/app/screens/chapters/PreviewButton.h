// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/chapters/ChapterTableRow.h"

#include <QToolButton>

namespace tonearm {

class Spinner;

/// Plays the start of a chapter, or stops it. While that is being prepared it shows a spinner.
class PreviewButton : public QToolButton
{
    Q_OBJECT

public:
    explicit PreviewButton(QWidget *parent);

    /// No wider than its column.
    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

    /// `number` is the chapter's, from 1, `seconds` how much would be played.
    void setState(ChapterPreviewState state, int number, int seconds);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    Spinner *m_spinner;
};

} // namespace tonearm
