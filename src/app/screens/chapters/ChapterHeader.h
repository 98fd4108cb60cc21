// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/chapters/ChapterColumns.h"

#include <QWidget>

class QLabel;

namespace tonearm {

/// The line of column titles above the rows of the chapter table.
class ChapterHeader : public QWidget
{
    Q_OBJECT

public:
    /// The columns must outlive the header.
    ChapterHeader(const ChapterColumns &columns, QWidget *parent);

    void setSourceTitle(const QString &title);

    /// After the columns changed.
    void placeColumns();

    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QLabel *added(ChapterColumn column, const QString &text);

    const ChapterColumns &m_columns;
    QLabel *m_number;
    QLabel *m_sourceTitle;
    QLabel *m_length;
    QLabel *m_songTitle;
};

} // namespace tonearm
