// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/MetadataSearchSection.h"

#include "app/screens/elements/Bind.h"
#include "app/screens/elements/ButtonSpinner.h"
#include "app/screens/elements/IconLabel.h"
#include "app/screens/elements/ModelTextBox.h"
#include "app/screens/elements/ShowIfAny.h"
#include "app/screens/mainwindow/CoverArtWell.h"
#include "app/screens/mainwindow/GenreField.h"
#include "app/screens/mainwindow/ReleaseLine.h"
#include "app/screens/releases/NoticeList.h"
#include "workflow/AppModel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int yearWidth = 64;
constexpr int discWidth = 40;
constexpr int gap = 8;
constexpr int gapBetweenGroups = 16;

// `box` is where the label leads to, and lies in `field`.
void addField(QGridLayout *grid, const QString &label, QWidget *field, QLineEdit *box)
{
    const int row = grid->rowCount();
    auto *name = new QLabel(label, field->parentWidget());
    name->setBuddy(box);
    // Screen readers walk in this order.
    name->stackUnder(field);
    grid->addWidget(name, row, 0, Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(field, row, 1);
}

} // namespace

MetadataSearchSection::MetadataSearchSection(AppModel &model, const GenreCatalog &genres, QWidget *parent)
    : SectionBox(2, u"Album Metadata"_s, parent)
    , m_model(model)
{
    auto *left = new QVBoxLayout;
    left->setSpacing(gap);
    addFields(left, genres);
    addYearWarning(left);
    left->addStretch(1);

    auto *cover = new CoverArtWell(model, this);
    connect(cover, &CoverArtWell::viewingRequested, this, &MetadataSearchSection::coverArtRequested);
    auto *columns = new QHBoxLayout;
    columns->setSpacing(gapBetweenGroups);
    columns->addLayout(left, 1);
    columns->addWidget(cover, 0, Qt::AlignTop);
    content()->addLayout(columns);

    auto *notices = new NoticeList(TextStyle::callout, this);
    bind(
        notices, [&model] { return model.searchNotices.value(); }, &NoticeList::setNotices);
    content()->addWidget(notices);
    content()->addWidget(new ReleaseLine(model, this));
}

void MetadataSearchSection::addFields(QBoxLayout *column, const GenreCatalog &genres)
{
    auto *fields = new QGridLayout;
    fields->setHorizontalSpacing(gap);
    fields->setVerticalSpacing(gap);
    fields->setColumnStretch(1, 1);
    QLineEdit *artist = makeModelTextBox(m_model.artist, u"Artist"_s, this);
    addField(fields, u"Artist"_s, artist, artist);
    QLineEdit *albumTitle = makeModelTextBox(m_model.albumTitle, u"Album Title"_s, this);
    addField(fields, u"Album Title"_s, albumTitle, albumTitle);
    for (QLineEdit *box : {artist, albumTitle})
        connect(box, &QLineEdit::returnPressed, this, [this] { m_model.startSearch(); });
    auto *yearAndDisc = new QWidget(this);
    addField(fields, u"Year"_s, yearAndDisc, fillYearAndDisc(yearAndDisc));
    auto *genre = new GenreField(m_model, genres, this);
    addField(fields, u"Genre"_s, genre, genre->box());
    fields->addWidget(makeSearchButton(), fields->rowCount() - 1, 1, Qt::AlignRight | Qt::AlignVCenter);
    column->addLayout(fields);
}

QWidget *MetadataSearchSection::makeSearchButton()
{
    const QString word = u"Search"_s;
    auto *button = new QPushButton(word, this);
    button->setAccessibleName(word);
    // The same with the word and with the spinner.
    button->setMinimumWidth(button->sizeHint().width());
    auto *spinner = new ButtonSpinner(button);
    connect(button, &QPushButton::clicked, this, [this] { m_model.startSearch(); });
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
        connect(new QShortcut(Qt::CTRL | key, this), &QShortcut::activated, this,
                [this] { m_model.startSearch(); });
    bind(
        button, [this] { return m_model.canSearch(); }, &QWidget::setEnabled);
    bind(
        button, [this] { return m_model.searchTask.value().has_value(); },
        [word, spinner](QPushButton *shown, bool isSearching) {
            shown->setText(isSearching ? QString() : word);
            spinner->setVisible(isSearching);
        });
    return button;
}

void MetadataSearchSection::addYearWarning(QBoxLayout *column)
{
    auto *warning = new IconLabel(IconName::warning, Tone::warning, this);
    bind(
        warning, [this] { return m_model.yearWarning(); }, showIfAny);
    column->addWidget(warning);
}

// Returns the year's box.
QLineEdit *MetadataSearchSection::fillYearAndDisc(QWidget *group)
{
    const QString aboutDiscs = u"Which disc of a set this is, written to the DISCNUMBER and DISCTOTAL tags. "
                               u"Leave both empty for a single-disc release."_s;
    QLineEdit *year = makeModelTextBox(m_model.albumYear, u"Year"_s, group);
    year->setFixedWidth(yearWidth);
    year->setToolTip(u"Four-digit year written to the DATE tag"_s);
    auto *disc = new QLabel(u"Disc"_s, group);
    QLineEdit *number = makeModelTextBox(m_model.discNumber, u"Disc"_s, group);
    disc->setBuddy(number);
    auto *of = new QLabel(u"of"_s, group);
    QLineEdit *total = makeModelTextBox(m_model.discTotal, u"Number of discs"_s, group);
    for (QLineEdit *box : {number, total}) {
        box->setFixedWidth(discWidth);
        box->setToolTip(aboutDiscs);
    }

    auto *row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(year);
    row->addSpacing(gapBetweenGroups - gap);
    for (QWidget *widget : {static_cast<QWidget *>(disc), static_cast<QWidget *>(number),
                            static_cast<QWidget *>(of), static_cast<QWidget *>(total)})
        row->addWidget(widget);
    row->addStretch(1);
    return year;
}

} // namespace tonearm
