// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/FaultyFiles.h"

#include <chrono>
#include <system_error>
#include <utility>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

template <typename... Arguments>
void callIfSet(const std::function<void(Arguments...)> &function, Arguments... arguments)
{
    if (function)
        function(arguments...);
}

} // namespace

void Gate::pass()
{
    std::unique_lock lock(m_mutex);
    m_isReached = true;
    m_changed.wait_for(lock, std::chrono::minutes(1), [this] { return m_isOpen; });
}

void Gate::open()
{
    const std::lock_guard lock(m_mutex);
    m_isOpen = true;
    m_changed.notify_all();
}

bool Gate::isReached() const
{
    const std::lock_guard lock(m_mutex);
    return m_isReached;
}

void failWith(int number)
{
    throw std::system_error(number, std::generic_category());
}

class FaultyFiles::Source : public ReadableFile
{
public:
    Source(std::shared_ptr<const FaultyFiles> owner, std::unique_ptr<ReadableFile> file)
        : m_owner(std::move(owner))
        , m_file(std::move(file))
    {
    }

    ~Source() override { m_owner->note(u"close"_s); }

    QByteArray read(qint64 size) override
    {
        const QByteArray bytes = m_owner->read(*m_file, m_offset, size);
        m_offset += bytes.size();
        m_file->seek(m_offset);
        return bytes;
    }

    void seek(qint64 offset) override
    {
        m_owner->note(u"seek "_s + QString::number(offset));
        callIfSet(m_owner->onSeek, m_owner->next(m_owner->m_seeks));
        m_file->seek(offset);
        m_offset = offset;
    }

private:
    const std::shared_ptr<const FaultyFiles> m_owner;
    const std::unique_ptr<ReadableFile> m_file;
    qint64 m_offset = 0;
};

class FaultyFiles::Destination : public WritableFile
{
public:
    Destination(std::shared_ptr<const FaultyFiles> owner, std::unique_ptr<WritableFile> file)
        : m_owner(std::move(owner))
        , m_file(std::move(file))
    {
    }

    void write(QByteArrayView bytes) override
    {
        callIfSet(m_owner->onWrite, m_owner->next(m_owner->m_writes));
        m_file->write(bytes);
    }

    void truncate(qint64 size) override
    {
        m_owner->note(u"truncate "_s + QString::number(size));
        callIfSet(m_owner->onTruncate);
        m_file->truncate(size);
    }

private:
    const std::shared_ptr<const FaultyFiles> m_owner;
    const std::unique_ptr<WritableFile> m_file;
};

bool FaultyFiles::isReadable(const QString &path) const
{
    callIfSet(onEverything);
    return m_system.isReadable(path);
}

std::optional<qint64> FaultyFiles::size(const QString &path) const
{
    callIfSet(onEverything);
    return isSizeKnown ? m_system.size(path) : std::nullopt;
}

std::unique_ptr<ReadableFile> FaultyFiles::open(const QString &path) const
{
    note(u"open"_s);
    callIfSet(onOpen, next(m_opens));
    return std::make_unique<Source>(shared_from_this(), m_system.open(path));
}

std::unique_ptr<WritableFile> FaultyFiles::create(const QString &path) const
{
    callIfSet(onCreate);
    return std::make_unique<Destination>(shared_from_this(), m_system.create(path));
}

void FaultyFiles::note(const QString &entry) const
{
    callIfSet(onEverything);
    const std::lock_guard lock(m_mutex);
    m_log.append(entry);
}

QStringList FaultyFiles::log() const
{
    const std::lock_guard lock(m_mutex);
    return m_log;
}

QList<qint64> FaultyFiles::readSizes() const
{
    const std::lock_guard lock(m_mutex);
    return m_readSizes;
}

QByteArray FaultyFiles::read(ReadableFile &file, qint64 offset, qint64 size) const
{
    note(u"read "_s + QString::number(size));
    const int index = next(m_reads);
    {
        const std::lock_guard lock(m_mutex);
        m_readSizes.append(size);
    }
    const QByteArray bytes = file.read(size);
    return onRead ? onRead({.index = index, .offset = offset, .size = size, .bytes = bytes}) : bytes;
}

int FaultyFiles::next(int &counter) const
{
    const std::lock_guard lock(m_mutex);
    return counter++;
}

} // namespace tonearm::test
