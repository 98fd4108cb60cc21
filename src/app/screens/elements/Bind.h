// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QObject>
#include <QProperty>
#include <QStringBuilder>

#include <array>
#include <concepts>
#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

namespace tonearm {

namespace detail {

template <typename Type> inline constexpr bool isStringBuilder = false;
template <typename Left, typename Right>
inline constexpr bool isStringBuilder<QStringBuilder<Left, Right>> = true;

template <typename Getter> using BoundValue = std::decay_t<std::invoke_result_t<Getter &>>;

} // namespace detail

/// What a getter may give: a value that can be kept. The sum of two texts isn't one (it refers to
/// its parts, which are gone by then): such a getter says `-> QString`.
template <typename Value>
concept BindableValue = std::movable<Value> && !detail::isStringBuilder<Value>;

namespace detail {

// Gives the binding that is being evaluated room for all that its getter may ever read. Qt 6.4 keeps
// pointers into the list of what a binding reads while it tells of a change; a getter that then read
// more than before would make the list move away from under them.
inline void reserveDependencies()
{
    constexpr std::size_t mostDependencies = 64;
    const std::array<QProperty<bool>, mostDependencies> readOnce;
    for (const QProperty<bool> &property : readOnce)
        static_cast<void>(property.value());
}

// The derived value. It outlives its binding for a moment: one that is destroyed while a property that
// it reads is still telling its followers of a change is never freed by Qt 6.4.
template <typename Value> class DerivedValue final : public QObject
{
public:
    template <typename Getter> explicit DerivedValue(Getter getter)
    {
        m_value.setBinding([this, get = std::move(getter)]() mutable -> std::optional<Value> {
            if (m_isRetired)
                return std::nullopt;
            std::optional<Value> value(get());
            if (!std::exchange(m_hasRoom, true))
                reserveDependencies();
            return value;
        });
    }

    // Always there until it is retired.
    const std::optional<Value> &value() const { return m_value.valueBypassingBindings(); }

    template <typename Handler> QPropertyNotifier onChange(Handler handler)
    {
        return m_value.addNotifier(handler);
    }

    // From now on the getter, and what it refers to, is left alone.
    void retire()
    {
        m_isRetired = true;
        setParent(QCoreApplication::instance());
        deleteLater();
    }

private:
    bool m_isRetired = false;
    bool m_hasRoom = false;
    // Optional, so that a value without a default will do.
    QProperty<std::optional<Value>> m_value;
};

template <typename Target, typename Value, typename Setter> class Binding final : public QObject
{
public:
    template <typename Getter>
    Binding(Target *target, Getter getter, Setter setter)
        : QObject(target)
        , m_setter(std::move(setter))
        , m_derived(new DerivedValue<Value>(std::move(getter)))
        , m_notifier(m_derived->onChange([this] { apply(); }))
    {
        apply();
    }

    ~Binding() override { m_derived->retire(); }

private:
    void apply()
    {
        // While a target is destroyed its children, this object too, still live for a moment, but the
        // target has ceased to be what it was.
        auto *target = dynamic_cast<Target *>(parent());
        const std::optional<Value> value = m_derived->value();
        if (!target || !value)
            return;
        if constexpr (std::is_invocable_v<Setter &, Target *, const Value &>)
            std::invoke(m_setter, target, *value);
        else
            std::invoke(m_setter, *value);
    }

    Setter m_setter;
    DerivedValue<Value> *m_derived;
    QPropertyNotifier m_notifier;
};

} // namespace detail

/// Keeps a widget (or any other object, an action say) in step with a derived value for as long as it
/// lives.
///
/// The getter runs at once, and again whenever a property changes that it read in its last run. The
/// setter runs at once too, and then with each value that differs from the one before; of values
/// without an `==` each counts as another. It is a member function of the widget or anything else that
/// takes the value, or the widget and the value. What the getter refers to must live as long as the
/// widget or as the last property that the getter reads. Main thread only.
template <typename Target, typename Getter, typename Setter>
void bind(Target *target, Getter getter, Setter setter)
{
    // Assertions and no constraints: where those fail, the compiler would silently settle for std::bind.
    static_assert(std::derived_from<Target, QObject>, "only an object can be kept in step");
    using Value = detail::BoundValue<Getter>;
    static_assert(BindableValue<Value>,
                  "the getter's value can't be kept; for a sum of texts say -> QString");
    static_assert(std::is_invocable_v<Setter &, Target *, const Value &> ||
                      std::is_invocable_v<Setter &, const Value &>,
                  "the setter can't take what the getter gives");
    new detail::Binding<Target, Value, Setter>(target, std::move(getter), std::move(setter));
}

} // namespace tonearm
