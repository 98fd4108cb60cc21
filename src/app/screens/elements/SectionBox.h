// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QLabel;
class QVBoxLayout;

namespace tonearm {

/// One numbered section of the main window: its number in a disc, its title, and below them whatever
/// is added to `content()`.
class SectionBox : public QWidget
{
    Q_OBJECT

public:
    SectionBox(int number, const QString &title, QWidget *parent = nullptr);

    QString title() const;

    void setTitle(const QString &title);

    /// Where the section's content goes, top to bottom.
    QVBoxLayout *content() const { return m_content; }

private:
    QLabel *m_title;
    QVBoxLayout *m_content;
};

} // namespace tonearm
