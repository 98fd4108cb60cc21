// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <vector>

namespace tonearm {

class ChapterRowView;

/// The views of those rows that are in use. A view that its row no longer needs is given to the next
/// row that needs one, so there are never more than were in use at once. Among the children of their
/// parent the views in use stand in the order of their rows, which is the order in which screen readers
/// walk. The views belong to their parent.
class ChapterRowViews
{
public:
    using Make = std::function<ChapterRowView *()>;
    using Fill = std::function<void(ChapterRowView &, int)>;

    /// `make` gives a new view, `fill` makes a view show a row.
    ChapterRowViews(Make make, Fill fill);

    /// The view of a row; null if that has none.
    ChapterRowView *find(int row) const;

    /// The view of a row, given to it now unless it had one.
    ChapterRowView &claim(int row);

    /// Takes the views from all rows but those for which `keep` holds.
    void release(const std::function<bool(int)> &keep);

    /// Hides the views that no row claimed since they were released.
    void hideSpares();

    /// All views in use, by row.
    const std::map<int, ChapterRowView *> &inUse() const { return m_inUse; }

private:
    Make m_make;
    Fill m_fill;
    std::map<int, ChapterRowView *> m_inUse;
    std::vector<ChapterRowView *> m_spares;
};

} // namespace tonearm
