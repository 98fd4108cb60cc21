// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>

#include <functional>

namespace tonearm {

/// What a switch is called and what it means; an explanation that stands elsewhere is left empty.
struct SwitchWords
{
    QString title;
    QString explanation = {};
};

/// A switch for one of the settings, which it follows whoever changes it, and its explanation.
class SettingSwitch : public QWidget
{
    Q_OBJECT

public:
    /// Both functions are called for as long as the switch lives.
    SettingSwitch(const SwitchWords &words, std::function<bool()> isOn, std::function<void(bool)> set,
                  QWidget *parent = nullptr);
};

} // namespace tonearm
