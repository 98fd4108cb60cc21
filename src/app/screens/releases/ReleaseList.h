// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/records/ReleaseInfo.h"

#include <QAbstractListModel>
#include <QListView>

#include <optional>

namespace tonearm {

/// The releases of a search, a row of two lines each, one of them highlighted.
class ReleaseList : public QListView
{
    Q_OBJECT

public:
    explicit ReleaseList(QWidget *parent = nullptr);

    /// The highlight stays with its release if that is still there.
    void setReleases(const QList<ReleaseInfo> &releases, qsizetype chapterCount);

    /// Marks the row of a release and scrolls it into view.
    void setHighlightedID(const std::optional<QString> &id);

    std::optional<QString> highlightedID() const;

    /// The row that shows a spinner.
    void setLoadingID(const std::optional<QString> &id);

Q_SIGNALS:
    void highlightChanged();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;

private:
    QModelIndex indexOf(const std::optional<QString> &id) const;
    void showSpinner();
    void colourSpinner();

    class Rows;
    Rows *m_rows;
    std::optional<QString> m_loadingID;
};

} // namespace tonearm
