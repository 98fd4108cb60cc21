// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/DiscOffer.h"

#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/ElidedLabel.h"
#include "app/screens/elements/IconView.h"
#include "app/screens/elements/ProminentButton.h"
#include "app/screens/elements/TextStyle.h"
#include "workflow/AppModel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;

DiscOffer::DiscOffer(AppModel &model, const DiscInfo &disc, QWidget *parent)
    : QWidget(parent)
{
    setAccessibleRole(this, QAccessible::Grouping);
    auto *title = new ElidedLabel(Qt::ElideRight, this);
    title->setText(u"Audio CD detected — "_s + disc.volumeName);
    applyTextStyle(title, TextStyle::emphasised);
    setAccessibleName(title->text());
    auto *summary = new ElidedLabel(Qt::ElideRight, this);
    summary->setText(disc.summary());
    applyTextStyle(summary, TextStyle::smallSecondary);

    auto *load = new ProminentButton(u"Load Disc"_s, this);
    auto *eject = new QPushButton(u"Eject"_s, this);
    // Queued, because either takes this row away.
    connect(
        load, &QPushButton::clicked, this, [&model, disc] { model.requestDisc(disc); }, Qt::QueuedConnection);
    connect(
        eject, &QPushButton::clicked, this, [&model, disc] { model.ejectDisc(disc); }, Qt::QueuedConnection);

    auto *lines = new QVBoxLayout;
    lines->setSpacing(2);
    lines->addWidget(title);
    lines->addWidget(summary);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(new IconView(IconName::disc, Tone::information, this));
    row->addLayout(lines, 1);
    row->addWidget(load);
    row->addWidget(eject);
}

} // namespace tonearm
