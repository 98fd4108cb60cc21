// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPushButton>

namespace tonearm {

/// The one button that a section is there for. While it is enabled its ground is in the accent colour,
/// as deep as its text needs; disabled it looks like any other.
class ProminentButton : public QPushButton
{
    Q_OBJECT

public:
    explicit ProminentButton(const QString &text, QWidget *parent = nullptr);

    /// With more room round the text than other buttons have.
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace tonearm
