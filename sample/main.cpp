// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TonearmApp.h"
#include "sample/SampleJob.h"
#include "support/ResourceFolder.h"

#include <QApplication>
#include <QPixmap>

#include <cstdio>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

void carryOut(tonearm::TonearmApp &app, const QStringList &arguments)
{
    app.openMainWindow();
    tonearm::SampleJob job(app.mainWindow());
    job.chooseSource(arguments[1]);
    job.chooseOutput(arguments[2]);
    job.fillIn(u"Artist"_s, u"Sample Artist"_s);
    job.fillIn(u"Album Title"_s, u"Sample Album"_s);
    job.fillIn(u"Year"_s, u"1969"_s);
    job.fillIn(u"Genre"_s, u"Jazz"_s);
    job.fillIn(u"Song title for chapter 2"_s, u"A New Title"_s);
    job.encode(u"Encoded 3 tracks to Sample Album"_s);
    if (!app.mainWindow().grab().save(arguments[3]))
        throw std::runtime_error("the screenshot couldn't be saved");
}

} // namespace

// tonearm-sample <source .mkv> <output folder> <screenshot .png> <configuration folder>
int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 5) {
        std::fputs("usage: tonearm-sample SOURCE OUTPUT SCREENSHOT CONFIGURATION\n", stderr);
        return 2;
    }
    tonearm::TonearmApp app(arguments[4] + u"/settings.json"_s, arguments[4] + u"/windows.json"_s,
                            tonearm::resourceFolder());
    try {
        carryOut(app, arguments);
    } catch (const std::runtime_error &error) {
        std::fprintf(stderr, "tonearm-sample: %s\n", error.what());
        return 1;
    }
    return 0;
}
