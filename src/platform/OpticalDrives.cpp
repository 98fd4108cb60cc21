// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/OpticalDrives.h"

#include "platform/MountTable.h"
#include "support/Background.h"

#include <QStandardPaths>

#include <algorithm>
#include <optional>
#include <system_error>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// What is mounted there. Throws std::system_error if nothing is.
QString sourceOf(const QUrl &volumeURL)
{
    const QUrl plain = volumeURL.adjusted(QUrl::StripTrailingSlash);
    for (const MountedVolume &volume : MountTable().volumes())
        if (volume.url == plain)
            return volume.source;
    throw std::system_error(std::make_error_code(std::errc::no_such_file_or_directory));
}

QUrl fusermount()
{
    return QUrl::fromLocalFile(QStandardPaths::findExecutable(u"fusermount3"_s));
}

} // namespace

OpticalDrives::OpticalDrives(const QUrl &program, const QString &folder)
    : m_mounts(program, folder)
{
}

OpticalDrives::~OpticalDrives()
{
    // While the tasks end, changes begin no new one.
    m_isAsking = true;
}

void OpticalDrives::follow(const QDBusConnection &bus)
{
    m_udisks.emplace(bus, [this] { refresh(); });
    refresh();
}

void OpticalDrives::refresh()
{
    m_hasChangedMeanwhile = true;
    if (std::exchange(m_isAsking, true))
        return;
    m_tasks.start([this](std::stop_token stop) { return followDrives(std::move(stop)); });
}

QCoro::Task<> OpticalDrives::followDrives(std::stop_token stop)
{
    try {
        while (std::exchange(m_hasChangedMeanwhile, false)) {
            const UDisksObjects objects = co_await m_udisks->objects(stop);
            m_mounts.keepOnly(audioDiscs(objects));
        }
    } catch (const UDisksError &) { // NOLINT(bugprone-empty-catch): without the service nothing is new
    }
    m_isAsking = false;
}

QCoro::Task<> OpticalDrives::eject(QUrl volumeURL, std::stop_token stop)
{
    const auto lookup = [volumeURL] { return sourceOf(volumeURL); };
    const QString source = co_await inBackground(lookup);
    co_await unmount(volumeURL, source, stop);
    try {
        co_await open(source, stop);
    } catch (...) {
        // It is still in there, and so has to be found again.
        m_mounts.mountAgain(source);
        throw;
    }
}

QCoro::Task<> OpticalDrives::unmount(QUrl volumeURL, QString source, std::stop_token stop)
{
    if (m_mounts.contains(source)) {
        co_await m_mounts.unmount(source);
        co_return;
    }
    const QUrl program = co_await inBackground(fusermount);
    // Lazily: whoever ejects a disc takes it from under its reader.
    const QStringList arguments = {u"-u"_s, u"-z"_s, u"--"_s, volumeURL.toLocalFile()};
    co_await m_processRunner.run(program, arguments, nullptr, stop);
}

QCoro::Task<> OpticalDrives::open(QString source, std::stop_token stop)
{
    // An image needs no drive to open, and nobody who knows of drives.
    const bool isDevice = source.startsWith("/dev/"_L1);
    std::optional<QString> drive;
    try {
        if (m_udisks) {
            const UDisksObjects objects = co_await m_udisks->objects(stop);
            drive = driveOf(objects, source);
        }
    } catch (const UDisksError &) {
        if (isDevice)
            throw;
    }
    if (drive)
        co_await m_udisks->eject(*drive, stop);
    else if (isDevice)
        throw std::system_error(std::make_error_code(std::errc::no_such_device));
}

} // namespace tonearm
