#pragma once

#include <cstdint>
#include <memory>

/// A block of the camera's EEPROM: `length` bytes, followed by one more zero byte.
class EEPromBuf
{
public:
    int length() const { return m_length; }
    std::uint8_t *data() { return m_data.get(); }
    const std::uint8_t *data() const { return m_data.get(); }

    /// Makes room for `length` bytes (0 or more), all zero; keeps the contents when the length does not change.
    void resize(int length);

private:
    int m_length = 0;
    std::unique_ptr<std::uint8_t[]> m_data = std::make_unique<std::uint8_t[]>(1);
};
