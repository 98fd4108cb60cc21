// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editorwindow/FolderBar.h"

#include "app/screens/elements/Bind.h"
#include "app/screens/elements/ProgressBar.h"
#include "app/screens/elements/SelectablePath.h"
#include "app/screens/elements/TextStyle.h"
#include "support/PathText.h"
#include "tageditor/MetadataEditorModel.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int gap = 12;
constexpr int gapInProgress = 8;
constexpr int barWidth = 120;

} // namespace

FolderBar::FolderBar(MetadataEditorModel &model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_choose(new QPushButton(u"Choose Folder…"_s, this))
{
    connect(m_choose, &QPushButton::clicked, this, [&model] { model.chooseFolder(); });
    auto *path = new SelectablePath(u"No folder chosen"_s, this);
    path->setFont(fontOf(TextStyle::callout, font()));
    path->setAccessibleName(u"Folder"_s);
    bind(
        path,
        [&model] {
            const std::optional<QUrl> folder = model.folderURL.value();
            return folder ? std::optional(plainPath(*folder)) : std::nullopt;
        },
        &SelectablePath::setPath);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(m_choose);
    row->addWidget(path, 1);
    row->addWidget(makeProgress());
}

QWidget *FolderBar::makeProgress()
{
    auto *progress = new QWidget(this);
    auto *bar = makeProgressBar(
        u"Reading progress"_s, [this] { return m_model.loadProgress.value(); }, progress);
    bar->setFixedWidth(barWidth);
    auto *stop = new QPushButton(u"Stop"_s, progress);
    connect(stop, &QPushButton::clicked, this, [this] { m_model.stopLoading(); });
    auto *row = new QHBoxLayout(progress);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gapInProgress);
    row->addWidget(bar);
    row->addWidget(stop);
    bind(
        progress, [this] { return m_model.isLoading.value(); }, &QWidget::setVisible);
    return progress;
}

} // namespace tonearm
