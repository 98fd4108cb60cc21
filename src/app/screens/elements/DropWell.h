// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/FileDropArea.h"
#include "app/screens/elements/Icons.h"

namespace tonearm {

class ElidedLabel;

/// A rounded well for a source or a folder: an icon, and below it what is there.
class DropWell : public FileDropArea
{
    Q_OBJECT

public:
    static constexpr int standardHeight = 100;

    DropWell(const QString &accessibleName, OnDrop onDrop, QWidget *parent = nullptr,
             int height = standardHeight);

    void setIcon(IconName name);

    QString label() const;

    void setLabel(const QString &label);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    ElidedLabel *m_label;
    IconName m_icon = IconName::inputFile;
};

} // namespace tonearm
