// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DiscMounts.h"

#include <QCoroFuture>

#include <QCoreApplication>
#include <QScopeGuard>
#include <QStringList>

#include <algorithm>
#include <exception>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

DiscMounts::DiscMounts(QUrl program, QString folder)
    : m_program(std::move(program))
    , m_folder(std::move(folder))
{
}

void DiscMounts::keepOnly(const QList<AudioDisc> &discs)
{
    m_mounts.removeIf([&](const Mount &mount) {
        const bool isGone = !discs.contains(mount.disc);
        if (isGone)
            mount.task.cancel();
        return isGone;
    });
    for (const AudioDisc &disc : discs) {
        if (contains(disc.device))
            continue;
        m_mounts.append({.disc = disc, .task = {}, .end = {}});
        start(m_mounts.last());
    }
}

bool DiscMounts::contains(const QString &device) const
{
    return std::any_of(m_mounts.begin(), m_mounts.end(),
                       [&](const Mount &mount) { return mount.disc.device == device; });
}

QCoro::Task<> DiscMounts::unmount(QString device)
{
    const Mount *mount = find(device);
    if (mount == nullptr)
        co_return;
    mount->task.cancel();
    QFuture<void> end = mount->end;
    co_await end;
}

void DiscMounts::mountAgain(const QString &device)
{
    if (Mount *mount = find(device))
        start(*mount);
}

DiscMounts::Mount *DiscMounts::find(const QString &device)
{
    const auto found = std::find_if(m_mounts.begin(), m_mounts.end(),
                                    [&](const Mount &mount) { return mount.disc.device == device; });
    return found == m_mounts.end() ? nullptr : &*found;
}

void DiscMounts::start(Mount &mount)
{
    const QString device = mount.disc.device;
    const auto end = std::make_shared<QPromise<void>>();
    end->start();
    mount.end = end->future();
    const QFuture<void> previousEnd = std::exchange(m_lastEnds[device], mount.end);
    mount.task = m_tasks.start(
        [=, this](std::stop_token stop) { return serve(device, previousEnd, end, std::move(stop)); });
}

QCoro::Task<> DiscMounts::serve(QString device, QFuture<void> previousEnd,
                                std::shared_ptr<QPromise<void>> end, std::stop_token stop)
{
    const auto atEnd = qScopeGuard([end] { end->finish(); });
    if (previousEnd.isValid())
        co_await previousEnd;
    const QStringList arguments = {u"--parent"_s, QString::number(QCoreApplication::applicationPid()),
                                   u"--in"_s, m_folder, device};
    try {
        co_await m_processRunner.run(m_program, arguments, nullptr, stop);
    } catch (const std::exception &) { // NOLINT(bugprone-empty-catch): this disc isn't offered
    }
}

} // namespace tonearm
