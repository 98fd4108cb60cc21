// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>
#include <QUuid>

namespace tonearm {

/// A source that waits for the user's word, because taking it up would discard work.
struct PendingSourceChange
{
    QUuid id = QUuid::createUuid();
    /// The file that is to become the source.
    QUrl source;
    /// What would be lost, in the words of the question.
    QString summary;

    /// The source's name in the question and on its button.
    QString sourceName() const;

    /// "Loading <name> will discard <summary>. …"
    QString message() const;

    bool operator==(const PendingSourceChange &) const = default;
};

} // namespace tonearm
