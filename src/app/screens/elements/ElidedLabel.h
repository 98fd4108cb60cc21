// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

namespace tonearm {

/// One line of plain text that is shortened with an ellipsis where it doesn't fit, and then has the
/// whole of it as its tooltip. Its text and accessible name are always the whole.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(Qt::TextElideMode mode, QWidget *parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool fits() const;

    Qt::TextElideMode m_mode;
};

} // namespace tonearm
