// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/chapters/ChapterRowViews.h"

#include "app/screens/chapters/ChapterRowView.h"

namespace tonearm {

ChapterRowViews::ChapterRowViews(Make make, Fill fill)
    : m_make(std::move(make))
    , m_fill(std::move(fill))
{
}

ChapterRowView *ChapterRowViews::find(int row) const
{
    const auto found = m_inUse.find(row);
    return found == m_inUse.end() ? nullptr : found->second;
}

ChapterRowView &ChapterRowViews::claim(int row)
{
    if (ChapterRowView *view = find(row))
        return *view;
    ChapterRowView *view = nullptr;
    if (m_spares.empty()) {
        view = m_make();
    } else {
        view = m_spares.back();
        m_spares.pop_back();
    }
    m_fill(*view, row);
    const auto next = m_inUse.upper_bound(row);
    if (next == m_inUse.end())
        view->raise();
    else
        view->stackUnder(next->second);
    m_inUse.emplace(row, view);
    view->show();
    return *view;
}

void ChapterRowViews::release(const std::function<bool(int)> &keep)
{
    std::erase_if(m_inUse, [&](const auto &used) {
        if (keep(used.first))
            return false;
        m_spares.push_back(used.second);
        return true;
    });
}

void ChapterRowViews::hideSpares()
{
    for (ChapterRowView *view : m_spares)
        view->hide();
}

} // namespace tonearm
