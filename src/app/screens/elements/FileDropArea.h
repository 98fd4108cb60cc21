// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>
#include <QWidget>

#include <functional>

namespace tonearm {

/// A place onto which a file or a folder is dropped. Only the first of several is considered.
class FileDropArea : public QWidget
{
    Q_OBJECT

public:
    /// Is given the location of what was dropped, and says whether it was taken.
    using OnDrop = std::function<bool(const QUrl &)>;

    FileDropArea(const QString &accessibleName, OnDrop onDrop, QWidget *parent);

    /// Whether something that could be dropped hovers over the area.
    bool isTargeted() const { return m_isTargeted; }

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

    /// Draws the rounded ground, with a stronger border while the area is targeted.
    void paintGround(QPainter &painter) const;

private:
    void setTargeted(bool targeted);

    OnDrop m_onDrop;
    bool m_isTargeted = false;
};

} // namespace tonearm
