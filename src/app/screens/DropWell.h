// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/Icons.h"

#include <QUrl>
#include <QWidget>

#include <functional>

namespace tonearm {

class ElidedLabel;

/// A rounded well onto which a file or a folder is dropped. Only the first of several is considered.
class DropWell : public QWidget
{
    Q_OBJECT

public:
    static constexpr int standardHeight = 100;

    /// Is given the location of what was dropped, and says whether it was taken.
    using OnDrop = std::function<bool(const QUrl &)>;

    DropWell(const QString &accessibleName, OnDrop onDrop, QWidget *parent = nullptr,
             int height = standardHeight);

    void setIcon(IconName name);

    QString label() const;

    void setLabel(const QString &label);

    /// Whether something that could be dropped hovers over the well.
    bool isTargeted() const { return m_targeted; }

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void setTargeted(bool targeted);

    OnDrop m_onDrop;
    ElidedLabel *m_label;
    IconName m_icon = IconName::inputFile;
    bool m_targeted = false;
};

} // namespace tonearm
