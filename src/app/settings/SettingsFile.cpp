// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/settings/SettingsFile.h"

#include "support/Json.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>

#include <filesystem>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// Far more than any settings need; a larger file is none of ours and isn't worth the memory.
constexpr qint64 largestBytes = qint64(1) << 20;

constexpr QFile::Permissions privateFile = QFile::ReadOwner | QFile::WriteOwner;
constexpr QFile::Permissions privateFolder = privateFile | QFile::ExeOwner;

QString nameOf(const QString &path)
{
    return QFileInfo(path).fileName();
}

// A pipe would wait for its other end, and a device or folder is nothing to replace.
bool isSomethingElse(const QFileInfo &info)
{
    return info.exists() && !info.isFile();
}

} // namespace

QString SettingsError::description() const
{
    return u"The settings couldn't be saved to \"%1\": %2."_s.arg(m_fileName, m_reason);
}

std::optional<QString> SettingsError::recoverySuggestion() const
{
    return u"What you set stays in effect until Tonearm quits."_s;
}

SettingsContents readSettings(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return {};
    QFile file(path);
    if (isSomethingElse(info) || info.size() > largestBytes || !file.open(QIODevice::ReadOnly))
        return {.isDamaged = true};
    const QByteArray bytes = file.readAll();
    if (bytes.isEmpty() && file.error() == QFile::NoError)
        return {};
    try {
        return {.values = JsonNode::parse(bytes).object().value().toObject()};
    } catch (const JsonError &) {
        return {.isDamaged = true};
    }
}

void replaceSettings(const QString &path, const QJsonObject &values)
{
    const bool isNew = !QFileInfo::exists(path);
    QSaveFile file(path);
    const QByteArray bytes = QJsonDocument(values).toJson();
    // Without the flush a full disk would go unnoticed: commit() itself doesn't tell of bytes that it
    // couldn't write from its buffer, and puts an empty file in the place of the old one.
    const bool isWritten = file.open(QIODevice::WriteOnly) && (!isNew || file.setPermissions(privateFile)) &&
                           file.write(bytes) == bytes.size() && file.flush() && file.commit();
    if (!isWritten)
        throw SettingsError(nameOf(path), file.errorString());
}

void setAsideDamaged(const QString &path)
{
    if (isSomethingElse(QFileInfo(path)))
        throw SettingsError(nameOf(path), u"There is something else of that name"_s);
    const auto keptPath = [&](int number) { return u"%1.damaged-%2"_s.arg(path).arg(number); };
    int number = 1;
    while (QFileInfo::exists(keptPath(number)) || QFileInfo(keptPath(number)).isSymLink())
        ++number;
    QFile file(path);
    if (!file.rename(keptPath(number)))
        throw SettingsError(nameOf(path), file.errorString());
}

QString withoutLinks(const QString &path)
{
    std::error_code error;
    const std::filesystem::path end =
        std::filesystem::weakly_canonical(QFile::encodeName(path).toStdString(), error);
    return error ? path : QFile::decodeName(QByteArray::fromStdString(end.string()));
}

void makePrivateFolder(const QString &path)
{
    const QFileInfo info(path);
    if (info.exists() || info.isRoot())
        return;
    makePrivateFolder(info.path());
    QDir().mkdir(path, privateFolder);
}

} // namespace tonearm
