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
    EXPECT_EQ(QList<qsizetype>({secondSpy.count(), otherSpy.count(), goneCalls}), QList<qsizetype>({2, 0, 0}));
    QStringList heard;
    for (const QList<QVariant>& call : firstSpy)
        heard << call.at(0).toByteArray() + ' ' + call.at(1).toByteArray().toHex();
    EXPECT_EQ(heard, QStringList({"ping(int) 00000005", "/MP/Idle/Req/Play "})) << "no data: an empty payload";
    EXPECT_EQ(journal().size(), 3);
}

} // namespace
