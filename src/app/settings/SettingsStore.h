// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QMap>
#include <QString>
#include <QStringView>

#include <chrono>
#include <optional>

namespace tonearm {

/// Values kept under keys in a file: one JSON object, in which a flag stays a flag and a number a
/// number, and keys nobody here knows stay as they are.
///
/// The file is read at construction and left alone until the first change. Each change is written at
/// once, from the calling thread: the file is tiny, and the wait for another process that is writing it
/// is bounded. Several processes may share a file; each changes the keys that it sets and no others.
/// A file that can't be understood reads as empty and is kept under another name beside the new one
/// when a change is written, so that reading changes nothing and nothing is lost.
///
/// Not thread-safe.
class SettingsStore
{
public:
    static constexpr std::chrono::milliseconds defaultPatience{200};

    /// `patience` is how long a change waits for another process that is writing the file.
    explicit SettingsStore(QString path, std::chrono::milliseconds patience = defaultPatience);

    /// Tries once more to write what couldn't be written before.
    ~SettingsStore();
    SettingsStore(const SettingsStore &) = delete;
    SettingsStore &operator=(const SettingsStore &) = delete;

    /// Each gives nothing if there is no value under the key or one of another type.
    std::optional<QString> text(QStringView key) const;
    std::optional<bool> flag(QStringView key) const;
    std::optional<qint64> integer(QStringView key) const;

    /// Undefined if there is no value under the key.
    QJsonValue value(QStringView key) const { return m_values.value(key); }

    /// Sets a text, a flag, an integer or any other value; an undefined value removes the key. Throws
    /// SettingsError if the change couldn't be written; the store holds it all the same, and the next
    /// change writes it too.
    void set(QStringView key, const QJsonValue &value);

private:
    void save();

    QString m_path;
    std::chrono::milliseconds m_patience;
    QJsonObject m_values;
    // What was read before the file came to harm, until it is written again.
    QJsonObject m_rescued;
    // Changes that the file doesn't hold yet; undefined stands for a removal.
    QMap<QString, QJsonValue> m_unsaved;
};

} // namespace tonearm
