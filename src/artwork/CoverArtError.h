// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/DescribedError.h"
#include "workflow/records/MetadataSource.h"

#include <QString>
#include <QUrl>

#include <optional>

namespace tonearm {

/// Why a picture can't serve as cover art.
class CoverArtError : public DescribedError
{
public:
    enum class Kind {
        unreadableImage,
        couldNotShrink,
        unsupportedImageType,
        noArtworkAvailable,
        noReleaseSelected
    };

    static CoverArtError unreadableImage(QUrl url);
    static CoverArtError couldNotShrink(QUrl url);
    /// `type` is what the picture came back as, in the form in which the user reads it ("image/webp").
    static CoverArtError unsupportedImageType(QString type);
    static CoverArtError noArtworkAvailable(MetadataSource source);
    static CoverArtError noReleaseSelected();

    QString description() const override;
    std::optional<QString> recoverySuggestion() const override;

    Kind kind;
    /// For unreadableImage and couldNotShrink only.
    QUrl url;
    /// For unsupportedImageType only.
    QString type;
    /// For noArtworkAvailable only.
    std::optional<MetadataSource> source;

    bool operator==(const CoverArtError &other) const;

private:
    explicit CoverArtError(Kind errorKind);
};

} // namespace tonearm
