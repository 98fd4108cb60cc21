// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/DiscInfo.h"

#include <QString>
#include <QUrl>
#include <QUuid>

#include <variant>

namespace tonearm {

/// A source that waits for the user's word, because taking it up would discard work.
struct PendingSourceChange
{
    /// A disc or a file.
    using Source = std::variant<DiscInfo, QUrl>;

    QUuid id = QUuid::createUuid();
    /// What is to become the source.
    Source source;
    /// What would be lost, in the words of the question.
    QString summary;

    /// The source's name in the question and on its button.
    QString sourceName() const;

    /// "Loading <name> will discard <summary>. …"
    QString message() const;

    bool operator==(const PendingSourceChange &) const = default;
};

} // namespace tonearm
