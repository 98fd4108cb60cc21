// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBasicTimer>
#include <QWidget>

namespace tonearm {

/// A small square that shows that work goes on. It turns only while it can be seen, and where the
/// desktop asks for no animations it stands still.
class Spinner : public QWidget
{
    Q_OBJECT

public:
    static constexpr int standardSide = 16;

    explicit Spinner(QWidget *parent = nullptr, int side = standardSide);

    bool isTurning() const { return m_timer.isActive(); }

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QBasicTimer m_timer;
    int m_step = 0;
};

} // namespace tonearm
