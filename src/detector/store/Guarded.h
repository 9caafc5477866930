#pragma once

#include <mutex>
#include <utility>

/// A value that several threads read and write. Reads yield a copy, writes replace the whole value.
template <class T>
class Guarded
{
public:
    Guarded() = default;
    Guarded(T value) : m_value(std::move(value)) {} // NOLINT(google-explicit-constructor): stands in for a T
    Guarded(const Guarded &) = delete;

    Guarded &operator=(const Guarded &) = delete;
    Guarded &operator=(T value)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_value = std::move(value);
        return *this;
    }

    operator T() const { return get(); } // NOLINT(google-explicit-constructor): stands in for a T
    T get() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_value;
    }

    /// Runs `change(T &)` while no other thread reads or writes; returns what it returns.
    template <class Change>
    auto with(Change change)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return change(m_value);
    }

private:
    mutable std::mutex m_mutex;
    T m_value;
};
