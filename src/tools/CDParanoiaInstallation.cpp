// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/CDParanoiaInstallation.h"

#include "tools/VersionText.h"

namespace tonearm {

using namespace Qt::StringLiterals;

QString CDParanoiaNotFoundError::description() const
{
    return u"cd-paranoia could not be found."_s;
}

std::optional<QString> CDParanoiaNotFoundError::recoverySuggestion() const
{
    return u"cd-paranoia ships inside Tonearm, so this copy of the app looks damaged. Replacing it with a fresh "
           u"download should restore secure ripping."_s;
}

QUrl CDParanoiaInstallation::locate(const ToolLocation &tools)
{
    try {
        return tools.toolURL(u"cd-paranoia"_s);
    } catch (const FFmpegNotFoundError &) {
        throw CDParanoiaNotFoundError();
    }
}

bool CDParanoiaInstallation::isAvailable(const ToolLocation &tools)
{
    try {
        locate(tools);
        return true;
    } catch (const CDParanoiaNotFoundError &) {
        return false;
    }
}

QCoro::Task<std::optional<QString>> CDParanoiaInstallation::versionSummaryOf(QUrl executableURL,
                                                                             ProcessRunner processRunner,
                                                                             std::stop_token stop)
{
    try {
        const QStringList arguments{u"--version"_s};
        const ProcessRunner::LineCallback noLines;
        const ProcessRunner::RunResult result =
            co_await processRunner.run(executableURL, arguments, noLines, stop);
        co_return cdParanoiaVersionSummary(result.stdoutBytes + result.stderrBytes);
    } catch (...) {
        co_return std::nullopt;
    }
}

} // namespace tonearm
