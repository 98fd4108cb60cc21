// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>

namespace tonearm {

/// Does in the main window what a person would do to turn a chaptered file into FLAC files: drops the
/// file and the folder, types, clicks. Each step throws std::runtime_error, which says what it was
/// waiting for in vain.
class SampleJob
{
public:
    explicit SampleJob(QWidget &window);

    void chooseSource(const QString &file);
    void chooseOutput(const QString &folder);
    void fillIn(const QString &label, const QString &text);

    /// Presses "Encode to FLAC" and waits for the job's end.
    void encode(const QString &expectedSummary);

private:
    QWidget &find(const QString &accessibleName);
    void waitFor(const QString &accessibleName);

    QWidget &m_window;
};

} // namespace tonearm
