// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/aboutwindows/BundledToolsPanel.h"

#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/Bind.h"
#include "app/screens/elements/SelectablePath.h"
#include "app/screens/elements/ShowIfAny.h"
#include "app/screens/elements/Spinner.h"
#include "app/screens/elements/TextStyle.h"
#include "workflow/AppModel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int columnGap = 12;
constexpr int rowGap = 6;
constexpr int wordGap = 8;

bool isChecking(const AppModel &model)
{
    return std::holds_alternative<FFmpegChecking>(model.ffmpegStatus.value());
}

// The version, or where the program lies if it doesn't tell one; nothing unless it is there.
QString ffmpegDetail(const AppModel &model)
{
    const FFmpegStatus status = model.ffmpegStatus.value();
    const auto *installed = std::get_if<FFmpegInstallation>(&status);
    return installed ? installed->versionSummary.value_or(installed->ffmpegURL.toLocalFile()) : QString();
}

QString ffmpegWord(const AppModel &model)
{
    if (isChecking(model))
        return {};
    return isMissing(model.ffmpegStatus.value()) ? u"Not installed"_s : u"Installed"_s;
}

QString paranoiaText(const AppModel &model)
{
    const std::optional<CDParanoiaInstallation> found = model.cdParanoiaInstallation.value();
    return found ? found->versionSummary.value_or(u"Installed"_s) : u"Not available"_s;
}

QLabel *plainLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

BundledToolsPanel::BundledToolsPanel(AppModel &model, QWidget *parent)
    : GroupPanel(u"Bundled Tools"_s, parent)
    , m_model(model)
{
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(columnGap);
    grid->setVerticalSpacing(rowGap);
    grid->setColumnStretch(1, 1);
    content()->addLayout(grid);
    const QString ffmpeg = u"ffmpeg"_s;
    addRow(grid, ffmpeg, makeFFmpeg(ffmpeg));
    addRow(grid, u"cd-paranoia"_s, makeParanoia());
    addRow(grid, u"Audio Format"_s, plainLabel(u"FLAC (via bundled ffmpeg)"_s, this));
}

void BundledToolsPanel::addRow(QGridLayout *grid, const QString &name, QWidget *value)
{
    auto *label = plainLabel(name, this);
    applyTextStyle(label, TextStyle::secondary);
    // Screen readers walk in this order.
    label->stackUnder(value);
    const int row = grid->rowCount();
    grid->addWidget(label, row, 0);
    grid->addWidget(value, row, 1);
}

QWidget *BundledToolsPanel::makeFFmpeg(const QString &name)
{
    auto *place = new QWidget(this);
    auto *word = plainLabel({}, place);
    bind(
        word, [this] { return ffmpegWord(m_model); }, showIfAny);
    auto *detail = new SelectablePath({}, place);
    detail->setAccessibleName(name);
    bind(
        detail, [this] { return ffmpegDetail(m_model); },
        [](SelectablePath *line, const QString &text) {
            line->setPath(text);
            line->setVisible(!text.isEmpty());
        });
    auto *row = new QHBoxLayout(place);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(wordGap);
    row->addWidget(word);
    row->addWidget(detail, 1);
    row->addWidget(makeCheckAgain(place));
    row->addStretch();
    return place;
}

// The button, and in its place an indicator while nothing is known or a check runs.
QWidget *BundledToolsPanel::makeCheckAgain(QWidget *parent)
{
    auto *place = new QWidget(parent);
    auto *button = new QPushButton(u"Check Again"_s, place);
    connect(button, &QPushButton::clicked, this, [this] { m_model.checkFFmpeg(); });
    auto *spinner = new Spinner(place);
    setAccessibleRole(spinner, QAccessible::Indicator);
    spinner->setAccessibleName(u"Checking"_s);
    auto *row = new QHBoxLayout(place);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(button);
    row->addWidget(spinner);
    const auto runs = [this] {
        return isChecking(m_model) ||
               (isMissing(m_model.ffmpegStatus.value()) && m_model.ffmpegCheckTask.value());
    };
    bind(spinner, runs, &Spinner::setVisible);
    bind(
        button, [this, runs] { return isMissing(m_model.ffmpegStatus.value()) && !runs(); },
        &QPushButton::setVisible);
    return place;
}

QLabel *BundledToolsPanel::makeParanoia()
{
    auto *label = plainLabel({}, this);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    bind(
        label, [this] { return paranoiaText(m_model); }, &QLabel::setText);
    return label;
}

} // namespace tonearm
