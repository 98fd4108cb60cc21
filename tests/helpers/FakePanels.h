// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/Panels.h"

#include <QList>

#include <memory>

namespace tonearm::test {

/// Panels that a test answers, beforehand or while they are open.
class FakePanels : public Panels
{
public:
    FakePanels();
    ~FakePanels() override;

    QCoro::Task<std::optional<QUrl>> choose(OpenPanelRequest request, std::stop_token stop) override;

    /// Has the next panel answered as soon as it opens; nothing dismisses it.
    void prepareAnswer(const std::optional<QUrl> &location) { m_prepared.append(location); }

    /// Answers the panel that has been open longest; there has to be one.
    void answer(const std::optional<QUrl> &location);

    /// How many panels wait for an answer.
    qsizetype openCount() const { return m_open.size(); }

    /// Every panel that was asked for.
    const QList<OpenPanelRequest> &requests() const { return m_requests; }

private:
    struct Panel;

    QList<OpenPanelRequest> m_requests;
    QList<std::optional<QUrl>> m_prepared;
    QList<std::shared_ptr<Panel>> m_open;
};

} // namespace tonearm::test
