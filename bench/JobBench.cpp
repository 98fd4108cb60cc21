// SPDX-License-Identifier: GPL-3.0-or-later
// A job of twelve chapters on an hour of 24-bit, 96 kHz FLAC, through the model as the window uses it and
// as a shell loop of the same ffmpeg commands.
#include "Shell.h"
#include "Waiting.h"
#include "app/TonearmApp.h"
#include "app/settings/AppSettings.h"
#include "app/settings/SettingsStore.h"
#include "encoding/FFmpegArguments.h"
#include "support/ResourceFolder.h"
#include "workflow/AppModel.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

using namespace tonearm;
using namespace tonearm::bench;
using namespace Qt::StringLiterals;

namespace {

constexpr int chapterCount = 12;
constexpr int chapterSeconds = 300;

QString makeSource(const QTemporaryDir &folder)
{
    const QString source = folder.filePath(u"source.mkv"_s);
    QFile list(folder.filePath(u"chapters.txt"_s));
    if (!list.open(QIODevice::WriteOnly))
        std::exit(1);
    list.write(";FFMETADATA1\n");
    for (int index = 0; index < chapterCount; ++index) {
        list.write(QByteArray("[CHAPTER]\nTIMEBASE=1/1\nSTART=") +
                   QByteArray::number(index * chapterSeconds) +
                   "\nEND=" + QByteArray::number((index + 1) * chapterSeconds) + "\ntitle=Chapter " +
                   QByteArray::number(index + 1) + "\n");
    }
    list.close();
    runShell(u"ffmpeg -hide_banner -v error -f lavfi -i "
             "'aevalsrc=0.4*sin(220*t)+0.05*random(0)|0.4*sin(330*t)+0.05*random(1):s=96000:d=%1' "
             "-i '%2' -map 0:a -map_metadata 1 -c:a flac -sample_fmt s32 -bits_per_raw_sample 24 '%3'"_s.arg(
                 QString::number(chapterCount * chapterSeconds), list.fileName(), source));
    return source;
}

qint64 millisecondsOfJob(AppModel &model)
{
    QDir(model.outputFolderURL.value()->toLocalFile()).removeRecursively();
    model.completion = std::nullopt;
    QElapsedTimer clock;
    clock.start();
    model.startEncoding();
    waitUntil([&] { return model.completion.value().has_value() || model.alert.value().has_value(); });
    if (!model.completion.value()) {
        std::fprintf(stderr, "the job failed: %s\n", qPrintable(model.alert.value()->message));
        std::exit(1);
    }
    return clock.elapsed();
}

qint64 millisecondsOfShellLoop(const AppModel &model, const QString &script, const QString &output)
{
    QFile file(script);
    if (!file.open(QIODevice::WriteOnly))
        std::exit(1);
    const QString ffmpeg = *resourceFolder() + u"/bin/ffmpeg"_s;
    const QList<ChapterInfo> chapters = model.chapters.value();
    for (qsizetype index = 0; index < chapters.size(); ++index) {
        TrackEncoding track;
        track.chapter = chapters[index];
        track.source = *model.inputFileURL.value();
        track.output = QUrl::fromLocalFile(output + u"/%1.flac"_s.arg(index));
        track.metadata = model.currentMetadata();
        track.number = index + 1;
        track.total = chapters.size();
        QString line = u"'%1'"_s.arg(ffmpeg);
        for (const QString &argument : ffmpegArguments(track))
            line += u" '%1'"_s.arg(argument);
        file.write((line + u" 2>/dev/null </dev/null\n"_s).toUtf8());
    }
    file.close();
    QElapsedTimer clock;
    clock.start();
    runShell(u"sh '%1'"_s.arg(script));
    return clock.elapsed();
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString settingsFile = folder.filePath(u"settings.json"_s);
    {
        SettingsStore store(settingsFile);
        AppSettings(store).setOrganizeIntoArtistAlbumFolders(false);
    }
    TonearmApp app(settingsFile, folder.filePath(u"windows.json"_s), resourceFolder());
    AppModel &model = app.model();
    model.outputFolderURL = QUrl::fromLocalFile(folder.filePath(u"job"_s));
    model.checkFFmpeg();
    model.loadFile(QUrl::fromLocalFile(makeSource(folder)));
    waitUntil([&] { return model.canEncode(); });
    QDir(folder.path()).mkdir(u"loop"_s);

    // In turns, so that neither has the warmer cache.
    constexpr int turns = 2;
    qint64 loop = 0;
    qint64 job = 0;
    for (int turn = 0; turn < turns; ++turn) {
        loop += millisecondsOfShellLoop(model, folder.filePath(u"loop.sh"_s), folder.filePath(u"loop"_s));
        job += millisecondsOfJob(model);
    }
    std::printf("%d jobs of %d chapters: %.2f s, shell loops: %.2f s, ratio %.3f\n", turns, chapterCount,
                static_cast<double>(job) / 1000, static_cast<double>(loop) / 1000,
                static_cast<double>(job) / static_cast<double>(loop));
    return 0;
}
