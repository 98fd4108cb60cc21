// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/LaunchRequest.h"

#include <QCommandLineParser>
#include <QDir>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

void setUp(QCommandLineParser &parser)
{
    // Otherwise "-reverse", an option of Qt's, would ask for "-v" among others.
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.setApplicationDescription(
        u"Turns chaptered Matroska files and audio CDs into tagged FLAC files."_s);
    parser.addOption({{u"h"_s, u"help"_s}, u"Show this text."_s});
    parser.addOption({{u"v"_s, u"version"_s}, u"Show the version."_s});
    parser.addPositionalArgument(u"file"_s, u"A Matroska file (.mkv) to begin with."_s, u"[file]"_s);
}

} // namespace

LaunchText launchTextAskedFor(const QStringList &words)
{
    QCommandLineParser parser;
    setUp(parser);
    // It fails at Qt's own options, but has then read the others.
    parser.parse(words);
    if (parser.isSet(u"help"_s))
        return LaunchText::help;
    return parser.isSet(u"version"_s) ? LaunchText::version : LaunchText::none;
}

QString launchHelpText()
{
    QCommandLineParser parser;
    setUp(parser);
    return parser.helpText();
}

LaunchRequest readLaunchRequest(const QStringList &words, const QString &folder)
{
    QCommandLineParser parser;
    setUp(parser);
    if (!parser.parse(words))
        return {.file = {}, .problem = parser.errorText()};
    const QStringList files = parser.positionalArguments();
    if (files.size() > 1)
        return {.file = {}, .problem = u"Only one file can be opened at a time."_s};
    if (files.isEmpty() || files.front().isEmpty())
        return {};
    const QString path = QDir::cleanPath(QDir(folder).absoluteFilePath(files.front()));
    return {.file = QUrl::fromLocalFile(path), .problem = {}};
}

} // namespace tonearm
