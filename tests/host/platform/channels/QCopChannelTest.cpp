#include "platform/QCopChannel.h"

#include <QSignalSpy>

#include <memory>

#include "tests/support/TestEnvironment.h"

namespace {

using QCopChannelTest = TestEnvironment;

TEST_F(QCopChannelTest, Send_DeliversThroughTheEventLoopToEveryListener_RefusesEmptyNames)
{
    QCopChannel first("/MP/Test");
    QCopChannel second("/MP/Test");
    QCopChannel other("/MP/Other");
    QSignalSpy firstSpy(&first, SIGNAL(received(const QCString&, const QByteArray&)));
    QSignalSpy secondSpy(&second, SIGNAL(received(const QCString&, const QByteArray&)));
    QSignalSpy otherSpy(&other, SIGNAL(received(const QCString&, const QByteArray&)));

    // Refused: neither delivered nor journaled.
    EXPECT_FALSE(QCopChannel::send("", "hello()"));
    EXPECT_FALSE(QCopChannel::send("/MP/Test", ""));
    EXPECT_TRUE(QCopChannel::send("/MP/Test", "ping(int)", QByteArray("\0\0\0\x05", 4)));
    EXPECT_TRUE(QCopChannel::send("/MP/Test", "/MP/Idle/Req/Play"));
    EXPECT_EQ(firstSpy.count(), 0) << "a send never runs a receiver inside the sender's call";

    processEvents();
    ASSERT_EQ(firstSpy.count(), 2);
    EXPECT_EQ(secondSpy.count(), 2);
    EXPECT_EQ(otherSpy.count(), 0);
    EXPECT_EQ(firstSpy.at(0).at(0).toByteArray(), QByteArray("ping(int)"));
    EXPECT_EQ(firstSpy.at(0).at(1).toByteArray().toHex(), "00000005");
    EXPECT_EQ(firstSpy.at(1).at(1).toByteArray(), QByteArray()) << "no data arrives as an empty payload";
    EXPECT_EQ(journal().size(), 2);
}

TEST_F(QCopChannelTest, ListenerGoneBeforeDelivery_IsNotCalled)
{
    auto listener = std::make_unique<QCopChannel>("/MP/Gone");
    int calls = 0;
    QObject::connect(listener.get(), &QCopChannel::received, [&] { ++calls; });
    QCopChannel::send("/MP/Gone", "hello()");
    listener.reset();
    EXPECT_FALSE(QCopChannel::isRegistered("/MP/Gone"));
    processEvents();
    EXPECT_EQ(calls, 0);
}

} // namespace
