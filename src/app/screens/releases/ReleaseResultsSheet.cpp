// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/releases/ReleaseResultsSheet.h"

#include "app/screens/elements/Bind.h"
#include "app/screens/elements/ButtonSpinner.h"
#include "app/screens/elements/Divider.h"
#include "app/screens/elements/ElidedLabel.h"
#include "app/screens/elements/IconView.h"
#include "app/screens/elements/ProminentButton.h"
#include "app/screens/elements/ShowIfAny.h"
#include "app/screens/elements/TextStyle.h"
#include "app/screens/releases/NoticeList.h"
#include "app/screens/releases/ReleaseList.h"
#include "app/screens/releases/ReleaseTexts.h"
#include "workflow/AppModel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize sheetSize(620, 460);
constexpr int padding = 16;
constexpr int gap = 12;
constexpr int gapInHeader = 4;
constexpr int gapInRow = 8;
constexpr int leastListHeight = 260;

} // namespace

ReleaseResultsSheet::ReleaseResultsSheet(AppModel &model, QWidget *window)
    : QDialog(window)
    , m_model(model)
    , m_list(new ReleaseList(this))
{
    setWindowTitle(u"Select a Release"_s);
    setWindowModality(Qt::WindowModal);
    setFixedWidth(sheetSize.width());
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(gap);
    addHeader(column);
    addStatus(column);
    column->addWidget(new Divider);
    addList(column);
    column->addWidget(new Divider);
    addNoticesAndButtons(column);
    connect(this, &QDialog::finished, this, [&model] { model.isShowingSearchResults = false; });
}

bool ReleaseResultsSheet::event(QEvent *event)
{
    const bool isTaken = QDialog::event(event);
    // A text has come or gone, or the font has changed.
    if (event->type() == QEvent::LayoutRequest)
        fitHeight();
    return isTaken;
}

// As high as it is meant to be, and higher only for texts that would squeeze the list.
void ReleaseResultsSheet::fitHeight()
{
    // Or it would count with what was there before.
    layout()->activate();
    setFixedHeight(std::max(sheetSize.height(), layout()->totalHeightForWidth(sheetSize.width())));
}

void ReleaseResultsSheet::addHeader(QBoxLayout *column)
{
    auto *title = new QLabel(u"Select a Release"_s, this);
    applyTextStyle(title, TextStyle::heading);
    auto *advice = new QLabel(this);
    advice->setWordWrap(true);
    applyTextStyle(advice, TextStyle::smallSecondary);
    bind(
        advice, [this] { return releaseSheetAdvice(m_model.chapters.value().size()); }, showIfAny);
    auto *header = new QVBoxLayout;
    header->setSpacing(gapInHeader);
    header->addWidget(title);
    header->addWidget(advice);
    column->addLayout(header);
}

void ReleaseResultsSheet::addStatus(QBoxLayout *column)
{
    auto *glass = new IconView(IconName::search, Tone::secondary, this);
    auto *spinner = new Spinner(this);
    auto *text = new ElidedLabel(Qt::ElideRight, this);
    applyTextStyle(text, TextStyle::smallSecondary);
    bind(
        glass, [this] { return !m_model.isLoadingReleases.value(); }, &QWidget::setVisible);
    bind(
        spinner, [this] { return m_model.isLoadingReleases.value(); }, &QWidget::setVisible);
    bind(
        text, [this] { return releaseSheetStatus(m_model); }, &QLabel::setText);
    auto *row = new QHBoxLayout;
    row->setSpacing(gapInRow);
    row->addWidget(glass);
    row->addWidget(spinner);
    row->addWidget(text, 1);
    column->addLayout(row);
}

void ReleaseResultsSheet::addList(QBoxLayout *column)
{
    auto *places = new QStackedWidget(this);
    places->setMinimumHeight(leastListHeight);
    places->addWidget(m_list);
    places->addWidget(makePlaceholder());
    column->addWidget(places, 1);
    bind(
        places, [this] { return m_model.searchResults.value().isEmpty(); },
        [this](QStackedWidget *shown, bool isEmpty) {
            shown->setCurrentIndex(isEmpty ? 1 : 0);
            // The arrow keys are at hand, whether the results were there first or the sheet.
            if (!isEmpty)
                m_list->setFocus();
        });
    bind(
        m_list, [this] { return std::pair(m_model.searchResults.value(), m_model.chapters.value().size()); },
        [this](const std::pair<QList<ReleaseInfo>, qsizetype> &shown) {
            m_list->setReleases(shown.first, shown.second);
            highlightIfNone();
        });
    bind(
        m_list, [this] { return m_model.loadingReleaseID.value(); }, &ReleaseList::setLoadingID);
    connect(m_list, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex &row) {
        // Its first click may have taken the row's highlight away.
        m_list->setCurrentIndex(row);
        choose();
    });
}

