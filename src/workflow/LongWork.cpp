// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/LongWork.h"

#include <algorithm>

namespace tonearm {

LongWork::LongWork(Desktop &desktop)
    : m_desktop(desktop)
{
}

LongWork::~LongWork()
{
    while (!m_running.isEmpty())
        end(m_running.first().worker);
}

void LongWork::advance(Worker worker, const QString &reason, double fraction)
{
    if (m_running.isEmpty())
        m_desktop.keepAwake(reason);
    const auto work = find(worker);
    if (work == m_running.end())
        m_running.append({worker, fraction});
    else
        work->fraction = fraction;
    if (m_running.first().worker == worker)
        showProgress();
}

void LongWork::end(Worker worker)
{
    const auto work = find(worker);
    if (work == m_running.end())
        return;
    m_running.erase(work);
    showProgress();
    if (m_running.isEmpty())
        m_desktop.letSleep();
}

void LongWork::tell(const WorkResult &result, const WorkWindow &window)
{
    if (!window.isInFront())
        m_desktop.notify(result, window.bringToFront);
}

QList<LongWork::Running>::iterator LongWork::find(Worker worker)
{
    return std::find_if(m_running.begin(), m_running.end(),
                        [worker](const Running &work) { return work.worker == worker; });
}

void LongWork::showProgress()
{
    if (m_running.isEmpty())
        m_desktop.showProgress(std::nullopt);
    else
        m_desktop.showProgress(m_running.first().fraction);
}

} // namespace tonearm
