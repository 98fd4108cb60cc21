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

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

DiscOffer::DiscOffer(AppModel &model, const DiscInfo &disc, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_disc(disc)
    , m_load(new ProminentButton(u"Load Disc"_s, this))
    , m_eject(new QPushButton(u"Eject"_s, this))
{
    setAccessibleRole(this, QAccessible::Grouping);
    auto *title = new ElidedLabel(Qt::ElideRight, this);
    title->setText(u"Audio CD detected — "_s + disc.volumeName);
    applyTextStyle(title, TextStyle::emphasised);
    setAccessibleName(title->text());
    auto *summary = new ElidedLabel(Qt::ElideRight, this);
    summary->setText(disc.summary());
    applyTextStyle(summary, TextStyle::smallSecondary);

    connectAction(m_load, [this] { m_model.requestDisc(m_disc); });
    connectAction(m_eject, [this] { m_model.ejectDisc(m_disc); });

    auto *lines = new QVBoxLayout;
    lines->setSpacing(2);
    lines->addWidget(title);
    lines->addWidget(summary);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(new IconView(IconName::disc, Tone::information, this));
    row->addLayout(lines, 1);
    row->addWidget(m_load);
    row->addWidget(m_eject);
}

QWidget *DiscOffer::followInTabOrder(QWidget *before)
{
    setTabOrder(before, m_load);
    setTabOrder(m_load, m_eject);
    return m_eject;
}

void DiscOffer::connectAction(QPushButton *button, std::function<void()> action)
{
    // Queued, because the action takes this row away; by then the disc may have gone, or be loaded.
    const auto act = [this, action = std::move(action)] {
        if (m_model.detectedDiscs.value().contains(m_disc))
            action();
    };
    connect(button, &QPushButton::clicked, this, act, Qt::QueuedConnection);
}

} // namespace tonearm
