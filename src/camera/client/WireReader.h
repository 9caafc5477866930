#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <QtEndian>

/// Takes packed little-endian values from reply data, one after the other. Whoever makes one has seen to it that the
/// data are as long as what is taken.
class WireReader
{
public:
    explicit WireReader(const std::uint8_t *data) : m_next(data) {}

    void skip(int bytes) { m_next += bytes; }
    void copy(std::uint8_t *to, int bytes)
    {
        std::copy_n(m_next, bytes, to);
        skip(bytes);
    }

    template <class... Values>
    void take(Values &...values)
    {
        (takeOne(values), ...);
    }

private:
    template <class Value>
    void takeOne(Value &value)
    {
        value = qFromLittleEndian<Value>(m_next);
        m_next += sizeof(Value);
    }
    template <class Value, std::size_t Size>
    void takeOne(std::array<Value, Size> &values)
    {
        for (Value &value : values) {
            takeOne(value);
        }
    }

    const std::uint8_t *m_next;
};
