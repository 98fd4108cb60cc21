// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>
#include <QUuid>

namespace tonearm {

/// A job that waits for the user's word, because it would overwrite files.
struct PendingOverwrite
{
    QUuid id = QUuid::createUuid();
    /// The folder that the files lie in.
    QUrl folder;
    /// The names that would be overwritten; never empty.
    QStringList filenames;

    /// The question.
    QString title() const;

    /// The files in question, the first few of them by name.
    QString message() const;

    bool operator==(const PendingOverwrite &) const = default;
};

} // namespace tonearm
