// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/MetadataEditorModel.h"

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

MetadataEditorModel::MetadataEditorModel(AppSettings &settings, Services services)
    : sortOrder(defaultRowOrder())
    , m_settings(settings)
    , m_services(std::move(services))
{
}

MetadataEditorModel::~MetadataEditorModel()
{
    m_folder.request_stop();
}

bool MetadataEditorModel::isTaskOf(const std::stop_token &stop, const std::optional<TaskHandle> &task)
{
    return task && task->stopToken() == stop;
}

void MetadataEditorModel::cancel(const std::optional<TaskHandle> &task)
{
    if (task)
        task->cancel();
}

void MetadataEditorModel::checkTools()
{
    try {
        for (const QString &name : {u"ffmpeg"_s, u"ffprobe"_s})
            static_cast<void>(m_services.tools.toolURL(name));
        ffmpegProblem = std::nullopt;
    } catch (...) {
        ffmpegProblem = describe(std::current_exception()).joined(u" "_s);
    }
}

} // namespace tonearm
