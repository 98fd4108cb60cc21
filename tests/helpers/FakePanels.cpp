// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/FakePanels.h"

#include <QCoroFuture>

#include <QPromise>

#include <utility>

namespace tonearm::test {

struct FakePanels::Panel
{
    std::optional<QUrl> location;
    QPromise<void> closed;
};

FakePanels::FakePanels() = default;
FakePanels::~FakePanels() = default;

QCoro::Task<std::optional<QUrl>> FakePanels::choose(OpenPanelRequest request, std::stop_token stop)
{
    m_requests.append(std::move(request));
    if (!m_prepared.isEmpty())
        co_return m_prepared.takeFirst();
    const auto panel = std::make_shared<Panel>();
    panel->closed.start();
    m_open.append(panel);
    const std::stop_callback onStop(stop, [panel] { panel->closed.finish(); });
    QFuture<void> closed = panel->closed.future();
    co_await closed;
    m_open.removeOne(panel);
    co_return panel->location;
}

void FakePanels::answer(const std::optional<QUrl> &location)
{
    const std::shared_ptr<Panel> panel = m_open.first();
    panel->location = location;
    panel->closed.finish();
}

} // namespace tonearm::test
