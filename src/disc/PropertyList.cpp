// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/PropertyList.h"

#include <QXmlStreamReader>

#include <plist/plist.h>

#include <cmath>
#include <cstdint>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// Far more than any disc's table of contents, and within what libplist's 32-bit lengths can say.
constexpr qsizetype maximumBytes = 16 * 1024 * 1024;

QString placeText(const QString &path)
{
    return path.isEmpty() ? u"at its root"_s : u"at "_s + path;
}

[[noreturn]] void failExpecting(const QString &expected, const QString &path)
{
    throw PropertyListError(u"The property list doesn't hold "_s + expected + u' ' + placeText(path) + u'.');
}

std::optional<qint64> wholeNumber(double value)
{
    // Exactly as many as a double tells apart.
    constexpr double limit = 9007199254740992.0;
    if (!(std::abs(value) <= limit) || std::trunc(value) != value)
        return std::nullopt;
    return static_cast<qint64>(value);
}

std::optional<qint64> integerOf(plist_t node)
{
    if (plist_get_node_type(node) == PLIST_UINT) {
        std::uint64_t value = 0;
        plist_get_uint_val(node, &value);
        // libplist keeps negative numbers as their two's complement; what a binary list holds beyond 63 bits
        // becomes one.
        return static_cast<qint64>(value);
    }
    if (plist_get_node_type(node) == PLIST_REAL) {
        double value = 0;
        plist_get_real_val(node, &value);
        return wholeNumber(value);
    }
    return std::nullopt;
}

bool isWhole(QStringView element, const QString &text)
{
    bool isNumber = false;
    if (element == u"integer")
        text.toLongLong(&isNumber);
    else
        text.toDouble(&isNumber);
    return isNumber;
}

// libplist takes what it can of a number in XML, and 0 for a word. What isn't XML is left to it.
bool hasBrokenNumber(const QByteArray &bytes)
{
    QXmlStreamReader reader(bytes);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString element = reader.name().toString();
        if ((element == u"integer" || element == u"real") &&
            !isWhole(element, reader.readElementText().trimmed()))
            return true;
    }
    return false;
}

} // namespace

PropertyListNode::PropertyListNode(Handle node, QString path)
    : m_node(node)
    , m_path(std::move(path))
{
    if (plist_get_node_type(m_node) != PLIST_DICT)
        failExpecting(u"a dictionary"_s, m_path);
}

std::optional<qint64> PropertyListNode::findInteger(const char *key) const
{
    const plist_t value = find(key);
    if (!value)
        return std::nullopt;
    const std::optional<qint64> number = integerOf(value);
    if (!number)
        failExpecting(u"a whole number"_s, pathOf(key));
    return number;
}

QList<PropertyListNode> PropertyListNode::findElements(const char *key) const
{
    const plist_t array = find(key);
    if (!array)
        return {};
    if (plist_get_node_type(array) != PLIST_ARRAY)
        failExpecting(u"an array"_s, pathOf(key));
    QList<PropertyListNode> elements;
    const quint32 count = plist_array_get_size(array);
    for (quint32 index = 0; index < count; ++index) {
        const QString path = pathOf(key) + u'.' + QString::number(index);
        elements.append(PropertyListNode(plist_array_get_item(array, index), path));
    }
    return elements;
}

PropertyListNode::Handle PropertyListNode::find(const char *key) const
{
    return plist_dict_get_item(m_node, key);
}

QString PropertyListNode::pathOf(const char *key) const
{
    return (m_path.isEmpty() ? QString() : m_path + u'.') + QString::fromLatin1(key);
}

PropertyList::PropertyList(const QByteArray &bytes)
{
    plist_t root = nullptr;
    if (bytes.size() <= maximumBytes)
        plist_from_memory(bytes.constData(), static_cast<quint32>(bytes.size()), &root);
    m_root.reset(root);
    if (!m_root)
        throw PropertyListError(u"It isn't a property list."_s);
    if (hasBrokenNumber(bytes))
        throw PropertyListError(u"The property list holds a number that can't be read."_s);
}

PropertyListNode PropertyList::root() const
{
    return {m_root.get(), {}};
}

void PropertyList::Free::operator()(void *node) const
{
    plist_free(node);
}

} // namespace tonearm
