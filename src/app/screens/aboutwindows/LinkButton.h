// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>

namespace tonearm {

/// A text that leads somewhere: by a click, or by keyboard with Space or Return.
class LinkButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit LinkButton(const QString &text, QWidget *parent = nullptr);

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
};

} // namespace tonearm
