// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/CdioDisc.h"

#include "cddafs/CddafsError.h"
#include "cddafs/CueSheet.h"
#include "cddafs/FullToc.h"

#include <cdio/cdio.h>
#include <cdio/logging.h>
#include <cdio/mmc.h>

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <string>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// A sheet has some lines for each of at most 99 tracks.
constexpr qint64 maximumSheetBytes = 1024 * 1024;

// libcdio's own handler ends the program at an error.
void tellErrors(cdio_log_level_t level, const char *message)
{
    if (level >= CDIO_LOG_ERROR)
        std::fprintf(stderr, "tonearm-cddafs: %s\n", message);
}

bool isDrive(const QByteArray &path)
{
    struct stat status = {};
    return ::stat(path.constData(), &status) == 0 && (S_ISBLK(status.st_mode) || S_ISCHR(status.st_mode));
}

void checkSheet(const QByteArray &path)
{
    const QFileInfo info(QFile::decodeName(path));
    if (info.suffix().toLower() != u"cue"_s)
        throw CddafsError(path.toStdString() + " is neither a drive nor a .cue file.");
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly))
        throw CddafsError(path.toStdString() + " can't be opened.");
    const QString binSuffix = info.suffix() == u"CUE"_s ? u".BIN"_s : u".bin"_s;
    const auto problem = cueSheetProblem(file.read(maximumSheetBytes), info.completeBaseName() + binSuffix);
    if (problem)
        throw CddafsError(path.toStdString() + ": " + problem->toStdString());
}

QList<LayoutTrack> tableOf(const CdIo_t *disc)
{
    QList<LayoutTrack> tracks;
    const int first = cdio_get_first_track_num(disc);
    const int count = cdio_get_num_tracks(disc);
    if (first == CDIO_INVALID_TRACK || count == CDIO_INVALID_TRACK)
        return tracks;
    for (int number = first; number < first + count; ++number) {
        const auto track = static_cast<track_t>(number);
        const lsn_t start = cdio_get_track_lsn(disc, track);
        if (start != CDIO_INVALID_LSN)
            tracks.append({.number = number,
                           .start = start,
                           .isAudio = cdio_get_track_format(disc, track) == TRACK_FORMAT_AUDIO});
    }
    return tracks;
}

QByteArray fullTocReply(const CdIo_t *disc)
{
    constexpr int timeoutMilliseconds = 30000;
    constexpr unsigned char fullTableFormat = 2;
    std::array<char, 4096> reply = {};
    mmc_cdb_t command = {};
    command.field[0] = CDIO_MMC_GPCMD_READ_TOC;
    // Positions as minutes, seconds and frames.
    command.field[1] = 2;
    command.field[2] = fullTableFormat;
    command.field[7] = reply.size() >> 8;
    command.field[8] = reply.size() & 0xFF;
    const auto outcome =
        mmc_run_cmd(disc, timeoutMilliseconds, &command, SCSI_MMC_DATA_READ, reply.size(), reply.data());
    return outcome == DRIVER_OP_SUCCESS ? QByteArray(reply.data(), reply.size()) : QByteArray();
}

// Some drives answer nonsense: a full table counts only if it has the same tracks as the plain one.
bool agrees(const DiscLayout &layout, const QList<LayoutTrack> &table)
{
    QList<LayoutTrack> tracks;
    for (const LayoutSession &session : layout.sessions)
        tracks += session.tracks;
    return tracks == table;
}

} // namespace

CdioDisc::CdioDisc(const QByteArray &path)
    : m_path(path)
    , m_isDrive(isDrive(path))
{
    cdio_log_set_handler(tellErrors);
    if (!m_isDrive)
        checkSheet(path);
    m_disc.reset(cdio_open(path.constData(), m_isDrive ? DRIVER_DEVICE : DRIVER_BINCUE));
    if (!m_disc)
        throw CddafsError("There is no disc in " + path.toStdString() + '.');
    m_layout = readLayout();
    m_titles = discTitles(cdio_get_cdtext(m_disc.get()));
    if (m_isDrive)
        m_status = FileDescriptor(::open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
}

DiscLayout CdioDisc::readLayout() const
{
    const QList<LayoutTrack> table = tableOf(m_disc.get());
    if (m_isDrive) {
        const std::optional<DiscLayout> full = readFullToc(fullTocReply(m_disc.get()));
        if (full && agrees(*full, table))
            return *full;
    }
    return layoutOfTable(table, cdio_get_track_lsn(m_disc.get(), CDIO_CDROM_LEADOUT_TRACK));
}

bool CdioDisc::read(qint64 first, qint64 count, char *out)
{
    const std::lock_guard lock(m_mutex);
    return cdio_read_audio_sectors(m_disc.get(), out, static_cast<lsn_t>(first),
                                   static_cast<uint32_t>(count)) == DRIVER_OP_SUCCESS;
}

bool CdioDisc::isPresent() const
{
    if (!m_isDrive)
        return ::access(m_path.constData(), F_OK) == 0;
    if (m_status.number() < 0)
        return true;
    const int status = ::ioctl(m_status.number(), CDROM_DRIVE_STATUS, CDSL_CURRENT);
    // A drive that can't tell isn't held to be empty; one that is gone fails in other ways.
    if (status < 0)
        return errno == ENOSYS;
    return status != CDS_NO_DISC && status != CDS_TRAY_OPEN;
}

void CdioDisc::Close::operator()(_CdIo *disc) const
{
    cdio_destroy(disc);
}

} // namespace tonearm
