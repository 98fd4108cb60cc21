// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QString typeName(const QJsonValue &value)
{
    switch (value.type()) {
    case QJsonValue::Null:
        return u"null"_s;
    case QJsonValue::Bool:
        return u"a flag"_s;
    case QJsonValue::Double:
        return u"a number"_s;
    case QJsonValue::String:
        return u"a text"_s;
    case QJsonValue::Array:
        return u"an array"_s;
    case QJsonValue::Object:
        return u"an object"_s;
    case QJsonValue::Undefined:
        break;
    }
    return u"nothing"_s;
}

} // namespace

std::optional<qint64> wholeNumber(const QJsonValue &value)
{
    // The default is what a value that doesn't fit reads as, so no single one can tell.
    constexpr qint64 impossible = -1;
    const qint64 first = value.toInteger(impossible);
    if (!value.isDouble() || (first == impossible && value.toInteger(0) == 0))
        return std::nullopt;
    return first;
}

JsonNode::JsonNode(QJsonValue value, QString path)
    : m_value(std::move(value))
    , m_path(std::move(path))
{
}

JsonNode JsonNode::parse(const QByteArray &bytes)
{
    if (bytes.trimmed().isEmpty())
        throw JsonError(JsonError::Kind::corrupted, u"The data is empty."_s);
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        throw JsonError(
            JsonError::Kind::corrupted,
            u"The data isn't valid JSON: %1 at byte %2."_s.arg(error.errorString()).arg(error.offset));
    }
    if (document.isArray())
        return {document.array(), {}};
    return {document.object(), {}};
}

std::optional<JsonNode> JsonNode::find(const QString &key) const
{
    const QJsonValue found = object().m_value.toObject().value(key);
    if (found.isUndefined() || found.isNull())
        return std::nullopt;
    return JsonNode(found, step(key));
}

QList<JsonNode> JsonNode::elements() const
{
    if (!m_value.isArray())
        failExpecting(u"an array"_s);
    QList<JsonNode> result;
    const QJsonArray array = m_value.toArray();
    result.reserve(array.size());
    for (qsizetype index = 0; index < array.size(); ++index)
        result.append(JsonNode(array[index], step(u"Index %1"_s.arg(index))));
    return result;
}

QString JsonNode::text() const
{
    if (!m_value.isString())
        failExpecting(u"a text"_s);
    return m_value.toString();
}

qint64 JsonNode::integer() const
{
    const std::optional<qint64> whole = wholeNumber(m_value);
    if (!whole)
        failExpecting(u"a whole number"_s);
    return *whole;
}

double JsonNode::number() const
{
    if (!m_value.isDouble())
        failExpecting(u"a number"_s);
    return m_value.toDouble();
}

bool JsonNode::flag() const
{
    if (!m_value.isBool())
        failExpecting(u"a flag"_s);
    return m_value.toBool();
}

const JsonNode &JsonNode::object() const
{
    if (!m_value.isObject())
        failExpecting(u"an object"_s);
    return *this;
}

std::optional<QString> JsonNode::findText(const QString &key) const
{
    const auto node = find(key);
    return node ? std::optional(node->text()) : std::nullopt;
}

std::optional<qint64> JsonNode::findInteger(const QString &key) const
{
    const auto node = find(key);
    return node ? std::optional(node->integer()) : std::nullopt;
}

std::optional<QList<JsonNode>> JsonNode::findElements(const QString &key) const
{
    const auto node = find(key);
    return node ? std::optional(node->elements()) : std::nullopt;
}

std::optional<JsonNode> JsonNode::findObject(const QString &key) const
{
    const auto node = find(key);
    return node ? std::optional(node->object()) : std::nullopt;
}

JsonNode JsonNode::require(const QString &key) const
{
    const QJsonValue found = object().m_value.toObject().value(key);
    const QString place = step(key);
    const QString message = u"The value at \"%1\" is missing."_s.arg(place);
    if (found.isUndefined())
        throw JsonError(JsonError::Kind::keyNotFound, message, place, key);
    if (found.isNull())
        throw JsonError(JsonError::Kind::missingValue, message, place);
    return {found, place};
}

QString JsonNode::step(const QString &name) const
{
    return m_path.isEmpty() ? name : QString(m_path + u'.' + name);
}

void JsonNode::failExpecting(const QString &expected) const
{
    const QString place = m_path.isEmpty() ? u"at the top"_s : u"at \"%1\""_s.arg(m_path);
    throw JsonError(JsonError::Kind::typeMismatch,
                    u"Expected %1 %2 but found %3."_s.arg(expected, place, typeName(m_value)), m_path);
}

} // namespace tonearm
