// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/releases/ReleaseList.h"

#include "app/screens/elements/Spinner.h"
#include "app/screens/elements/Tooltip.h"
#include "app/screens/releases/ReleaseRowDelegate.h"
#include "app/screens/releases/ReleaseTexts.h"

#include <QHBoxLayout>
#include <QKeyEvent>

namespace tonearm {

using namespace Qt::StringLiterals;

// What the rows show.
class ReleaseList::Rows : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    enum Role { idRole = Qt::UserRole };

    void set(const QList<ReleaseInfo> &releases, qsizetype chapterCount)
    {
        beginResetModel();
        m_releases = releases;
        m_chapterCount = chapterCount;
        endResetModel();
    }

    int rowCount(const QModelIndex &parent) const override
    {
        return parent.isValid() ? 0 : int(m_releases.size());
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        const ReleaseInfo &release = m_releases[index.row()];
        switch (role) {
        case Qt::DisplayRole:
            return release.displayName();
        case ReleaseRowDelegate::detailRole:
            return releaseRowDetail(release, m_chapterCount);
        case Qt::ToolTipRole:
            return plainTooltip(lines(release).join(u'\n'));
        case Qt::AccessibleTextRole:
            return lines(release).join(u", "_s);
        case idRole:
            return release.id;
        default:
            return {};
        }
    }

private:
    QStringList lines(const ReleaseInfo &release) const
    {
        QStringList both = {release.displayName(), releaseRowDetail(release, m_chapterCount)};
        both.removeAll(QString());
        return both;
    }

    QList<ReleaseInfo> m_releases;
    qsizetype m_chapterCount = 0;
};

ReleaseList::ReleaseList(QWidget *parent)
    : QListView(parent)
    , m_rows(new Rows(this))
{
    setModel(m_rows);
    setItemDelegate(new ReleaseRowDelegate(this));
    setAccessibleName(u"Releases"_s);
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setEditTriggers(NoEditTriggers);
}

void ReleaseList::setReleases(const QList<ReleaseInfo> &releases, qsizetype chapterCount)
{
    const std::optional<QString> highlighted = highlightedID();
    m_rows->set(releases, chapterCount);
    setHighlightedID(highlighted);
    showSpinner();
    // A highlight that went with its release does so without a signal.
    Q_EMIT highlightChanged();
}

void ReleaseList::setHighlightedID(const std::optional<QString> &id)
{
    const QModelIndex index = indexOf(id);
    setCurrentIndex(index);
    if (index.isValid())
        scrollTo(index);
}

std::optional<QString> ReleaseList::highlightedID() const
{
    // Not the current row, which stays when its highlight is taken away.
    const QModelIndexList selected = selectedIndexes();
    return selected.isEmpty() ? std::nullopt : std::optional(selected.first().data(Rows::idRole).toString());
}

void ReleaseList::setLoadingID(const std::optional<QString> &id)
{
    if (const QModelIndex earlier = indexOf(m_loadingID); earlier.isValid())
        setIndexWidget(earlier, nullptr);
    m_loadingID = id;
    showSpinner();
}

void ReleaseList::showSpinner()
{
    const QModelIndex index = indexOf(m_loadingID);
    if (!index.isValid())
        return;
    auto *place = new QWidget;
    place->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto *row = new QHBoxLayout(place);
    row->setContentsMargins(ReleaseRowDelegate::padding, 0, ReleaseRowDelegate::padding, 0);
    row->addStretch(1);
    row->addWidget(new Spinner(place));
    setIndexWidget(index, place);
    colourSpinner();
}

// It stands on the row's ground.
void ReleaseList::colourSpinner()
{
    const QModelIndex index = indexOf(m_loadingID);
    QWidget *place = index.isValid() ? indexWidget(index) : nullptr;
    if (!place)
        return;
    QPalette colours;
    if (selectionModel()->isSelected(index))
        colours.setColor(QPalette::WindowText, palette().color(QPalette::HighlightedText));
    place->setPalette(colours);
}

void ReleaseList::keyPressEvent(QKeyEvent *event)
{
    // Return belongs to the dialog's button.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->ignore();
    else
        QListView::keyPressEvent(event);
}

void ReleaseList::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QListView::selectionChanged(selected, deselected);
    colourSpinner();
    Q_EMIT highlightChanged();
}

QModelIndex ReleaseList::indexOf(const std::optional<QString> &id) const
{
    for (int row = 0; id && row < m_rows->rowCount({}); ++row)
        if (const QModelIndex index = m_rows->index(row); index.data(Rows::idRole).toString() == *id)
            return index;
    return {};
}

} // namespace tonearm
