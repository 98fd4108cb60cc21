// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/FFmpegBanner.h"

#include "app/screens/elements/Announcement.h"
#include "app/screens/elements/Bind.h"
#include "app/screens/elements/IconLabel.h"
#include "app/screens/elements/Spinner.h"
#include "app/screens/elements/TextStyle.h"
#include "workflow/AppModel.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// What to do about missing tools, or where the tools are.
QString explanationOf(const AppModel &model)
{
    const FFmpegStatus status = model.ffmpegStatus.value();
    if (const auto *missing = std::get_if<FFmpegMissing>(&status))
        return missing->text;
    if (const auto *installed = std::get_if<FFmpegInstallation>(&status))
        return installed->displayLine();
    return {};
}

} // namespace

FFmpegBanner::FFmpegBanner(AppModel &model, QWidget *parent)
    : Banner({.tone = Tone::warning}, parent)
    , m_model(model)
    , m_title(new IconLabel(IconName::warning, Tone::warning))
{
    auto *row = new QHBoxLayout;
    row->addWidget(makeText(), 1);
    row->addWidget(makeCheckAgain());
    content()->addLayout(row);
    bind(
        this, [this] { return message(); }, &FFmpegBanner::showMessage);
}

FFmpegBanner::Message FFmpegBanner::message() const
{
    if (isMissing(m_model.ffmpegStatus.value()))
        return Message::missing;
    return m_model.didJustFindFFmpeg.value() ? Message::found : Message::none;
}

// What leaves keeps its words until it is gone.
void FFmpegBanner::showMessage(Message message)
{
    if (message == Message::none) {
        setShown(false);
        return;
    }
    const bool isFound = message == Message::found;
    const Tone tone = isFound ? Tone::success : Tone::warning;
    setTone(tone);
    m_title->setIcon(isFound ? IconName::success : IconName::warning, tone);
    m_title->setText(isFound ? u"Audio tools are ready"_s : u"Tonearm's audio tools are missing"_s);
    m_title->setAccessibleName(m_title->text());
    announce(m_title);
    setShown(true);
}

QWidget *FFmpegBanner::makeText()
{
    auto *text = new QWidget;
    applyTextStyle(m_title, TextStyle::emphasised);
    makeAnnouncer(m_title);

    auto *explanation = new QLabel(text);
    explanation->setWordWrap(true);
    explanation->setTextFormat(Qt::PlainText);
    applyTextStyle(explanation, TextStyle::smallSecondary);
    bind(
        explanation, [this] { return explanationOf(m_model); }, &QLabel::setText);

    auto *column = new QVBoxLayout(text);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(m_title);
    column->addWidget(explanation);
    return text;
}

// The button, and in its place an indicator while a check runs.
QWidget *FFmpegBanner::makeCheckAgain()
{
    auto *place = new QWidget;
    auto *button = new QPushButton(u"Check Again"_s, place);
    connect(button, &QPushButton::clicked, this, [this] { m_model.checkFFmpeg(); });
    auto *spinner = new Spinner(place);
    auto *row = new QHBoxLayout(place);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(button);
    row->addWidget(spinner);
    bind(
        place,
        [this] {
            return std::pair(isMissing(m_model.ffmpegStatus.value()),
                             m_model.ffmpegCheckTask.value().has_value());
        },
        [button, spinner](std::pair<bool, bool> state) {
            const auto [missing, checking] = state;
            button->setVisible(missing && !checking);
            spinner->setVisible(missing && checking);
        });
    return place;
}

} // namespace tonearm
