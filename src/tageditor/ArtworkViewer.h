// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QProperty>
#include <QString>

#include <optional>

namespace tonearm {

/// What the window that shows artwork at its full size shows. Main thread.
class ArtworkViewer
{
public:
    QProperty<std::optional<QImage>> image;
    /// Of the artwork as it is stored, which the image can be a smaller form of.
    QProperty<qint64> pixelWidth;
    QProperty<qint64> pixelHeight;
    QProperty<std::optional<QString>> summary;
};

} // namespace tonearm
