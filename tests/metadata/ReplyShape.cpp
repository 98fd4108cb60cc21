// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/ReplyShape.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tonearm::test {

using namespace Qt::StringLiterals;

using Kind = ReplyShape::Kind;

namespace {

// Which element of an array stands for all of them; not the first, to tell indices from zero.
constexpr qsizetype observedIndex = 1;

QString written(const Step &step)
{
    const auto *index = std::get_if<qsizetype>(&step);
    return index ? u"Index %1"_s.arg(*index) : std::get<QString>(step);
}

void collect(QList<Place> &places, const QList<Step> &above, const ReplyShape &shape)
{
    const auto take = [&](const Place &place) {
        places.append(place);
        collect(places, place.steps, place.shape);
    };
    for (const auto &[key, value] : shape.fields)
        take({.steps = above + QList<Step>{key}, .shape = value});
    for (const ReplyShape &value : shape.element)
        take({.steps = above + QList<Step>{observedIndex}, .shape = value, .isInArray = true});
}

bool fits(const QJsonValue &value, Kind kind)
{
    switch (kind) {
    case Kind::text:
        return value.isString();
    case Kind::integer:
        return value.isDouble() && value.toDouble() == 7;
    case Kind::textOrNumber:
        return true;
    case Kind::object:
        return value.isObject();
    case Kind::array:
        return value.isArray();
    }
    return false;
}

} // namespace

ReplyShape ReplyShape::required() const
{
    ReplyShape result = *this;
    result.isRequired = true;
    return result;
}

QString Place::path() const
{
    QStringList names;
    for (const Step &step : steps)
        names.append(written(step));
    return names.join(u'.');
}

QJsonValue completeDocument(const ReplyShape &shape)
{
    switch (shape.kind) {
    case Kind::text:
    case Kind::textOrNumber:
        return u"some text"_s;
    case Kind::integer:
        return 7;
    case Kind::object: {
        QJsonObject object;
        for (const auto &[key, value] : shape.fields)
            object.insert(key, completeDocument(value));
        return object;
    }
    case Kind::array: {
        const QJsonValue element = completeDocument(shape.element.first());
        return QJsonArray{element, element};
    }
    }
    return {};
}

QJsonValue otherValue(const ReplyShape &shape)
{
    return shape.kind == Kind::integer ? QJsonValue(8) : QJsonValue(u"another text"_s);
}

QList<Place> placesIn(const ReplyShape &shape)
{
    QList<Place> places;
    collect(places, {}, shape);
    return places;
}

QList<QJsonValue> wrongValues(const Place &place)
{
    QList<QJsonValue> values{true, 7, 7.5, u"some text"_s, QJsonArray{}, QJsonObject{}};
    values.removeIf([&](const QJsonValue &value) { return fits(value, place.shape.kind); });
    if (!place.isOptional())
        values.append(QJsonValue(QJsonValue::Null));
    return values;
}

QJsonValue replaced(const QJsonValue &document, const QList<Step> &steps, const QJsonValue &value)
{
    if (steps.isEmpty())
        return value;
    const QList<Step> further = steps.sliced(1);
    if (const auto *index = std::get_if<qsizetype>(&steps.first())) {
        QJsonArray array = document.toArray();
        array.replace(*index, replaced(array.at(*index), further, value));
        return array;
    }
    QJsonObject object = document.toObject();
    const QString key = std::get<QString>(steps.first());
    const QJsonValue inner = replaced(object.value(key), further, value);
    if (inner.isUndefined())
        object.remove(key);
    else
        object.insert(key, inner);
    return object;
}

QByteArray written(const QJsonValue &document)
{
    return QJsonDocument(document.toObject()).toJson(QJsonDocument::Compact);
}

} // namespace tonearm::test
