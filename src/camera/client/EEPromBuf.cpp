#include "camera/client/EEPromBuf.h"

#include <cstddef>

void EEPromBuf::resize(int length)
{
    if (length != this->length()) {
        m_bytes.assign(static_cast<std::size_t>(length) + 1, 0);
    }
}
