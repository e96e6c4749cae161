#include "fuzz/support/FuzzInput.h"

#include <cstring>

uint8_t FuzzInput::takeByte()
{
    return atEnd() ? 0 : m_data[m_position++];
}

uint16_t FuzzInput::takeUint16()
{
    const uint16_t high = takeByte();
    return uint16_t(high << 8 | takeByte());
}

QByteArray FuzzInput::take(size_t count)
{
    const size_t length = count < remaining() ? count : remaining();
    QByteArray bytes(reinterpret_cast<const char*>(m_data + m_position), qsizetype(length));
    m_position += length;
    return bytes;
}

QByteArray FuzzInput::takeUntil(char separator)
{
    const void* found = atEnd() ? nullptr : std::memchr(m_data + m_position, separator, remaining());
    if (!found)
        return takeRest();
    const size_t length = size_t(static_cast<const uint8_t*>(found) - (m_data + m_position));
    QByteArray bytes = take(length);
    ++m_position;
    return bytes;
}
