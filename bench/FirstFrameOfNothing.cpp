// SPDX-License-Identifier: GPL-3.0-or-later
// An empty window: what any program of this toolkit needs.
#include "bench/FirstFrame.h"

#include <QApplication>
#include <QMainWindow>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(940, 940);
    window.show();
    return tonearm::reportFirstFrame();
}
