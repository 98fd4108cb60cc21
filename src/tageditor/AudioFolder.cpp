// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/AudioFolder.h"

#include "support/NaturalOrder.h"
#include "support/PathText.h"
#include "tageditor/FilePath.h"

#include <QStringList>

#include <filesystem>
#include <system_error>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

using std::filesystem::file_type;

enum class Treatment { edited, skipped, ignored };

Treatment treatmentOf(const QString &extension)
{
    static const QStringList edited = {u"flac"_s, u"mp3"_s, u"m4a"_s};
    static const QStringList skipped = {u"m4b"_s, u"aac"_s,  u"wav"_s, u"aiff"_s, u"aif"_s,
                                        u"ogg"_s, u"opus"_s, u"wma"_s, u"dsf"_s};
    if (edited.contains(extension))
        return Treatment::edited;
    return skipped.contains(extension) ? Treatment::skipped : Treatment::ignored;
}

// Folders, and what would keep a reader waiting. A link to nowhere counts as a file, so that it shows.
bool isNoFile(const std::filesystem::directory_entry &entry)
{
    std::error_code ignored;
    switch (entry.status(ignored).type()) {
    case file_type::directory:
    case file_type::fifo:
    case file_type::socket:
    case file_type::block:
    case file_type::character:
        return true;
    default:
        return false;
    }
}

bool isHidden(const std::filesystem::directory_entry &entry)
{
    return entry.path().filename().native().starts_with('.');
}

struct NamedFile
{
    QString name;
    QUrl url;
};

// Names that differ in case alone still have one order.
QList<QUrl> sorted(QList<NamedFile> files)
{
    const NaturalOrder order;
    std::sort(files.begin(), files.end(), [&](const NamedFile &first, const NamedFile &second) {
        const int result = order.compare(first.name, second.name);
        return result != 0 ? result < 0 : first.name < second.name;
    });
    QList<QUrl> urls;
    urls.reserve(files.size());
    for (NamedFile &file : files)
        urls.append(std::move(file.url));
    return urls;
}

} // namespace

AudioFolderContents audioFolderContents(const QUrl &folder)
{
    QList<NamedFile> files;
    qint64 skippedCount = 0;
    for (const std::filesystem::directory_entry &entry :
         std::filesystem::directory_iterator(nativePath(folder))) {
        const QUrl url = fileURL(entry.path());
        const Treatment treatment = treatmentOf(lowerCaseExtension(url));
        if (treatment == Treatment::ignored || isHidden(entry) || isNoFile(entry))
            continue;
        if (treatment == Treatment::edited)
            files.append({lastPathComponent(url), url});
        else
            ++skippedCount;
    }
    return {.files = sorted(std::move(files)), .skippedCount = skippedCount};
}

} // namespace tonearm
