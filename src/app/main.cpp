// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/LaunchRequest.h"
#include "app/TonearmApp.h"
#include "platform/DesktopEntry.h"
#include "support/Background.h"
#include "support/ResourceFolder.h"
#include "support/StateFolder.h"
#include "tools/ChildSignal.h"

#include <QApplication>
#include <QDir>
#include <QStandardPaths>

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// The program reads nothing from its standard input, and a child that inherits it must not take
// keystrokes from a terminal. A closed stdout or stderr would give its number to the next file opened.
void settleStandardDescriptors()
{
    const int nothing = ::open("/dev/null", O_RDWR);
    ::dup2(nothing, STDIN_FILENO);
    for (const int output : {STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(output, F_GETFD) == -1)
            ::dup2(nothing, output);
    }
    if (nothing > STDERR_FILENO)
        ::close(nothing);
}

void nameApplication()
{
    QCoreApplication::setApplicationName(u"tonearm"_s);
    QGuiApplication::setApplicationDisplayName(u"Tonearm"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(TONEARM_VERSION));
    QGuiApplication::setDesktopFileName(tonearm::desktopEntryName);
}

QStringList wordsOf(int argc, char **argv)
{
    QStringList words;
    for (int index = 0; index < argc; ++index)
        words.append(QString::fromLocal8Bit(argv[index]));
    return words;
}

void showHelp(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    std::fputs(qUtf8Printable(tonearm::launchHelpText()), stdout);
}

int open(const tonearm::LaunchRequest &request)
{
    const QString configuration = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    tonearm::TonearmApp app(configuration + u"/settings.json"_s,
                            tonearm::stateFolder() + u"/tonearm/windows.json"_s, tonearm::resourceFolder());
    app.openMainWindow();
    if (request.file)
        app.openFile(*request.file);
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    settleStandardDescriptors();
    tonearm::restoreChildSignal();
    nameApplication();
    switch (tonearm::launchTextAskedFor(wordsOf(argc, argv))) {
    case tonearm::LaunchText::help:
        showHelp(argc, argv);
        return 0;
    case tonearm::LaunchText::version:
        std::puts("tonearm " TONEARM_VERSION);
        return 0;
    case tonearm::LaunchText::none:
        break;
    }
    const QApplication application(argc, argv);
    tonearm::makeRoomInBackground();
    const tonearm::LaunchRequest request =
        tonearm::readLaunchRequest(QApplication::arguments(), QDir::currentPath());
    if (!request.problem.isEmpty()) {
        std::fprintf(stderr, "tonearm: %s\n", qUtf8Printable(request.problem));
        return 2;
    }
    return open(request);
}
