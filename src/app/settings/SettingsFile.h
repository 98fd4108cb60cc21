// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/DescribedError.h"

#include <QJsonObject>
#include <QString>

#include <utility>

namespace tonearm {

/// Settings that couldn't be written.
class SettingsError : public DescribedError
{
public:
    SettingsError(QString fileName, QString reason)
        : m_fileName(std::move(fileName))
        , m_reason(std::move(reason))
    {
    }

    QString description() const override;
    std::optional<QString> recoverySuggestion() const override;

    bool operator==(const SettingsError &other) const
    {
        return m_fileName == other.m_fileName && m_reason == other.m_reason;
    }

private:
    QString m_fileName;
    QString m_reason;
};

/// What a settings file says.
struct SettingsContents
{
    QJsonObject values = {};
    /// There is something in the file, but no JSON object, or it can't be read.
    bool isDamaged = false;

    bool operator==(const SettingsContents &) const = default;
};

/// Reads a settings file and changes nothing. A file that is missing or empty holds no values.
SettingsContents readSettings(const QString &path);

/// Replaces the file as a whole: at every moment there is the old one or the new one. A new file is
/// private to the user, an existing one keeps its permissions. Throws SettingsError.
void replaceSettings(const QString &path, const QJsonObject &values);

/// Gives a file the first free one of the names "<name>.damaged-1", "-2" ... beside it.
/// Throws SettingsError.
void setAsideDamaged(const QString &path);

/// Where the settings lie: the end of the chain if the path is a link, as those who keep their
/// configuration in one place make them.
QString withoutLinks(const QString &path);

/// Makes a folder with what is missing above it, private to the user. A failure shows when the folder
/// is used.
void makePrivateFolder(const QString &path);

} // namespace tonearm
