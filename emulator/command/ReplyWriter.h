#pragma once

#include <QByteArray>
#include <QtEndian>

namespace emulator {

/// Puts the fields of a reply one behind the other, packed and little-endian.
class ReplyWriter
{
public:
    template <class Integer>
    ReplyWriter &put(Integer value)
    {
        const Integer little = qToLittleEndian(value);
        m_bytes.append(reinterpret_cast<const char *>(&little), static_cast<int>(sizeof little));
        return *this;
    }

    template <class Container>
    ReplyWriter &putAll(const Container &values)
    {
        for (const auto value : values) {
            put(value);
        }
        return *this;
    }

    ReplyWriter &zeros(int count)
    {
        m_bytes.append(count, '\0');
        return *this;
    }

    QByteArray bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

} // namespace emulator
