// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/chapters/ChapterColumns.h"
#include "app/screens/chapters/ChapterTableRow.h"

#include <QWidget>

class QLineEdit;

namespace tonearm {

class ElidedLabel;
class PreviewButton;
class VerificationBadge;

/// One row of the chapter table: shows one chapter or a placeholder, and can be given another.
class ChapterRowView : public QWidget
{
    Q_OBJECT

public:
    /// The columns must outlive the view.
    ChapterRowView(const ChapterColumns &columns, QWidget *parent);

    /// The height of a row with the style and the font of the list it is for.
    static int heightIn(QWidget *list);

    /// Which row it shows, counted from 0.
    int index() const { return m_index; }

    void showRow(int index, const ChapterTableRow &row);
    void showPlaceholder(int index);

    /// For a row of which nothing but the title and what is told of the track may have changed. Leaves the
    /// text box alone where it shows that title already.
    void updateRow(const ChapterTableRow &row);

    QLineEdit *titleBox() const { return m_songTitle; }

    /// After the columns changed.
    void placeColumns();

Q_SIGNALS:
    /// At every change that the user makes.
    void songTitleEdited(const QString &title);
    void previewToggled();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QRect place(ChapterColumn column) const;
    void showTexts(const ChapterTableRow &row, QPalette::ColorRole role);
    void showState(const ChapterTableRow &row);
    void setSongTitle(const QString &title);

    const ChapterColumns &m_columns;
    PreviewButton *m_preview;
    ElidedLabel *m_number;
    ElidedLabel *m_sourceTitle;
    ElidedLabel *m_length;
    QLineEdit *m_songTitle;
    VerificationBadge *m_badge;
    int m_index = -1;
};

} // namespace tonearm
