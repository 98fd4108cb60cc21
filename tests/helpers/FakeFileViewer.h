// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/FileViewer.h"

namespace tonearm::test {

/// Remembers what it was asked to show.
class FakeFileViewer : public FileViewer
{
public:
    void select(const QList<QUrl> &locations) override { m_selections.append(locations); }

    /// One list for each call.
    const QList<QList<QUrl>> &selections() const { return m_selections; }

private:
    QList<QList<QUrl>> m_selections;
};

} // namespace tonearm::test