QWidget *ReleaseResultsSheet::makePlaceholder()
{
    auto *placeholder = new QWidget(this);
    auto *spinner = new Spinner(placeholder);
    auto *text = new QLabel(placeholder);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignCenter);
    applyTextStyle(text, TextStyle::secondary);
    bind(
        spinner, [this] { return m_model.isLoadingReleases.value(); }, &QWidget::setVisible);
    bind(
        text, [this] { return releaseListPlaceholder(m_model); }, showIfAny);
    auto *column = new QVBoxLayout(placeholder);
    column->addStretch(1);
    column->addWidget(spinner, 0, Qt::AlignHCenter);
    column->addWidget(text);
    column->addStretch(1);
    return placeholder;
}

void ReleaseResultsSheet::addNoticesAndButtons(QBoxLayout *column)
{
    auto *notices = new NoticeList(TextStyle::small, this);
    auto *row = new QHBoxLayout;
    row->addWidget(notices, 1);
    row->addStretch();
    row->addWidget(makeCancelButton());
    row->addWidget(makeUseButton());
    column->addLayout(row);
    bind(
        notices, [this] { return m_model.searchNotices.value(); },
        [this](NoticeList *list, const QList<MetadataSearchOutcome::Notice> &shown) {
            list->setNotices(shown);
            fitHeight();
        });
}

QPushButton *ReleaseResultsSheet::makeCancelButton()
{
    auto *cancel = new QPushButton(this);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    bind(
        cancel, [this] { return m_model.searchResults.value().isEmpty() ? u"Close"_s : u"Cancel"_s; },
        &QAbstractButton::setText);
    return cancel;
}

QPushButton *ReleaseResultsSheet::makeUseButton()
{
    auto *use = new ProminentButton(u"Loading Tracklist…"_s, this);
    auto *spinner = new ButtonSpinner(use);
    use->setMinimumWidth(use->sizeHint().width() + 2 * Spinner::standardSide);
    use->setDefault(true);
    connect(use, &QPushButton::clicked, this, &ReleaseResultsSheet::choose);
    const auto update = [this, use, spinner] {
        const bool isLoading = m_model.loadingReleaseID.value().has_value();
        use->setText(isLoading ? u"Loading Tracklist…"_s : u"Use This Release"_s);
        use->setEnabled(!isLoading && m_list->highlightedID().has_value());
        spinner->setVisible(isLoading);
    };
    bind(
        use,
        [this] { return std::pair(m_model.loadingReleaseID.value(), m_model.searchResults.value().size()); },
        [update](const std::pair<std::optional<QString>, qsizetype> &) { update(); });
    connect(m_list, &ReleaseList::highlightChanged, use, update);
    return use;
}

void ReleaseResultsSheet::highlightIfNone()
{
    if (m_list->highlightedID())
        return;
    const QList<ReleaseInfo> releases = m_model.searchResults.value();
    if (const std::optional<QString> chosen = m_model.selectedReleaseID.value())
        m_list->setHighlightedID(chosen);
    else if (!releases.isEmpty())
        m_list->setHighlightedID(releases.first().id);
}

void ReleaseResultsSheet::choose()
{
    if (m_model.loadingReleaseID.value())
        return;
    highlightIfNone();
    const std::optional<QString> id = m_list->highlightedID();
    m_model.selectedReleaseID = id;
    m_model.selectRelease(id);
}

void showReleaseResults(QWidget *window, AppModel &model)
{
    const auto sheet = std::make_shared<QPointer<ReleaseResultsSheet>>();
    bind(
        window, [&model] { return model.isShowingSearchResults.value(); },
        [&model, sheet](QWidget *over, bool isWanted) {
            if (isWanted && !*sheet) {
                *sheet = new ReleaseResultsSheet(model, over);
                (*sheet)->setAttribute(Qt::WA_DeleteOnClose);
                (*sheet)->open();
            } else if (!isWanted && *sheet) {
                QDialog *closing = *sheet;
                sheet->clear();
                closing->close();
            }
        });
}

} // namespace tonearm
