#include "camera/client/EEPromBuf.h"

#include <cstddef>

void EEPromBuf::resize(int length)
{
    if (length == m_length) {
        return;
    }
    m_data = std::make_unique<std::uint8_t[]>(static_cast<std::size_t>(length) + 1);
    m_length = length;
}
