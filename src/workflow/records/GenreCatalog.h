// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/records/Genre.h"

#include <QList>
#include <QString>

#include <mutex>
#include <optional>

namespace tonearm {

/// The genres offered by default. Thread-safe.
class GenreCatalog
{
public:
    /// `resourceFile` is a JSON array of objects with the single key "name".
    explicit GenreCatalog(QString resourceFile);

    /// The genres in the order in which they are shown. The first call reads the file; none does so
    /// again, even where there was nothing to be had and the list is empty.
    QList<Genre> defaults() const;

private:
    QString m_resourceFile;
    // Held while reading, so that a second caller waits for the list instead of reading it too.
    mutable std::mutex m_lock;
    mutable std::optional<QList<Genre>> m_loaded;
};

} // namespace tonearm
