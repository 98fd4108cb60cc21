// SPDX-License-Identifier: GPL-3.0-or-later
// What the user can do with a job's results.
#include "workflow/AppModel.h"

#include "support/Background.h"
#include "support/Cancellation.h"

#include <QFileInfo>

#include <algorithm>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

bool isThere(const QUrl &url)
{
    return QFileInfo::exists(url.toLocalFile());
}

// The first that is there, or else the last.
QUrl firstOnDisk(const QList<QUrl> &candidates)
{
    const auto found = std::find_if(candidates.begin(), candidates.end(), isThere);
    return found == candidates.end() ? candidates.last() : *found;
}

} // namespace

bool AppModel::canRevealOutput() const
{
    return completion.value() || !encodedFiles.value().isEmpty();
}

bool AppModel::hasLogFile() const
{
    return lastLogURL.value() && m_log.isThere();
}

void AppModel::followLog()
{
    const std::optional<QUrl> log = lastLogURL.value();
    m_log.follow(log ? std::optional(log->toLocalFile()) : std::nullopt);
}

void AppModel::lookForLog()
{
    m_log.look();
}

void AppModel::revealLog()
{
    const std::optional<QUrl> log = lastLogURL.value();
    if (!log) {
        revealOutput();
        return;
    }
    m_tasks.start([this, log = *log](std::stop_token stop) -> QCoro::Task<> {
        const auto look = [log] { return isThere(log); };
        const bool isStillThere = co_await inBackground(look);
        throwIfCancelled(stop);
        if (isStillThere)
            m_services.fileViewer.select({log});
        else
            revealOutput();
    });
}

void AppModel::revealOutput()
{
    if (!encodedFiles.value().isEmpty()) {
        m_services.fileViewer.select(encodedFiles.value());
        return;
    }
    QList<QUrl> candidates;
    for (const std::optional<QUrl> &folder :
         {lastOutputFolder.value(), destinationFolder(), outputFolderURL.value()}) {
        if (folder)
            candidates.append(*folder);
    }
    if (candidates.isEmpty())
        return;
    m_tasks.start([this, candidates](std::stop_token stop) -> QCoro::Task<> {
        const auto search = [candidates] { return firstOnDisk(candidates); };
        const QUrl folder = co_await inBackground(search);
        throwIfCancelled(stop);
        m_services.fileViewer.select({folder});
    });
}

QString AppModel::clearButtonTitle() const
{
    return willEject() ? u"Eject"_s : u"Clear"_s;
}

bool AppModel::willEject() const
{
    return isDiscSource() && m_settings.ejectDiscAfterRipping();
}

// The button belongs to the summary, which therefore goes with it; clearInputs() leaves that to its callers.
void AppModel::clearOrEject()
{
    if (const std::optional<DiscInfo> disc = loadedDisc.value(); disc && willEject())
        ejectDisc(*disc);
    clearInputs();
    completion = std::nullopt;
}

} // namespace tonearm
