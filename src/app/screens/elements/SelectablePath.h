// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <QString>

#include <optional>

namespace tonearm {

/// A path in a line of its own, which the user can mark and copy. It looks like a label; unlike one it
/// never asks for more width than there is: what doesn't fit is left out in the middle, except while the
/// user goes through it.
class SelectablePath : public QLineEdit
{
    Q_OBJECT

public:
    /// `wordsWithout` stand in the place of a path, paler, while there is none.
    SelectablePath(const QString &wordsWithout, QWidget *parent);

    void setPath(const std::optional<QString> &path);

    /// As high as a label: a text box would leave room for the frame that this hasn't.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void listenToParent();
    void updateColours();

    QString m_wordsWithout;
    bool m_isSet = false;
};

} // namespace tonearm
