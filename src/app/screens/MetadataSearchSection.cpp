// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/MetadataSearchSection.h"

#include "app/screens/Bind.h"
#include "app/screens/GenreField.h"
#include "app/screens/IconLabel.h"
#include "app/screens/ModelTextBox.h"
#include "workflow/AppModel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int yearWidth = 64;
constexpr int discWidth = 40;
constexpr int gap = 8;
constexpr int gapBetweenGroups = 16;

void addField(QGridLayout *grid, const QString &label, QWidget *field)
{
    const int row = grid->rowCount();
    auto *name = new QLabel(label);
    name->setBuddy(field);
    grid->addWidget(name, row, 0, Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(field, row, 1);
}

} // namespace

MetadataSearchSection::MetadataSearchSection(AppModel &model, const GenreCatalog &genres, QWidget *parent)
    : SectionBox(2, u"Album Metadata"_s, parent)
    , m_model(model)
{
    auto *fields = new QGridLayout;
    fields->setHorizontalSpacing(gap);
    fields->setVerticalSpacing(gap);
    fields->setColumnStretch(1, 1);
    addField(fields, u"Artist"_s, makeModelTextBox(model.artist, u"Artist"_s, this));
    addField(fields, u"Album Title"_s, makeModelTextBox(model.albumTitle, u"Album Title"_s, this));
    addField(fields, u"Year"_s, makeYearAndDisc());
    addField(fields, u"Genre"_s, new GenreField(model, genres, this));
    content()->addLayout(fields);

    auto *warning = new IconLabel(IconName::warning, Tone::warning, this);
    bind(
        warning, [&model] { return model.yearWarning(); },
        [](IconLabel *label, const std::optional<QString> &text) {
            label->setText(text.value_or(QString()));
            label->setVisible(text.has_value());
        });
    content()->addWidget(warning);
}

QWidget *MetadataSearchSection::makeYearAndDisc()
{
    auto *group = new QWidget(this);
    QLineEdit *year =
        makeNarrowBox(m_model.albumYear, u"Year"_s, yearWidth, u"Four-digit year written to the DATE tag"_s);
    const QString aboutDiscs = u"Which disc of a set this is, written to the DISCNUMBER and DISCTOTAL tags. "
                               u"Leave both empty for a single-disc release."_s;
    QLineEdit *number = makeNarrowBox(m_model.discNumber, u"Disc"_s, discWidth, aboutDiscs);
    QLineEdit *total = makeNarrowBox(m_model.discTotal, u"Number of discs"_s, discWidth, aboutDiscs);
    auto *disc = new QLabel(u"Disc"_s, group);
    disc->setBuddy(number);
    group->setFocusProxy(year);

    auto *row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(year);
    row->addSpacing(gapBetweenGroups - gap);
    row->addWidget(disc);
    row->addWidget(number);
    row->addWidget(new QLabel(u"of"_s, group));
    row->addWidget(total);
    row->addStretch(1);
    return group;
}

QLineEdit *MetadataSearchSection::makeNarrowBox(QProperty<QString> &text, const QString &name, int width,
                                                const QString &toolTip)
{
    QLineEdit *box = makeModelTextBox(text, name, this);
    box->setFixedWidth(width);
    box->setToolTip(toolTip);
    return box;
}

} // namespace tonearm
