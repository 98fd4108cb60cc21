// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

/// What the main window is about at the moment.
class WorkflowState
{
public:
    enum class Kind {
        error,               ///< the last work failed
        idle,                ///< nothing under way
        extractingChapters,  ///< inspecting a file
        readingDisc,         ///< a disc was taken up, its lookup is about to start
        searchingMetadata,   ///< a search or disc lookup runs
        awaitingUserMapping, ///< a source is there and the user can map, edit and encode
        encoding,            ///< a job runs
        complete             ///< a job finished
    };

    WorkflowState(
        Kind kind = Kind::idle); // NOLINT(google-explicit-constructor): all but error are just their kind

    /// The text is what the status line shows.
    static WorkflowState error(const QString &text);

    Kind kind() const { return m_kind; }

    /// Of an error; empty otherwise.
    const QString &errorText() const { return m_errorText; }

    bool operator==(const WorkflowState &) const = default;

private:
    Kind m_kind;
    QString m_errorText;
};

} // namespace tonearm
