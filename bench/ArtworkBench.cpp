// SPDX-License-Identifier: GPL-3.0-or-later
// How long a large picture takes to be made small enough, and how much memory, beside ImageMagick.
#include "artwork/ArtworkFolder.h"
#include "artwork/CoverArtPreparation.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QUrl>

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <system_error>
#include <utility>
#include <vector>

namespace tonearm {

namespace {

using namespace Qt::StringLiterals;
using Seconds = std::chrono::duration<double>;

constexpr qint64 budget = 600 * 1024;
constexpr int turns = 5;
const QString jpegName = u"photo.jpg"_s;
const QString pngName = u"scan.png"_s;

// What one process took.
struct Cost
{
    Seconds time{};
    double megabytes = 0;
};

Cost costOf(const QStringList &command)
{
    std::vector<QByteArray> words;
    std::ranges::transform(command, std::back_inserter(words),
                           [](const QString &word) { return word.toUtf8(); });
    std::vector<char *> arguments;
    std::ranges::transform(words, std::back_inserter(arguments),
                           [](QByteArray &word) { return word.data(); });
    arguments.push_back(nullptr);
    const auto begin = std::chrono::steady_clock::now();
    pid_t child = 0;
    const int error = ::posix_spawnp(&child, arguments.front(), nullptr, nullptr, arguments.data(), environ);
    if (error != 0)
        throw std::system_error(error, std::generic_category(), arguments.front());
    int status = 0;
    rusage usage = {};
    if (::wait4(child, &status, 0, &usage) != child || status != 0)
        throw std::runtime_error("a child failed");
    constexpr double kilobytesPerMegabyte = 1000;
    return {.time = std::chrono::steady_clock::now() - begin,
            .megabytes = static_cast<double>(usage.ru_maxrss) / kilobytesPerMegabyte};
}

// The median of each over the turns.
Cost medianOf(std::vector<Cost> costs)
{
    const auto middle = costs.begin() + static_cast<std::ptrdiff_t>(costs.size() / 2);
    std::ranges::nth_element(costs, middle, {}, &Cost::time);
    const Seconds time = middle->time;
    std::ranges::nth_element(costs, middle, {}, &Cost::megabytes);
    return {.time = time, .megabytes = middle->megabytes};
}

// Soft shapes with the grain of a scan or a photograph, of so many levels up and down.
QImage grainyPicture(int side, int grain)
{
    constexpr int levels = 256;
    QRandomGenerator random(1);
    QImage image(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < side; ++x) {
            const double wave = std::sin(x / 170.0) * std::cos(y / 230.0);
            const auto level = [&](double share) {
                const int noise = random.bounded(2 * grain + 1) - grain;
                return std::clamp(static_cast<int>(128 + 100 * wave * share) + noise, 0, levels - 1);
            };
            line[x] = qRgb(level(1), level(0.6), level(-0.4));
        }
    }
    return image;
}

void write(const QString &path, const char *format, int quality, int grain)
{
    constexpr int side = 4000;
    QImageWriter writer(path, format);
    writer.setQuality(quality);
    if (!writer.write(grainyPicture(side, grain)))
        throw std::runtime_error("a picture couldn't be written");
}

double megabytesOf(const QString &path)
{
    constexpr double bytesPerMegabyte = 1e6;
    return static_cast<double>(QFileInfo(path).size()) / bytesPerMegabyte;
}

void printRow(const QString &picture, const QString &folder)
{
    const QString itself = QCoreApplication::applicationFilePath();
    const QString output = folder + u"/convert.jpg"_s;
    const QStringList prepare{itself, picture, folder};
    const QStringList convert{u"convert"_s,           picture, u"-resize"_s, u"1400x1400"_s, u"-define"_s,
                              u"jpeg:extent=600kb"_s, output};
    std::vector<Cost> ours;
    std::vector<Cost> theirs;
    for (int turn = 0; turn < turns; ++turn) {
        theirs.push_back(costOf(convert));
        ours.push_back(costOf(prepare));
    }
    const Cost own = medianOf(std::move(ours));
    const Cost other = medianOf(std::move(theirs));
    std::printf("%-12s %6.1f %10.2f %10.2f %6.2f %12.0f %12.0f %6.2f\n",
                qPrintable(QFileInfo(picture).fileName()), megabytesOf(picture), other.time.count(),
                own.time.count(), own.time / other.time, other.megabytes, own.megabytes,
                own.megabytes / other.megabytes);
}

int makePictures(const QString &folder)
{
    constexpr int highQuality = 97;
    write(folder + u'/' + jpegName, "jpeg", highQuality, 16);
    write(folder + u'/' + pngName, "png", -1, 8);
    return EXIT_SUCCESS;
}

int measureAll()
{
    const QTemporaryDir folder;
    // Not in this process: its own peak would be counted into its children's.
    costOf({QCoreApplication::applicationFilePath(), folder.path()});
    std::printf("4000 x 4000 pixels to 600 KB, seconds and the most megabytes of memory\n\n");
    std::printf("%-12s %6s %10s %10s %6s %12s %12s %6s\n", "picture", "MB", "convert", "prepare", "ratio",
                "convert MB", "prepare MB", "ratio");
    printRow(folder.filePath(jpegName), folder.path());
    printRow(folder.filePath(pngName), folder.path());
    return EXIT_SUCCESS;
}

int prepareOne(const QString &picture, const QString &folder)
{
    const CoverArtPreparation preparation(std::make_shared<ArtworkFolder>(folder));
    const PreparedCoverArt prepared = preparation.prepare(QUrl::fromLocalFile(picture), budget);
    return prepared.byteCount <= budget ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

} // namespace tonearm

// Without arguments it measures; it starts itself with a folder to make the pictures in, and with a picture
// and a folder to prepare it.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    switch (arguments.size()) {
    case 1:
        return tonearm::measureAll();
    case 2:
        return tonearm::makePictures(arguments.at(1));
    default:
        return tonearm::prepareOne(arguments.at(1), arguments.at(2));
    }
}
