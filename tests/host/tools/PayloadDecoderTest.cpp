// How qcop prints a payload it hears. (qcop between processes is the process
// tests'.)

#include <gtest/gtest.h>

#include "host/tools/qcop/PayloadDecoder.h"

namespace {

TEST(PayloadDecoderTest, DecodesByTheTypesTheNameGivesElseShowsTheBytes)
{
    const QByteArray keyPayload = QByteArray::fromHex("00000005ffffffff");
    EXPECT_EQ(PayloadDecoder::describe("keyMsg(int,int)", keyPayload), (QStringList{"int:5", "int:-1"}));
    EXPECT_EQ(PayloadDecoder::describe("keyMsg(int,int)", QByteArray::fromHex("000000050000")),
              QStringList{"raw:000000050000"})
        << "a short payload is not read past its end";
    EXPECT_EQ(PayloadDecoder::describe("keyMsg(int,int)", keyPayload + '\x01'), QStringList{"raw:00000005ffffffff01"})
        << "bytes left over";
    EXPECT_EQ(PayloadDecoder::describe("f(QString,QString,Q_INT8)", QByteArray::fromHex("ffffffff00000000") + "\x07"),
              (QStringList{"str:null", "str:\"\"", "i8:7"}));
    EXPECT_EQ(PayloadDecoder::describe("f(QByteArray,QByteArray)", QByteArray::fromHex("00000002abcd00000000")),
              (QStringList{"bytes:abcd", "bytes:"}));
    EXPECT_EQ(PayloadDecoder::describe("f(QString)", QByteArray::fromHex("0000000600220061005c")),
              QStringList{"str:\"\\\"a\\\\\""});
    EXPECT_EQ(PayloadDecoder::describe("f(QString)", QByteArray::fromHex("7fffffff0041")), QStringList{"raw:7fffffff0041"})
        << "a length beyond the payload";
    EXPECT_EQ(PayloadDecoder::describe("f(QRect)", keyPayload), QStringList{"raw:00000005ffffffff"});
    EXPECT_EQ(PayloadDecoder::describe("noTypes", keyPayload), QStringList{"raw:00000005ffffffff"});
    EXPECT_EQ(PayloadDecoder::describe("applyStyle()", QByteArray()), QStringList());
}

} // namespace
