// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QLabel;
class QVBoxLayout;

namespace tonearm {

class GroupPanel;

/// A tab of the settings: a form in groups, top to bottom.
class SettingsPage : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsPage(QWidget *parent = nullptr);

protected:
    /// Starts a group below those that are there; the title may be empty.
    void addSection(const QString &title);

    /// Adds a row to the group started last, below a line if it isn't the first.
    void addRow(QWidget *row);

private:
    QVBoxLayout *m_column;
    GroupPanel *m_section = nullptr;
};

/// How far below its control a setting's explanation stands.
inline constexpr int explanationGap = 8;

/// A paragraph that explains a setting.
QLabel *makeExplanation(const QString &text, QWidget *parent);

} // namespace tonearm
