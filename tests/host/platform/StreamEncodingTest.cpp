#include "platform/StreamEncoding.h"

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>
#include <QString>

#include <gtest/gtest.h>

#include "platform/Qt2Compat.h"

namespace {

template <typename... Values>
QByteArray encode(const Values&... values)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    MP_SetPayloadFormat(stream);
    (stream << ... << values);
    return bytes;
}

TEST(StreamEncodingTest, WritesThePhonesBytes)
{
    EXPECT_EQ(encode(qint32(0x1048), qint32(1)).toHex(), "0000104800000001");
    // Byte count, then UTF-16 big-endian code units; "Ár" and a CJK character.
    EXPECT_EQ(encode(QString::fromUtf8("\xc3\x81r\xe6\x97\xa5")).toHex(), "0000000600c1007265e5");
    EXPECT_EQ(encode(QString()).toHex(), "ffffffff");
    EXPECT_EQ(encode(QByteArray("\x01\x02", 2)).toHex(), "000000020102");
}

} // namespace
