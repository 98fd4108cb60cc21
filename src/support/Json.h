// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/DescribedError.h"

#include <QJsonValue>
#include <QList>
#include <QString>

#include <optional>

namespace tonearm {

/// JSON that isn't what its reader expects. The description tells the place and what was found there.
class JsonError : public DescribedError
{
public:
    enum class Kind {
        /// The bytes are no JSON document.
        corrupted,
        typeMismatch,
        /// A null where a value has to be.
        missingValue,
        /// No value at all where one has to be.
        keyNotFound,
        /// What a reader finds wrong for reasons of its own.
        other
    };

    explicit JsonError(QString message)
        : JsonError(Kind::other, std::move(message))
    {
    }

    JsonError(Kind errorKind, QString message, QString place = {}, QString name = {})
        : kind(errorKind)
        , path(std::move(place))
        , key(std::move(name))
        , m_message(std::move(message))
    {
    }

    QString description() const override { return m_message; }

    Kind kind;
    /// Where it is, as JsonNode tells places; empty at the top and for corrupted.
    QString path;
    /// The last step of the path, for keyNotFound only.
    QString key;

private:
    QString m_message;
};

/// The value as a whole number, however it is written (2, 2.0, 2e0); nothing for a fraction, a number
/// beyond a signed 64-bit integer, and a value that is no number.
std::optional<qint64> wholeNumber(const QJsonValue &value);

/// A value in a JSON document together with its place, read strictly: a key that is absent or null is
/// absent, one of the wrong type is an error that names the place. Keys nobody asks for are ignored.
///
/// The place is told as keys joined with ".", a place in an array as "Index <n>" from 0.
class JsonNode
{
public:
    /// Throws JsonError if the bytes aren't one JSON document.
    static JsonNode parse(const QByteArray &bytes);

    /// The value under a key of this object; nothing if absent or null. Throws if this is no object.
    std::optional<JsonNode> find(const QString &key) const;

    /// The elements of this array. Throws if this is none.
    QList<JsonNode> elements() const;

    QString text() const;
    qint64 integer() const;
    double number() const;
    bool flag() const;

    /// Throws if this is no object.
    const JsonNode &object() const;

    std::optional<QString> findText(const QString &key) const;
    std::optional<qint64> findInteger(const QString &key) const;
    std::optional<QList<JsonNode>> findElements(const QString &key) const;
    std::optional<JsonNode> findObject(const QString &key) const;

    /// The same for a key that has to be there. Throws keyNotFound or, for a null, missingValue.
    JsonNode require(const QString &key) const;

    const QJsonValue &value() const { return m_value; }

    const QString &path() const { return m_path; }

private:
    JsonNode(QJsonValue value, QString path);

    QString step(const QString &name) const;
    [[noreturn]] void failExpecting(const QString &expected) const;

    QJsonValue m_value;
    QString m_path;
};

} // namespace tonearm
