// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/CommandLine.h"

#include <string>
#include <utility>

namespace tonearm {

namespace {

QByteArray takeValue(QList<QByteArray> &arguments, const char *option)
{
    if (arguments.isEmpty() || arguments.front().isEmpty())
        throw UsageError(std::string(option) + " needs a value.");
    return arguments.takeFirst();
}

pid_t takeProcess(QList<QByteArray> &arguments, const char *option)
{
    bool isNumber = false;
    const int process = takeValue(arguments, option).toInt(&isNumber);
    if (!isNumber || process <= 0)
        throw UsageError(std::string(option) + " needs the number of a process.");
    return process;
}

// The arguments that are no options, in their order.
QList<QByteArray> takeOptions(CommandLine &line, QList<QByteArray> arguments)
{
    QList<QByteArray> operands;
    while (!arguments.isEmpty()) {
        const QByteArray argument = arguments.takeFirst();
        if (argument == "--")
            return operands + arguments;
        if (argument == "--help")
            line.task = CommandLine::Task::showHelp;
        else if (argument == "--version")
            line.task = CommandLine::Task::showVersion;
        else if (argument == "--background")
            line.isBackground = true;
        else if (argument == "--in")
            line.parentFolder = takeValue(arguments, "--in");
        else if (argument == "--parent")
            line.parentProcess = takeProcess(arguments, "--parent");
        else if (argument.startsWith('-'))
            throw UsageError("There is no option " + argument.toStdString() + '.');
        else
            operands.append(argument);
    }
    return operands;
}

} // namespace

CommandLine parseCommandLine(QList<QByteArray> arguments)
{
    CommandLine line;
    const QList<QByteArray> operands = takeOptions(line, std::move(arguments));
    if (line.task != CommandLine::Task::mount)
        return line;
    if (line.isBackground && line.parentProcess)
        throw UsageError("--background and --parent exclude each other.");
    if (operands.size() != (line.parentFolder.isEmpty() ? 2 : 1) || operands.contains(QByteArray()))
        throw UsageError("A disc and a place for it are needed.");
    line.disc = operands.front();
    if (line.parentFolder.isEmpty())
        line.mountPoint = operands.back();
    return line;
}

const char *helpText()
{
    return R"(Shows an audio CD as a folder of AIFF files.

usage: tonearm-cddafs [--background | --parent <process>] <disc> <mount point>
       tonearm-cddafs [--background | --parent <process>] --in <folder> <disc>

<disc> is a drive, such as /dev/sr0, or a disc image: a .cue file with its .bin beside it.

  --in <folder>       make the mount point in a folder, named like the disc, and remove it at the end;
                      its path is printed as soon as the disc is mounted
  --parent <process>  end when this process ends, which has to be the one that starts this program
  --background        return at once, and stay until the volume is unmounted: fusermount3 -u <mount point>
  --help, --version

Without --background the volume goes with the program that started this one, with Ctrl-C, or with the disc.
)";
}

} // namespace tonearm
