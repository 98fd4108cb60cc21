// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TonearmApp.h"
#include "helpers/Rendering.h"
#include "sample/ScreenshotTour.h"
#include "support/ResourceFolder.h"

#include <QApplication>
#include <QDir>

#include <cstdio>
#include <stdexcept>

using namespace Qt::StringLiterals;

// tonearm-screenshots <source .mkv> <cover> <work folder> <folder for pictures> light|dark
int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral(TONEARM_VERSION));
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 6) {
        std::fputs("usage: tonearm-screenshots SOURCE COVER WORK-FOLDER PICTURES light|dark\n", stderr);
        return 2;
    }
    const QString &work = arguments[3];
    const bool isDark = arguments[5] == u"dark"_s;
    QApplication::setPalette(isDark ? tonearm::test::darkPalette() : tonearm::test::lightPalette());
    tonearm::TonearmApp app(work + u"/settings.json"_s, work + u"/windows.json"_s, tonearm::resourceFolder());
    app.openMainWindow();
    try {
        tonearm::ScreenshotTour tour(app, arguments[4], arguments[5]);
        tour.showJob(arguments[1], arguments[2], work + u"/output"_s);
        tour.showTagEditor(work + u"/output/The Night Trains/Signals from the Coast"_s);
        tour.showSettings();
        tour.showAbout();
    } catch (const std::runtime_error &error) {
        std::fprintf(stderr, "tonearm-screenshots: %s\n", error.what());
        return 1;
    }
    return 0;
}
