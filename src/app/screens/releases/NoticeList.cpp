// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/releases/NoticeList.h"

#include "app/screens/elements/IconLabel.h"

#include <QVBoxLayout>

namespace tonearm {

NoticeList::NoticeList(TextStyle style, QWidget *parent)
    : QWidget(parent)
    , m_style(style)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    hide();
}

void NoticeList::setNotices(const QList<MetadataSearchOutcome::Notice> &notices)
{
    qDeleteAll(findChildren<IconLabel *>());
    for (const MetadataSearchOutcome::Notice &notice : notices) {
        const IconName name = notice.isConfigurationIssue ? IconName::gearWarning : IconName::warningOutline;
        auto *label = new IconLabel(name, Tone::warning, this);
        applyTextStyle(label, m_style);
        label->setText(notice.message);
        layout()->addWidget(label);
        // At once, so that whoever asks how much room the notices take hears of all of them.
        label->show();
    }
    setVisible(!notices.isEmpty());
}

} // namespace tonearm
