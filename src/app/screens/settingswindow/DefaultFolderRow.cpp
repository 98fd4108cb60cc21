// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/settingswindow/DefaultFolderRow.h"

#include "app/screens/elements/Bind.h"
#include "app/screens/elements/SelectablePath.h"
#include "app/settings/AppSettings.h"
#include "support/Cancellation.h"
#include "workflow/Panels.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace tonearm {

using namespace Qt::StringLiterals;

DefaultFolderRow::DefaultFolderRow(const QString &accessibleName, AppSettings &settings, Panels &panels,
                                   QWidget *parent)
    : QWidget(parent)
    , m_settings(settings)
    , m_panels(panels)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(makePath(accessibleName), 1);
    auto *chooseButton = new QPushButton(u"Choose…"_s, this);
    connect(chooseButton, &QPushButton::clicked, this, &DefaultFolderRow::choose);
    row->addWidget(chooseButton);
    auto *clearButton = new QPushButton(u"Clear"_s, this);
    connect(clearButton, &QPushButton::clicked, this,
            [&settings] { settings.setDefaultOutputDirectory(std::nullopt); });
    bind(
        clearButton, [&settings] { return settings.defaultOutputDirectory().has_value(); },
        &QPushButton::setVisible);
    row->addWidget(clearButton);
}

QWidget *DefaultFolderRow::makePath(const QString &accessibleName)
{
    auto *path = new SelectablePath(u"None — chosen per job"_s, this);
    path->setAccessibleName(accessibleName);
    bind(
        path,
        [this] {
            const std::optional<QUrl> folder = m_settings.defaultOutputDirectory();
            return folder ? std::optional(folder->toLocalFile()) : std::nullopt;
        },
        &SelectablePath::setPath);
    return path;
}

void DefaultFolderRow::choose()
{
    if (m_isAsking)
        return;
    m_isAsking = true;
    m_tasks.start([this](std::stop_token stop) { return askForFolder(stop); });
}

QCoro::Task<> DefaultFolderRow::askForFolder(std::stop_token stop)
{
    OpenPanelRequest request;
    request.title = u"Choose Default Output Folder"_s;
    request.prompt = u"Choose"_s;
    request.target = OpenPanelRequest::Target::folder;
    request.startFolder = m_settings.defaultOutputDirectory();
    const std::optional<QUrl> chosen = co_await m_panels.choose(request, stop);
    // The window may have gone, and with it this row.
    throwIfCancelled(stop);
    m_isAsking = false;
    if (chosen)
        m_settings.setDefaultOutputDirectory(chosen);
}

} // namespace tonearm
