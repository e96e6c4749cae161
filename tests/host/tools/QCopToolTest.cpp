#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>

#include <gtest/gtest.h>

#include "host/tools/qcop/PayloadDecoder.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/ProjectProgram.h"

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

class QCopToolTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (m_bus.address().isEmpty())
            GTEST_SKIP() << m_bus.error().toStdString();
    }

    int runQcop(const QStringList& arguments, QString* errorOutput = nullptr, const QString& busAddress = {})
    {
        QProcess process;
        QProcessEnvironment environment = m_bus.environment();
        if (!busAddress.isEmpty())
            environment.insert("DBUS_SESSION_BUS_ADDRESS", busAddress);
        process.setProcessEnvironment(environment);
        if (!ProjectProgram::start(process, "qcop", arguments))
            return -1;
        process.waitForFinished(30000);
        if (errorOutput)
            *errorOutput = QString::fromUtf8(process.readAllStandardError());
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    /** Starts `qcop --listen CHANNELS` and returns once it listens. */
    bool startListener(const QStringList& channels)
    {
        m_listener.setProcessEnvironment(m_bus.environment());
        if (!ProjectProgram::start(m_listener, "qcop", QStringList{"--listen"} + channels))
            return false;
        const QString listening = QStringLiteral("qcop: listening on %1 channel(s)").arg(channels.size());
        return ProjectProgram::readUntil(m_listener, QProcess::StandardError, listening, 10000) == listening;
    }

    /** The listener's lines up to and including the first that equals @p last, one text. */
    QString linesUntil(const QString& last) { return ProjectProgram::readUntil(m_listener, QProcess::StandardOutput, last, 10000); }

    void TearDown() override
    {
        m_listener.kill();
        m_listener.waitForFinished(10000);
    }

    PrivateBus m_bus;
    QProcess m_listener;
};

TEST_F(QCopToolTest, MessagesReachTheListenersOfOtherProcessesInOrderWithTheirBytes_ForeignSignalsAreIgnored)
{
    ASSERT_TRUE(startListener({"VEMO/System", "/MP/Idle/Channel"}));
    EXPECT_EQ(runQcop({"VEMO/System", "keyMsg(int,int)", "int:5", "int:-1"}), 0);
    EXPECT_EQ(runQcop({"NOT/Listened", "x()"}), 0);
    EXPECT_EQ(runQcop({"/MP/Idle/Channel", "/MP/Idle/Req/Seek", "raw:00001388"}), 0);
    EXPECT_EQ(runQcop({"VEMO/System", "applyStyle()"}), 0);
    EXPECT_EQ(linesUntil("VEMO/System applyStyle()"),
              "VEMO/System keyMsg(int,int) int:5 int:-1\n"
              "/MP/Idle/Channel /MP/Idle/Req/Seek raw:00001388\n"
              "VEMO/System applyStyle()");

    QDBusConnection sender = QDBusConnection::connectToBus(m_bus.address(), QStringLiteral("qcop-test-sender"));
    ASSERT_TRUE(sender.isConnected());
    const auto signal = [](const QString& signature) {
        return QDBusMessage::createSignal("/org/mediaplayerhost/QCop", "org.mediaplayerhost.QCop", signature);
    };
    // Another program on the bus that speaks the same name but not the layout.
    sender.send(signal("Message") << QStringLiteral("VEMO/System") << QStringLiteral("wrong types") << 1);
    sender.send(signal("Message") << QByteArray("VEMO/System") << QByteArray());
    QStringList expected;
    for (int i = 0; i < 50; ++i) {
        sender.send(signal("Message") << QByteArray("VEMO/System") << QByteArray("n(int)")
                                      << QByteArray::fromHex("000000").append(char(i)));
        expected.append(QStringLiteral("VEMO/System n(int) int:%1").arg(i));
    }
    EXPECT_EQ(linesUntil("VEMO/System n(int) int:49"), expected.join(QLatin1Char('\n')));
    QDBusConnection::disconnectFromBus(QStringLiteral("qcop-test-sender"));
}

TEST_F(QCopToolTest, BadUsageAndNoBusAreToldApart)
{
    QString error;
    EXPECT_EQ(runQcop({}, &error), 2);
    EXPECT_TRUE(error.startsWith("qcop: no channel given\nusage: qcop CHANNEL MESSAGE")) << error.toStdString();
    EXPECT_EQ(runQcop({"--listen"}, &error), 2);
    EXPECT_EQ(runQcop({"C", "m(int)", "int:x"}, &error), 2);
    EXPECT_TRUE(error.startsWith("qcop: bad argument")) << error.toStdString();

    EXPECT_EQ(runQcop({"C", "m()"}, &error, "unix:path=/nonexistent/bus"), 1);
    EXPECT_EQ(error, "qcop: no D-Bus session bus (DBUS_SESSION_BUS_ADDRESS): no other process can be reached\n");
}

} // namespace
