// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include <optional>
#include <tuple>
#include <utility>

namespace tonearm {

/// A list among those others that is long and whose items are large: it counts as another one unless it is
/// the very same, so that nobody has to compare it item by item.
template <typename Item> struct SharedList : QList<Item>
{
    SharedList() = default;

    SharedList(const QList<Item> &list) // NOLINT(google-explicit-constructor)
        : QList<Item>(list)
    {
    }

    bool operator==(const SharedList &other) const
    {
        return this->size() == other.size() && this->constData() == other.constData();
    }
};

/// A value worked out from others, and kept until one of those is another. The others are kept too, and
/// compared each time, so they are of Qt's shared types: one that is still the same costs nothing.
template <typename Value, typename... Sources> class Remembered
{
public:
    template <typename WorkOut> const Value &from(const Sources &...sources, WorkOut workOut)
    {
        if (!m_value || m_sources != std::tie(sources...)) {
            m_value.emplace(workOut(sources...));
            m_sources = std::tie(sources...);
        }
        return *m_value;
    }

    /// Takes a value over from one who has it already.
    void put(Value value, const Sources &...sources)
    {
        m_value = std::move(value);
        m_sources = std::tie(sources...);
    }

private:
    std::optional<Value> m_value;
    std::tuple<Sources...> m_sources;
};

} // namespace tonearm
