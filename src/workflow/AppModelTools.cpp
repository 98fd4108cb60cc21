// SPDX-License-Identifier: GPL-3.0-or-later
// Whether the audio tools are there.
#include "workflow/AppModel.h"

#include "support/InterruptibleSleep.h"

#include <exception>

namespace tonearm {

using namespace Qt::StringLiterals;

void AppModel::checkFFmpeg()
{
    if (isFFmpegInstalled() || ffmpegCheckTask.value())
        return;
    ffmpegCheckTask = m_tasks.start([this](std::stop_token stop) { return detectFFmpeg(stop); });
}

QCoro::Task<> AppModel::detectFFmpeg(std::stop_token stop)
{
    try {
        const FFmpegInstallation found =
            co_await FFmpegInstallation::detect(m_services.tools, m_services.processRunner, stop);
        const bool wasMissing = std::holds_alternative<FFmpegMissing>(ffmpegStatus.value());
        ffmpegStatus = found;
        if (wasMissing)
            announceFind();
    } catch (...) {
        ffmpegStatus = FFmpegMissing{describe(std::current_exception()).joined(u" "_s)};
        didJustFindFFmpeg = false;
    }
    ffmpegCheckTask = std::nullopt;
}

void AppModel::announceFind()
{
    if (const std::optional<TaskHandle> earlier = confirmationTask.value())
        earlier->cancel();
    didJustFindFFmpeg = true;
    confirmationTask = m_tasks.start([this](std::stop_token stop) -> QCoro::Task<> {
        co_await interruptibleSleep(m_services.announcementTime, stop);
        didJustFindFFmpeg = false;
    });
}

void AppModel::checkCDParanoia()
{
    if (cdParanoiaInstallation.value() || paranoiaCheckTask.value())
        return;
    paranoiaCheckTask = m_tasks.start([this](std::stop_token stop) -> QCoro::Task<> {
        try {
            CDParanoiaInstallation found;
            found.executableURL = CDParanoiaInstallation::locate(m_services.tools);
            found.versionSummary = co_await CDParanoiaInstallation::versionSummaryOf(
                found.executableURL, m_services.processRunner, stop);
            cdParanoiaInstallation = found;
        } catch (const CDParanoiaNotFoundError &) {
            cdParanoiaInstallation = std::nullopt;
        }
        paranoiaCheckTask = std::nullopt;
    });
}

} // namespace tonearm
