// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FilePresence.h"

#include "support/Background.h"
#include "support/Cancellation.h"

#include <QFile>
#include <QFileInfo>

#include <array>

#include <sys/inotify.h>
#include <unistd.h>

namespace tonearm {

namespace {

constexpr std::uint32_t comingsAndGoings =
    IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF;

// A folder that is watched already is watched on.
void watchFolderOf(const QString &path, const FileDescriptor &watch)
{
    ::inotify_add_watch(watch.number(), QFile::encodeName(QFileInfo(path).path()).constData(),
                        comingsAndGoings);
}

// What is told about a folder itself has no name.
bool isAbout(const inotify_event &event, const QByteArray &name)
{
    return event.len == 0 || name == event.name;
}

} // namespace

void FilePresence::follow(const std::optional<QString> &path)
{
    ++m_latestLook;
    m_onChange.reset();
    m_watch.reset();
    m_path = path.value_or(QString());
    m_isThere = path.has_value();
    if (!path)
        return;
    startWatch();
    look();
}

// Where the system has no watch left to give, the looks that are asked for remain.
void FilePresence::startWatch()
{
    m_watch = std::make_shared<FileDescriptor>(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (m_watch->number() == -1)
        return;
    m_onChange = std::make_unique<QSocketNotifier>(m_watch->number(), QSocketNotifier::Read);
    QObject::connect(m_onChange.get(), &QSocketNotifier::activated, m_onChange.get(),
                     [this] { readWatch(); });
}

void FilePresence::readWatch()
{
    constexpr std::size_t room = 4096;
    alignas(inotify_event) std::array<char, room> buffer;
    const QByteArray name = QFile::encodeName(QFileInfo(m_path).fileName());
    bool concernsFile = false;
    for (ssize_t size = 0; (size = ::read(m_watch->number(), buffer.data(), buffer.size())) > 0;) {
        const char *const end = buffer.data() + size;
        for (const char *next = buffer.data(); next < end;) {
            const auto &event = *reinterpret_cast<const inotify_event *>(next);
            concernsFile = concernsFile || isAbout(event, name);
            next += sizeof(inotify_event) + event.len;
        }
    }
    if (concernsFile)
        look();
}

void FilePresence::look()
{
    if (!m_watch)
        return;
    const int number = ++m_latestLook;
    m_tasks.start([this, number](std::stop_token stop) -> QCoro::Task<> {
        // The watch first: what changes after the look is then told. There is none where the file has been
        // given up between the task's start and its first step.
        const auto isThere = [path = m_path, watch = m_watch] {
            if (watch)
                watchFolderOf(path, *watch);
            return QFileInfo::exists(path);
        };
        const bool found = co_await inBackground(isThere);
        throwIfCancelled(stop);
        if (number == m_latestLook)
            m_isThere = found;
    });
}

} // namespace tonearm
