// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/WindowSizes.h"

#include <QEvent>
#include <QScreen>
#include <QWidget>

namespace tonearm {

WindowSizes::WindowSizes(const QString &path)
    : m_path(path)
    , m_sizes(readWindowSizes(path))
{
    m_writer.setMaxThreadCount(1);
}

WindowSizes::~WindowSizes()
{
    m_writer.waitForDone();
}

void WindowSizes::follow(QWidget &window, const QString &id)
{
    if (const auto kept = m_sizes.constFind(id); kept != m_sizes.constEnd())
        restore(window, *kept);
    m_ids.insert(&window, id);
    window.installEventFilter(this);
    connect(&window, &QObject::destroyed, this, [this](QObject *gone) { m_ids.remove(gone); });
}

void WindowSizes::restore(QWidget &window, const KeptWindowSize &kept)
{
    const QScreen *screen = window.screen();
    window.resize(screen ? kept.size.boundedTo(screen->availableSize()) : kept.size);
    if (kept.isMaximised)
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

bool WindowSizes::eventFilter(QObject *watched, QEvent *event)
{
    // The desktop's own hiding, of a window that is put away, isn't a close.
    if (event->type() == QEvent::Hide && !event->spontaneous() && watched->isWidgetType())
        keep(*static_cast<QWidget *>(watched), m_ids.value(watched));
    return false;
}

void WindowSizes::keep(const QWidget &window, const QString &id)
{
    const bool isMaximised = window.isMaximized();
    const QSize size = isMaximised ? window.normalGeometry().size() : window.size();
    const KeptWindowSize now{size.isEmpty() ? m_sizes.value(id).size : size, isMaximised};
    if (now.size.isEmpty() || now == m_sizes.value(id))
        return;
    m_sizes.insert(id, now);
    m_writer.start([path = m_path, id, now] { writeWindowSize(path, id, now); });
}

} // namespace tonearm
