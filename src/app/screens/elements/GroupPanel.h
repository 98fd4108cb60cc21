// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QVBoxLayout;

namespace tonearm {

/// Things that belong together, on a rounded ground of their own, below a title if they have one.
class GroupPanel : public QWidget
{
    Q_OBJECT

public:
    explicit GroupPanel(const QString &title, QWidget *parent = nullptr);

    /// Where they go, top to bottom.
    QVBoxLayout *content() const { return m_content; }

private:
    QVBoxLayout *m_content;
};

} // namespace tonearm
