// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>

namespace tonearm {

class AppSettings;

/// The box for the size limit of artwork, in kilobytes. What is typed is left alone until it is complete:
/// Return, a step, leaving the box and closing the window take it up, within the limits of the settings,
/// and Escape takes it back. The arrow keys step.
class SizeLimitBox : public QLineEdit
{
    Q_OBJECT

public:
    /// How far a step goes, in kilobytes.
    static constexpr qint64 stepSize = 50;

    explicit SizeLimitBox(AppSettings &settings, QWidget *parent = nullptr);

    /// Whether the setting can go up (1) or down (-1).
    static bool canStep(const AppSettings &settings, int direction);

    /// Takes up what is typed, then goes up or down by a step, or to the limit if that is nearer.
    void step(int direction);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    bool holdsTyping() const { return text() != m_shown; }

    void takeUp();
    void showSetting();
    void followSetting();
    bool isTakingBack(const QKeyEvent &event) const;

    AppSettings &m_settings;
    // The setting as the box last showed it.
    QString m_shown;
};

} // namespace tonearm
