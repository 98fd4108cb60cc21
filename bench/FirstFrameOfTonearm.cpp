// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TonearmApp.h"
#include "bench/FirstFrame.h"
#include "support/ResourceFolder.h"

#include <QApplication>
#include <QTemporaryDir>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    tonearm::TonearmApp app(folder.filePath(QStringLiteral("settings.json")),
                            folder.filePath(QStringLiteral("windows.json")), tonearm::resourceFolder());
    app.openMainWindow();
    return tonearm::reportFirstFrame();
}
