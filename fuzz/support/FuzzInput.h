#pragma once
// Reads structured fields off the front of a fuzzer's input. Every read
// takes at most what is left: a field the input ends inside is shorter, and
// a number it ends inside reads its missing bytes as 0, so that every byte
// string is a valid input and no read goes past the end.

#include <QByteArray>

#include <cstddef>
#include <cstdint>

class FuzzInput {
public:
    FuzzInput(const uint8_t* data, size_t size) : m_data(data), m_size(size) {}

    bool atEnd() const { return m_position >= m_size; }
    size_t remaining() const { return m_size - m_position; }

    /** The next byte; 0 at the end. */
    uint8_t takeByte();
    /** A 16-bit big-endian number. */
    uint16_t takeUint16();
    /** The next @p count bytes, or what is left. */
    QByteArray take(size_t count);
    /** The bytes up to @p separator, which is consumed; the rest when there is none. */
    QByteArray takeUntil(char separator);
    /** Everything left. */
    QByteArray takeRest() { return take(remaining()); }

private:
    const uint8_t* m_data;  // not owned: the fuzzer's buffer, valid for one run
    size_t m_size;
    size_t m_position = 0;
};
