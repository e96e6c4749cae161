#pragma once
// A channel message's payload built from typed values in the phone's stream
// encoding (qint32, qint8, QString, QByteArray, ...):
//   payload(qint32(0x1054), qint32(2))    payloadHex(QStringLiteral("0:05"))
// The encoding is written out here, not taken from the library: big-endian,
// QDataStream's oldest layout (a null QString is ffffffff, an empty one 0).

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

#include <string>

template <typename... Values>
QByteArray payload(const Values&... values)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_0);
    stream.setByteOrder(QDataStream::BigEndian);
    (stream << ... << values);
    return bytes;
}

/** The payload's bytes in hex, as the journal records them. */
template <typename... Values>
std::string payloadHex(const Values&... values)
{
    return payload(values...).toHex().toStdString();
}
