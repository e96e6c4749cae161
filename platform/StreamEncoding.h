#pragma once
// The message payload encoding of the phone: QDataStream in the toolkit's
// version-2 form. Big-endian; int as 32 bits; QString as a 32-bit byte count
// and UTF-16BE code units, 0xFFFFFFFF for a null string; QByteArray as a
// 32-bit length and the bytes; Q_INT8 as one byte.

#include <QDataStream>
#include <QIODevice>

/** Prepares @p stream to read or write payload bytes exactly as the phone does. */
inline void MP_SetPayloadFormat(QDataStream& stream)
{
    // Every version since Qt 2 writes these primitive types the same way;
    // Qt_4_0 is the oldest one Qt 6 still knows.
    stream.setVersion(QDataStream::Qt_4_0);
    stream.setByteOrder(QDataStream::BigEndian);
}
