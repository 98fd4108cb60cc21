// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/settingswindow/SettingSwitch.h"

#include "app/screens/elements/Bind.h"
#include "app/screens/settingswindow/SettingsPage.h"

#include <QCheckBox>
#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

#include <utility>

namespace tonearm {

SettingSwitch::SettingSwitch(const SwitchWords &words, std::function<bool()> isOn,
                             std::function<void(bool)> set, QWidget *parent)
    : QWidget(parent)
{
    auto *box = new QCheckBox(words.title, this);
    box->setAccessibleDescription(words.explanation);
    bind(box, isOn, &QCheckBox::setChecked);
    // Not clicked: an assistive tool toggles it without a click.
    connect(box, &QCheckBox::toggled, this, [isOn, set = std::move(set)](bool checked) {
        // What follows a change of the setting isn't stored once more.
        if (checked != isOn())
            set(checked);
    });

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(explanationGap);
    column->addWidget(box);
    if (words.explanation.isEmpty())
        return;
    // Below the title, not below the box.
    auto *indented = new QHBoxLayout;
    indented->setSpacing(0);
    indented->addSpacing(style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, box) +
                         style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, box));
    indented->addWidget(makeExplanation(words.explanation, this), 1);
    column->addLayout(indented);
}

} // namespace tonearm
