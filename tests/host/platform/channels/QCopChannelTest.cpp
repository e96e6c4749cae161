#include "platform/QCopChannel.h"

#include <QSignalSpy>

#include <memory>

#include "tests/support/TestEnvironment.h"

namespace {

using QCopChannelTest = TestEnvironment;

TEST_F(QCopChannelTest, Send_DeliversThroughTheEventLoopToEveryListenerStillThere_RefusesEmptyNames)
{
    QCopChannel first("/MP/Test");
    QCopChannel second("/MP/Test");
    QCopChannel other("/MP/Other");
    auto gone = std::make_unique<QCopChannel>("/MP/Gone");
    QSignalSpy firstSpy(&first, SIGNAL(received(const QCString&, const QByteArray&)));
    QSignalSpy secondSpy(&second, SIGNAL(received(const QCString&, const QByteArray&)));
    QSignalSpy otherSpy(&other, SIGNAL(received(const QCString&, const QByteArray&)));
    int goneCalls = 0;
    QObject::connect(gone.get(), &QCopChannel::received, [&] { ++goneCalls; });

    // Refused: neither delivered nor journaled.
    EXPECT_FALSE(QCopChannel::send("", "hello()"));
    EXPECT_FALSE(QCopChannel::send("/MP/Test", ""));
    EXPECT_TRUE(QCopChannel::send("/MP/Test", "ping(int)", QByteArray("\0\0\0\x05", 4)));
    EXPECT_TRUE(QCopChannel::send("/MP/Test", "/MP/Idle/Req/Play"));
    EXPECT_TRUE(QCopChannel::send("/MP/Gone", "hello()"));
    EXPECT_EQ(firstSpy.count(), 0) << "a send never runs a receiver inside the sender's call";
    gone.reset();
    EXPECT_FALSE(QCopChannel::isRegistered("/MP/Gone"));

    processEvents();
    EXPECT_EQ(QList<qsizetype>({firstSpy.count(), secondSpy.count(), otherSpy.count(), goneCalls}),
              QList<qsizetype>({2, 2, 0, 0}));
    ASSERT_EQ(firstSpy.count(), 2);
    EXPECT_EQ(firstSpy.at(0).at(0).toByteArray(), QByteArray("ping(int)"));
    EXPECT_EQ(firstSpy.at(0).at(1).toByteArray().toHex(), "00000005");
    EXPECT_EQ(firstSpy.at(1).at(1).toByteArray(), QByteArray()) << "no data arrives as an empty payload";
    EXPECT_EQ(journal().size(), 3);
}

} // namespace
