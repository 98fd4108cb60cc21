// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/settings/SettingsStore.h"

#include "app/settings/FolderLock.h"
#include "app/settings/SettingsFile.h"
#include "support/Json.h"

#include <QFileInfo>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

SettingsStore::SettingsStore(QString path, std::chrono::milliseconds patience)
    : m_path(std::move(path))
    , m_patience(patience)
    , m_values(readSettings(withoutLinks(m_path)).values)
{
}

SettingsStore::~SettingsStore()
{
    try {
        if (!m_unsaved.isEmpty())
            save();
    } catch (const SettingsError &) { // NOLINT(bugprone-empty-catch): told when the change was made
    }
}

std::optional<QString> SettingsStore::text(QStringView key) const
{
    const QJsonValue found = value(key);
    return found.isString() ? std::optional(found.toString()) : std::nullopt;
}

std::optional<bool> SettingsStore::flag(QStringView key) const
{
    const QJsonValue found = value(key);
    return found.isBool() ? std::optional(found.toBool()) : std::nullopt;
}

std::optional<qint64> SettingsStore::integer(QStringView key) const
{
    return wholeNumber(value(key));
}

void SettingsStore::set(QStringView key, const QJsonValue &value)
{
    m_values.insert(key, value);
    m_unsaved.insert(key.toString(), value);
    save();
}

void SettingsStore::save()
{
    const QFileInfo info(m_path);
    makePrivateFolder(info.path());
    const FolderLock lock(info.path(), m_patience);
    if (lock.isRefused())
        throw SettingsError(info.fileName(), u"Another program is writing it"_s);

    const QString path = withoutLinks(m_path);
    const SettingsContents found = readSettings(path);
    // What was read before the file came to harm is better than nothing, also at a later try if this one
    // fails. By then another process may have written something newer.
    if (found.isDamaged)
        m_rescued = m_values;
    QJsonObject values = found.values;
    for (auto value = m_rescued.constBegin(); value != m_rescued.constEnd(); ++value)
        if (!values.contains(value.key()))
            values.insert(value.key(), value.value());
    for (auto change = m_unsaved.cbegin(); change != m_unsaved.cend(); ++change)
        values.insert(change.key(), change.value());
    if (found.isDamaged)
        setAsideDamaged(path);
    replaceSettings(path, values);
    m_values = values;
    m_rescued = {};
    m_unsaved.clear();
}

} // namespace tonearm
