// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/WindowFront.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <utility>

namespace tonearm {

/// A window that is open at most once, and exists only while it is open.
template <typename Window> class SingleWindow
{
public:
    SingleWindow() = default;

    /// `prepare` is called with each new window before it is shown.
    explicit SingleWindow(std::function<void(Window &)> prepare)
        : m_prepare(std::move(prepare))
    {
    }

    ~SingleWindow() { delete m_window; }

    SingleWindow(const SingleWindow &) = delete;
    SingleWindow &operator=(const SingleWindow &) = delete;

    /// Opens the window, made of the arguments, or brings the one that is open to the front.
    template <typename... Arguments> void open(Arguments &&...arguments)
    {
        if (!m_window) {
            m_window = new Window(std::forward<Arguments>(arguments)...);
            m_window->setAttribute(Qt::WA_DeleteOnClose);
            // Of the whole program, the main window alone decides when it ends.
            m_window->setAttribute(Qt::WA_QuitOnClose, false);
            if (m_prepare)
                m_prepare(*m_window);
        }
        bringToFront(*m_window);
    }

    /// Nothing while it is closed.
    Window *window() const { return m_window; }

private:
    std::function<void(Window &)> m_prepare;
    QPointer<Window> m_window;
};

} // namespace tonearm
