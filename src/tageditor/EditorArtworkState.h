// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QString>

#include <optional>
#include <utility>

namespace tonearm {

/// What the artwork column shows for the selected files.
struct EditorArtworkState
{
    enum class Kind { image, note, warning, loading };

    static EditorArtworkState image(QImage picture) { return {Kind::image, std::move(picture), {}}; }

    /// A plain remark.
    static EditorArtworkState note(QString text) { return {Kind::note, {}, std::move(text)}; }

    /// A remark that calls for attention.
    static EditorArtworkState warning(QString text) { return {Kind::warning, {}, std::move(text)}; }

    static EditorArtworkState loading() { return {Kind::loading, {}, {}}; }

    Kind kind = Kind::loading;
    /// For image only.
    QImage picture = {};
    /// For note and warning only.
    QString text = {};

    bool operator==(const EditorArtworkState &) const = default;
};

/// A picture for the window that shows it at its full size, and what to tell of it.
struct ViewableArtwork
{
    QImage image;
    qint64 pixelWidth = 0;
    qint64 pixelHeight = 0;
    std::optional<QString> caption;

    bool operator==(const ViewableArtwork &) const = default;
};

} // namespace tonearm
