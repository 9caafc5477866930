#pragma once

#include <cstdint>
#include <vector>

/// A block of the camera's EEPROM: `length` bytes, followed by one more zero byte.
class EEPromBuf
{
public:
    int length() const { return static_cast<int>(m_bytes.size()) - 1; }
    std::uint8_t *data() { return m_bytes.data(); }
    const std::uint8_t *data() const { return m_bytes.data(); }

    /// Makes room for `length` bytes (0 or more), all zero; keeps the contents when the length does not change.
    void resize(int length);

    /// On the wire the bytes follow their count.
    template <class In>
    void read(In &in)
    {
        std::uint16_t count = 0;
        in.take(count);
        resize(count);
        in.copy(data(), count);
    }

private:
    std::vector<std::uint8_t> m_bytes = std::vector<std::uint8_t>(1);
};
