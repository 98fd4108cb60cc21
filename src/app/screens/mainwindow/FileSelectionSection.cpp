// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/FileSelectionSection.h"

#include "app/screens/elements/Bind.h"
#include "app/screens/elements/DropWell.h"
#include "app/screens/elements/PathRow.h"
#include "app/screens/elements/Spinner.h"
#include "app/screens/elements/TextStyle.h"
#include "app/screens/mainwindow/SourceAudioRow.h"
#include "support/PathText.h"
#include "workflow/AppModel.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int gap = 8;
constexpr int gapBetweenWells = 12;
constexpr int gapBetweenPaths = 4;

std::optional<QString> pathOf(const std::optional<QUrl> &url)
{
    return url ? std::optional(url->toLocalFile()) : std::nullopt;
}

QWidget *column(QWidget *well, QPushButton *button)
{
    auto *holder = new QWidget;
    auto *layout = new QVBoxLayout(holder);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(gap);
    layout->addWidget(well);
    layout->addWidget(button, 0, Qt::AlignHCenter);
    return holder;
}

} // namespace

FileSelectionSection::FileSelectionSection(AppModel &model, QWidget *parent)
    : SectionBox(1, u"Source File"_s, parent)
    , m_model(model)
{
    auto *wells = new QHBoxLayout;
    wells->setSpacing(gapBetweenWells);
    wells->addWidget(makeInputFileWell(), 1);
    wells->addWidget(makeOutputFolderWell(), 1);
    content()->addLayout(wells);
    addPaths();
    addReadingRow();

    auto *audio = new SourceAudioRow(this);
    bind(
        audio, [&model] { return model.sourceAudio.value(); }, &SourceAudioRow::setAudio);
    content()->addWidget(audio);
}

QWidget *FileSelectionSection::makeInputFileWell()
{
    const auto accept = [this](const QUrl &url) { return m_model.acceptDroppedFile(url); };
    auto *well = new DropWell(u"Input file drop area"_s, accept, this);
    bind(
        well, [this] { return m_model.isDiscSource() ? IconName::disc : IconName::inputFile; },
        &DropWell::setIcon);
    bind(
        well, [this] { return m_model.sourceName().value_or(u"Drag an .mkv file here"_s); },
        &DropWell::setLabel);

    auto *button = new QPushButton(u"Select Input File…"_s);
    connect(button, &QPushButton::clicked, this, [this] { m_model.chooseInputFile(); });
    return column(well, button);
}

QWidget *FileSelectionSection::makeOutputFolderWell()
{
    const auto accept = [this](const QUrl &url) {
        if (!QFileInfo(url.toLocalFile()).isDir())
            return false;
        m_model.outputFolderURL = url;
        return true;
    };
    auto *well = new DropWell(u"Output folder drop area"_s, accept, this);
    well->setIcon(IconName::folder);
    const auto label = [this] {
        const std::optional<QUrl> folder = m_model.outputFolderURL.value();
        return folder ? lastPathComponent(*folder) : u"No output folder"_s;
    };
    bind(well, label, &DropWell::setLabel);
    auto *button = new QPushButton(u"Select Output Folder…"_s);
    connect(button, &QPushButton::clicked, this, [this] { m_model.chooseOutputFolder(); });
    return column(well, button);
}

void FileSelectionSection::addPaths()
{
    auto *paths = new QVBoxLayout;
    paths->setSpacing(gapBetweenPaths);
    auto *input = new PathRow(u"Input File:"_s, this);
    bind(
        input, [this] { return pathOf(m_model.inputFileURL.value()); }, &PathRow::setPath);
    bind(
        input, [this] { return !m_model.isDiscSource(); }, &QWidget::setVisible);
    paths->addWidget(input);

    auto *disc = new PathRow(u"Audio CD:"_s, this);
    bind(
        disc, [this] { return m_model.loadedDisc.value(); },
        [](PathRow *row, const std::optional<DiscInfo> &loaded) {
            row->setPath(loaded ? std::optional(loaded->volumeName) : std::nullopt);
            row->setVisible(loaded.has_value());
        });
    paths->addWidget(disc);

    auto *output = new PathRow(u"Output Folder:"_s, this);
    bind(
        output, [this] { return pathOf(m_model.outputFolderURL.value()); }, &PathRow::setPath);
    paths->addWidget(output);

    auto *saving = new PathRow(u"Saving To:"_s, this);
    saving->addIcon(IconName::folderAdd);
    bind(
        saving, [this] { return m_model.destinationSubpath(); },
        [](PathRow *row, const std::optional<QString> &subpath) {
            row->setPath(subpath);
            row->setVisible(subpath.has_value());
        });
    paths->addWidget(saving);
    content()->addLayout(paths);
}

void FileSelectionSection::addReadingRow()
{
    auto *row = new QWidget(this);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(gap);
    layout->addWidget(new Spinner(row));
    auto *label = new QLabel(u"Reading chapters…"_s, row);
    applyTextStyle(label, TextStyle::secondary);
    layout->addWidget(label, 1);
    bind(
        row, [this] { return m_model.currentState.value() == WorkflowState::Kind::extractingChapters; },
        &QWidget::setVisible);
    content()->addWidget(row);
}

} // namespace tonearm
