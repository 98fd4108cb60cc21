// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QUuid>

#include <optional>

namespace tonearm {

/// A file that a save couldn't write.
struct SaveFailure
{
    QUuid id = QUuid::createUuid();
    QString fileName;
    /// In one line.
    QString reason;

    bool operator==(const SaveFailure &) const = default;
};

/// A file that a save would strip of tags, or has stripped of them.
struct RefusedSave
{
    QUuid id = QUuid::createUuid();
    QUrl fileID;
    QString fileName;
    /// The names of the tags.
    QStringList tags;

    bool operator==(const RefusedSave &) const = default;
};

/// The text of the question what to do with these files.
QString refusalMessage(const QList<RefusedSave> &refused);

/// What a save has dropped; nothing without reports.
std::optional<QString> droppedTagSummary(const QList<RefusedSave> &reports);

/// What came of a save.
struct SaveCounts
{
    qsizetype saved = 0;
    qsizetype failed = 0;
    /// Files that still differ from what the user wants.
    qsizetype heldBack = 0;
    /// Files that were saved without some tags.
    qsizetype dropped = 0;
    bool wasCancelled = false;
};

/// The line that tells it.
QString completionLine(const SaveCounts &counts);

} // namespace tonearm
