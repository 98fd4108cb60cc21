// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TonearmApp.h"
#include "support/ResourceFolder.h"
#include "support/StateFolder.h"

#include <QApplication>
#include <QStandardPaths>

#include <fcntl.h>
#include <unistd.h>

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

} // namespace

int main(int argc, char **argv)
{
    settleStandardDescriptors();
    QCoreApplication::setApplicationName(u"tonearm"_s);
    QGuiApplication::setApplicationDisplayName(u"Tonearm"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(TONEARM_VERSION));
    QGuiApplication::setDesktopFileName(u"tonearm"_s);
    const QApplication application(argc, argv);

    const QString configuration = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    tonearm::TonearmApp app(configuration + u"/settings.json"_s,
                            tonearm::stateFolder() + u"/tonearm/windows.json"_s, tonearm::resourceFolder());
    app.openMainWindow();
    return QApplication::exec();
}
