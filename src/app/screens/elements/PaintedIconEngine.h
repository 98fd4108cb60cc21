// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIconEngine>

namespace tonearm {

/// What an icon is made of that is painted anew in every size. Its pixmaps are transparent wherever it
/// paints nothing.
class PaintedIconEngine : public QIconEngine
{
public:
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;

    bool isNull() override { return false; }
};

} // namespace tonearm
