// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/Icons.h"

#include <QWidget>

namespace tonearm {

/// An icon by itself, in a square of a fixed size. It follows the palette and the scale factor. Hidden
/// from screen readers, unless it is given a role and a name.
class IconView : public QWidget
{
    Q_OBJECT

public:
    /// How large an icon beside a line of text is.
    static constexpr int besideText = 16;

    IconView(IconName name, Tone tone, QWidget *parent, int side = besideText);

    void setIcon(IconName name, Tone tone);

    IconName iconName() const { return m_name; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    IconName m_name;
    Tone m_tone;
};

} // namespace tonearm
