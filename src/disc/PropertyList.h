// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/DescribedError.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <memory>
#include <optional>
#include <utility>

namespace tonearm {

/// A property list that isn't what its reader expects. The description tells what was found, and where.
class PropertyListError : public DescribedError
{
public:
    explicit PropertyListError(QString message)
        : m_message(std::move(message))
    {
    }

    QString description() const override { return m_message; }

private:
    QString m_message;
};

/// A value in a property list, read strictly: an absent key is absent, a value of the wrong type is a
/// PropertyListError. It lies in its list and must not outlive it.
class PropertyListNode
{
public:
    /// The number under a key of this dictionary; nothing if absent. A number with a fraction is none.
    std::optional<qint64> findInteger(const char *key) const;

    /// The dictionaries in the array under a key of this dictionary; none if absent.
    QList<PropertyListNode> findElements(const char *key) const;

private:
    friend class PropertyList;

    // libplist's handle of a value.
    using Handle = void *;

    /// Throws if the value is no dictionary.
    PropertyListNode(Handle node, QString path);

    Handle find(const char *key) const;
    QString pathOf(const char *key) const;

    Handle m_node;
    // Keys and indices from the root, joined with ".".
    QString m_path;
};

/// A decoded property list, XML or binary, whose root is a dictionary.
class PropertyList
{
public:
    /// Throws PropertyListError if the bytes aren't such a list.
    explicit PropertyList(const QByteArray &bytes);

    PropertyListNode root() const;

private:
    struct Free
    {
        void operator()(void *node) const;
    };

    std::unique_ptr<void, Free> m_root;
};

} // namespace tonearm
