// SPDX-License-Identifier: GPL-3.0-or-later
#include "cddafs/FuseVolume.h"

#include "cddafs/CddafsError.h"
#include "cddafs/TrackReader.h"

#define FUSE_USE_VERSION 35
#include <fuse.h>

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace tonearm {

namespace {

constexpr mode_t fileMode = 0444;
constexpr mode_t folderMode = 0555;
// A disc doesn't change as long as it is mounted.
constexpr double namesStaySeconds = 86400;

FuseVolume &volume()
{
    return *static_cast<FuseVolume *>(fuse_get_context()->private_data);
}

TrackReader *readerOf(const fuse_file_info *info)
{
    return reinterpret_cast<TrackReader *>(info->fh);
}

void fill(struct stat &status, mode_t mode, qint64 size)
{
    status = {};
    status.st_mode = mode;
    status.st_nlink = S_ISDIR(mode) ? 2 : 1;
    status.st_uid = ::getuid();
    status.st_gid = ::getgid();
    status.st_size = size;
    status.st_blocks = (size + 511) / 512;
}

void *onInit(fuse_conn_info *, fuse_config *config)
{
    config->entry_timeout = namesStaySeconds;
    config->attr_timeout = namesStaySeconds;
    config->negative_timeout = namesStaySeconds;
    return fuse_get_context()->private_data;
}

int onGetAttributes(const char *path, struct stat *status, fuse_file_info *)
{
    if (std::strcmp(path, "/") == 0) {
        fill(*status, S_IFDIR | folderMode, 0);
        return 0;
    }
    const VolumeFile *file = volume().find(path);
    if (!file)
        return -ENOENT;
    fill(*status, S_IFREG | fileMode, file->size);
    return 0;
}

int onReadFolder(const char *, void *buffer, fuse_fill_dir_t add, off_t, fuse_file_info *, fuse_readdir_flags)
{
    constexpr auto plain = static_cast<fuse_fill_dir_flags>(0);
    add(buffer, ".", nullptr, 0, plain);
    add(buffer, "..", nullptr, 0, plain);
    struct stat status = {};
    status.st_mode = S_IFREG;
    for (const VolumeFile &file : volume().files())
        add(buffer, file.name.constData(), &status, 0, plain);
    return 0;
}

int onOpen(const char *path, fuse_file_info *info)
{
    const VolumeFile *file = volume().find(path);
    if (!file)
        return -ENOENT;
    if ((info->flags & O_ACCMODE) != O_RDONLY)
        return -EROFS;
    if (!file->track)
        return 0;
    info->fh = reinterpret_cast<std::uint64_t>(&volume().open(*file->track));
    // Past the kernel's cache: a second reading has to come from the disc.
    info->direct_io = 1;
    return 0;
}

int readContents(const QByteArray &contents, char *out, qint64 size, qint64 offset)
{
    const qint64 count = std::clamp<qint64>(contents.size() - offset, 0, size);
    if (count > 0)
        std::memcpy(out, contents.constData() + offset, static_cast<size_t>(count));
    return static_cast<int>(count);
}

int onRead(const char *path, char *out, size_t size, off_t offset, fuse_file_info *info)
{
    TrackReader *reader = readerOf(info);
    if (!reader)
        return readContents(volume().find(path)->contents, out, static_cast<qint64>(size), offset);
    const std::optional<qint64> count = reader->read(offset, static_cast<qint64>(size), out);
    return count ? static_cast<int>(*count) : -EIO;
}

int onRelease(const char *, fuse_file_info *info)
{
    volume().close(readerOf(info));
    return 0;
}

int onStatus(const char *, struct statvfs *status)
{
    constexpr unsigned long block = 4096;
    qint64 bytes = 0;
    for (const VolumeFile &file : volume().files())
        bytes += file.size;
    *status = {};
    status->f_bsize = block;
    status->f_frsize = block;
    status->f_blocks = (static_cast<unsigned long>(bytes) + block - 1) / block;
    status->f_files = static_cast<unsigned long>(volume().files().size());
    status->f_namemax = 255;
    return 0;
}

constexpr fuse_operations operations()
{
    fuse_operations table = {};
    table.init = onInit;
    table.getattr = onGetAttributes;
    table.readdir = onReadFolder;
    table.open = onOpen;
    table.read = onRead;
    table.release = onRelease;
    table.statfs = onStatus;
    return table;
}

QByteArray mountOptions(const QByteArray &source)
{
    char *options = nullptr;
    fuse_opt_add_opt(&options, "ro,nosuid,nodev,default_permissions,subtype=cddafs");
    const QByteArray name = "fsname=" + source;
    fuse_opt_add_opt_escaped(&options, name.constData());
    const QByteArray result(options);
    std::free(options);
    return result;
}

} // namespace

FuseVolume::FuseVolume(QList<VolumeFile> files, SectorSource &sectors, const QByteArray &source,
                       const QByteArray &mountPoint)
    : m_files(std::move(files))
    , m_sectors(sectors)
{
    for (const VolumeFile &file : m_files)
        m_byPath['/' + file.name] = &file;

    QByteArray options = mountOptions(source);
    std::array<char, 15> program = {"tonearm-cddafs"};
    std::array<char, 3> option = {"-o"};
    std::array<char *, 3> words = {program.data(), option.data(), options.data()};
    fuse_args arguments = FUSE_ARGS_INIT(static_cast<int>(words.size()), words.data());
    const fuse_operations table = operations();
    m_fuse.reset(fuse_new(&arguments, &table, sizeof table, this));
    fuse_opt_free_args(&arguments);
    if (!m_fuse)
        throw CddafsError("The volume can't be made.");
    // Before there is a mount, so that no signal can end the program and leave it behind.
    fuse_set_signal_handlers(fuse_get_session(m_fuse.get()));
    if (fuse_mount(m_fuse.get(), mountPoint.constData()) != 0)
        throw CddafsError(mountPoint.toStdString() + " can't be mounted on.");
}

FuseVolume::~FuseVolume()
{
    fuse_unmount(m_fuse.get());
    fuse_remove_signal_handlers(fuse_get_session(m_fuse.get()));
}

void FuseVolume::goToBackground()
{
    if (fuse_daemonize(0) != 0)
        throw CddafsError("The program can't go to the background.");
}

void FuseVolume::serve()
{
    fuse_loop_config config = {.clone_fd = 0, .max_idle_threads = 4};
    fuse_loop_mt(m_fuse.get(), &config);
}

const VolumeFile *FuseVolume::find(const QByteArray &path) const
{
    const auto found = m_byPath.find(path);
    return found == m_byPath.end() ? nullptr : found->second;
}

TrackReader &FuseVolume::open(const AudioTrack &track)
{
    auto reader = std::make_unique<TrackReader>(m_sectors, track);
    TrackReader &opened = *reader;
    const std::scoped_lock lock(m_lock);
    m_readers.emplace(&opened, std::move(reader));
    return opened;
}

void FuseVolume::close(const TrackReader *reader)
{
    const std::scoped_lock lock(m_lock);
    m_readers.erase(reader);
}

void FuseVolume::Destroy::operator()(fuse *handle) const
{
    fuse_destroy(handle);
}

} // namespace tonearm
