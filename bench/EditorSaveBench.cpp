// SPDX-License-Identifier: GPL-3.0-or-later
// Saving one field of two hundred songs in the tag editor's model, beside a shell loop of the very commands
// that such a save has been seen to run.
#include "EditorSongs.h"
#include "Shell.h"
#include "Turns.h"
#include "Waiting.h"
#include "helpers/Contents.h"
#include "helpers/EditorFixture.h"
#include "helpers/StandInTools.h"

#include <gtest/gtest.h>

#include <QGuiApplication>

#include <cstdio>
#include <stdexcept>

using namespace tonearm;
using namespace tonearm::bench;
using namespace tonearm::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int turns = 3;
constexpr int songCount = 200;

// Tools that write down how they are called, each call as a line of the shell, and are the real ones besides.
class LoggedTools
{
public:
    LoggedTools()
    {
        for (const char *tool : {"ffmpeg", "ffprobe"}) {
            const QString path = shippedTools().toolURL(QString::fromLatin1(tool)).toLocalFile();
            // One write, so that the lines of calls at the same time don't mix.
            m_tools.add(QString::fromLatin1(tool), "real=" + quoted(path).toUtf8() +
                                                       "\nline=$real\nfor word; do line=\"$line '$word'\"; "
                                                       "done\necho \"$line\" >>\"$here/calls\"\n"
                                                       "exec \"$real\" \"$@\"\n");
        }
    }

    ToolLocation location() const { return m_tools.location(); }

    void forget() { writeFile(m_tools.path(u"calls"_s), {}); }

    QList<QByteArray> calls() const
    {
        QList<QByteArray> lines = readFile(m_tools.path(u"calls"_s)).split('\n');
        lines.removeLast();
        return lines;
    }

private:
    StandInTools m_tools;
};

void open(EditorFixture &fixture)
{
    MetadataEditorModel &model = fixture.model();
    model.openFolder(fixture.songs().url());
    waitUntil([&] { return !model.isLoading.value(); });
}

void save(EditorFixture &fixture, const QString &album)
{
    MetadataEditorModel &model = fixture.model();
    model.setValue(album, EditableTagField::album);
    model.save();
    waitUntil([&] { return !model.isSaving.value() && !model.hasPendingChanges(); });
    if (model.files.value().first().tags.album != album || !model.saveFailures.value().isEmpty())
        throw std::runtime_error("a save has failed");
}

// The writing calls one after the other, and those that read the folder again at the end four at a time, as
// the model makes them.
QString scriptOf(const EditorFixture &fixture, const QList<QByteArray> &calls)
{
    const qsizetype writingCount = calls.size() - songCount;
    const QString script = fixture.path(u"calls.sh"_s);
    const QString readings = fixture.path(u"readings"_s);
    QByteArray loop = calls.first(writingCount).join(" >/dev/null 2>&1 </dev/null || exit 1\n") +
                      " >/dev/null 2>&1 </dev/null || exit 1\n";
    QByteArray list;
    for (const QByteArray &call : calls.sliced(writingCount))
        list += call.sliced(call.indexOf(' ') + 1) + '\n';
    writeFile(readings, list);
    const QString ffprobe = shippedTools().toolURL(u"ffprobe"_s).toLocalFile();
    loop += u"xargs -P 4 -L 1 %1 <%2 >/dev/null\n"_s.arg(quoted(ffprobe), quoted(readings)).toUtf8();
    writeFile(script, loop);
    return script;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    GTEST_FLAG_SET(throw_on_failure, true);
    LoggedTools tools;
    EditorFixture watched(tools.location());
    makeSongs(watched, songCount);
    open(watched);
    tools.forget();
    save(watched, u"The First Album"_s);
    const QList<QByteArray> calls = tools.calls();
    const QString line = u"sh "_s + quoted(scriptOf(watched, calls));

    EditorFixture fixture;
    makeSongs(fixture, songCount);
    open(fixture);
    int turn = 0;
    const Comparison times = inTurns(
        turns, [&] { runShell(line); }, [&] { save(fixture, u"Album %1"_s.arg(++turn)); });
    std::printf("%d songs, %lld commands, milliseconds, median of %d turns\n\n", songCount,
                static_cast<long long>(calls.size()), turns);
    std::printf("%12s %10s %8s\n", "shell loop", "save", "ratio");
    std::printf("%12.0f %10.0f %8.2f\n", times.bare.count(), times.own.count(), times.ratio());
    watched.dropModel();
    fixture.dropModel();
    return 0;
}
