// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/AfterFirstFrame.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <utility>

namespace tonearm {

namespace {

class FirstPaint final : public QObject
{
public:
    FirstPaint(QWidget *window, std::function<void()> action)
        : QObject(window)
        , m_action(std::move(action))
    {
        window->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            watched->removeEventFilter(this);
            // The rest of the window is painted now, and then brought to the screen.
            QTimer::singleShot(0, this, &FirstPaint::act);
        }
        return false;
    }

private:
    void act()
    {
        m_action();
        deleteLater();
    }

    std::function<void()> m_action;
};

} // namespace

void afterFirstFrame(QWidget *window, std::function<void()> action)
{
    new FirstPaint(window, std::move(action));
}

} // namespace tonearm
