// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <tuple>

namespace tonearm {

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

private:
    std::optional<Value> m_value;
    std::tuple<Sources...> m_sources;
};

} // namespace tonearm
