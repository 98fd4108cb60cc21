// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonValue>
#include <QList>
#include <QString>

#include <utility>
#include <variant>

namespace tonearm::test {

/// What a service's reply may hold: describes documents, and makes them.
struct ReplyShape
{
    enum class Kind { text, integer, textOrNumber, object, array };
    using Field = std::pair<QString, ReplyShape>;

    Kind kind = Kind::text;
    /// Of a value in an object: whether it has to be there.
    bool isRequired = false;
    /// For an object.
    QList<Field> fields = {};
    /// For an array: what its elements are, in a list of one.
    QList<ReplyShape> element = {};

    static ReplyShape text() { return {}; }

    static ReplyShape integer() { return {.kind = Kind::integer}; }

    static ReplyShape textOrNumber() { return {.kind = Kind::textOrNumber}; }

    static ReplyShape object(QList<Field> fields)
    {
        return {.kind = Kind::object, .fields = std::move(fields)};
    }

    static ReplyShape array(ReplyShape element)
    {
        return {.kind = Kind::array, .element = {std::move(element)}};
    }

    ReplyShape required() const;
};

/// A key of an object or an index into an array.
using Step = std::variant<QString, qsizetype>;

/// A value somewhere in a document.
struct Place
{
    QList<Step> steps;
    ReplyShape shape;
    bool isInArray = false;

    /// "releases.Index 0.title"
    QString path() const;

    /// Whether nothing may stand there.
    bool isOptional() const { return !isInArray && !shape.isRequired; }

    bool isObject() const { return shape.kind == ReplyShape::Kind::object; }

    /// Whether there are no places within.
    bool isLeaf() const { return shape.fields.isEmpty() && shape.element.isEmpty(); }
};

/// A document with everything that the shape knows; its arrays have two elements.
QJsonValue completeDocument(const ReplyShape &shape);

/// A value for a leaf that isn't the one in such a document.
QJsonValue otherValue(const ReplyShape &shape);

/// Every place in such a document but the top; in each array the second element stands for both.
QList<Place> placesIn(const ReplyShape &shape);

/// One value of each JSON type that is wrong at a place.
QList<QJsonValue> wrongValues(const Place &place);

/// The document with another value at a place, or with nothing there if the value is undefined.
QJsonValue replaced(const QJsonValue &document, const QList<Step> &steps, const QJsonValue &value);

/// The document's text.
QByteArray written(const QJsonValue &document);

} // namespace tonearm::test
