// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/Icons.h"

#include <QLabel>

namespace tonearm {

/// A line of plain text, wrapped where it must be, behind an icon that stands at its first line: a
/// notice, a warning, a summary. Its accessible name is its text.
class IconLabel : public QLabel
{
    Q_OBJECT

public:
    explicit IconLabel(IconName name, Tone tone = Tone::text, QWidget *parent = nullptr);

    void setIcon(IconName name, Tone tone);

    IconName iconName() const { return m_name; }

    Tone iconTone() const { return m_tone; }

    /// Whether the user can mark and copy the text.
    void setSelectable(bool selectable);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    int iconSide() const;
    int roomAbove() const;
    void makeRoom();

    IconName m_name;
    Tone m_tone;
};

} // namespace tonearm
