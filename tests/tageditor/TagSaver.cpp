// SPDX-License-Identifier: GPL-3.0-or-later
// Saves two titles in turn, again and again until it is killed:
//   <song> <folder for temporary files>
// Prints a line when it begins.
#include "support/ResourceFolder.h"
#include "tageditor/AudioFileTagService.h"

#include <QCoreApplication>
#include <QStringList>
#include <QUrl>

#include <cstdio>
#include <cstdlib>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

TagWrite writeOf(const QString &title)
{
    return {.metadata = {u"-metadata"_s, u"title="_s + title}, .artwork = {}};
}

QCoro::Task<> saveForEver(AudioFileTagService service, QUrl song)
{
    const EditableAudioFile file{.url = song, .tags = {}, .unreadableReason = {}, .modificationDate = {}};
    const std::stop_token never;
    for (QString title = u"Title A"_s;; title = title == u"Title A"_s ? u"Title B"_s : u"Title A"_s) {
        const TagWrite write = writeOf(title);
        co_await service.write(file, write, false, never);
    }
}

} // namespace

} // namespace tonearm

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const tonearm::AudioFileTagService service(tonearm::ToolLocation(tonearm::resourceFolder()),
                                               arguments.at(2));
    std::puts("begins");
    std::fflush(stdout);
    const auto saving = tonearm::saveForEver(service, QUrl::fromLocalFile(arguments.at(1)));
    return QCoreApplication::exec();
}
