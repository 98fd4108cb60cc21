// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/mainwindow/MainWindow.h"

#include <QString>

namespace tonearm {

/// Does in the main window what a person would do to turn a chaptered file into FLAC files: drops the
/// file and the folder, types, clicks. Each step throws std::runtime_error, which says what it was
/// waiting for in vain.
class SampleJob
{
public:
    /// Makes the window large enough for a picture of all that it shows, however low the screen.
    explicit SampleJob(MainWindow &window);

    void chooseSource(const QString &file);
    void chooseOutput(const QString &folder);
    void fillIn(const QString &label, const QString &text);

    /// Presses "Encode to FLAC" and waits for the job's end.
    void encode(const QString &expectedSummary);

private:
    QWidget &find(const QString &accessibleName);
    void waitFor(const QString &accessibleName);

    MainWindow &m_window;
};

} // namespace tonearm
