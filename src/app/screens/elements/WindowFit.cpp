// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/WindowFit.h"

#include <QEvent>
#include <QLayout>
#include <QWidget>

#include <algorithm>

namespace tonearm {

namespace {

class Fitter final : public QObject
{
public:
    Fitter(QWidget *window, int width)
        : QObject(window)
        , m_window(window)
        , m_width(width)
    {
        window->installEventFilter(this);
        fit();
    }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show)
            fit();
        return false;
    }

private:
    void fit()
    {
        QLayout *layout = m_window->layout();
        const int width = std::max(m_width, layout->totalMinimumSize().width());
        const int height = layout->hasHeightForWidth() ? layout->totalHeightForWidth(width)
                                                       : layout->totalSizeHint().height();
        m_window->setFixedSize(width, height);
    }

    QWidget *m_window;
    int m_width;
};

} // namespace

void keepFitted(QWidget *window, int width)
{
    // Else the layout would set the window's smallest size itself, by what it needs unwrapped.
    window->layout()->setSizeConstraint(QLayout::SetNoConstraint);
    new Fitter(window, width);
}

} // namespace tonearm
