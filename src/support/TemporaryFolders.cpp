// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/TemporaryFolders.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr mode_t privateMode = 0700;

QString purposeName(TemporaryFolders::Purpose purpose)
{
    switch (purpose) {
    case TemporaryFolders::Purpose::rips:
        return u"Rips"_s;
    case TemporaryFolders::Purpose::secureRips:
        return u"SecureRips"_s;
    case TemporaryFolders::Purpose::artwork:
        return u"Artwork"_s;
    case TemporaryFolders::Purpose::preflight:
        return u"Preflight"_s;
    case TemporaryFolders::Purpose::previews:
        return u"Previews"_s;
    }
    Q_UNREACHABLE();
}

[[noreturn]] void fail(const QString &path)
{
    throw std::system_error(errno, std::generic_category(), path.toStdString());
}

// Makes the folder or takes one of our own that is there; false if the name is somebody else's.
bool claim(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    if (::mkdir(name.constData(), privateMode) == 0)
        return true;
    if (errno != EEXIST)
        fail(path);
    struct stat found = {};
    if (::lstat(name.constData(), &found) != 0)
        fail(path);
    if (!S_ISDIR(found.st_mode) || found.st_uid != ::geteuid())
        return false;
    return (found.st_mode & 0077) == 0 || ::chmod(name.constData(), privateMode) == 0;
}

QString makeUnique(const QString &prefix)
{
    QByteArray name = QFile::encodeName(prefix + u"-XXXXXX"_s);
    if (::mkdtemp(name.data()) == nullptr)
        fail(prefix);
    return QFile::decodeName(name);
}

} // namespace

TemporaryFolders::TemporaryFolders(QString base)
    : m_base(std::move(base))
{
}

QString TemporaryFolders::root()
{
    const QString wanted = m_base + u"/Tonearm"_s;
    // If that fails, the folder in it can't be made either, and tells why.
    QDir().mkpath(m_base);
    if (m_root.isEmpty() || !claim(m_root))
        m_root = claim(wanted) ? wanted : makeUnique(wanted);
    return m_root;
}

QString TemporaryFolders::folder(Purpose purpose)
{
    const QString path = root() + u'/' + purposeName(purpose);
    if (!claim(path)) {
        errno = EEXIST;
        fail(path);
    }
    return path;
}

} // namespace tonearm
