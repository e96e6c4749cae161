// The memory card going out and in: its files wait aside, and each change is
// announced on the system channel.

#include "host/platform/phone/HostMemoryCard.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>

#include "host/platform/phone/HostStorage.h"
#include "tests/support/Journal.h"
#include "tests/support/TestEnvironment.h"

namespace {

class HostMemoryCardTest : public TestEnvironment {};

TEST_F(HostMemoryCardTest, OutAndIn_KeepsTheCardsFiles_AndAnnouncesBoth)
{
    QString error;
    ASSERT_FALSE(HostMemoryCard::isInserted());
    ASSERT_TRUE(HostMemoryCard::insert(&error)) << qPrintable(error);
    EXPECT_TRUE(QDir(HostStorage::memoryCardPath()).isEmpty()) << "nothing aside: an empty card";
    QFile song(HostStorage::memoryCardPath() + "/song.mp3");
    ASSERT_TRUE(song.open(QIODevice::WriteOnly));
    song.close();

    ASSERT_TRUE(HostMemoryCard::remove(&error)) << qPrintable(error);
    EXPECT_FALSE(QFile::exists(song.fileName()));
    EXPECT_FALSE(HostMemoryCard::remove(&error));
    EXPECT_EQ(error, "there is no memory card to take out");

    ASSERT_TRUE(HostMemoryCard::insert(&error)) << qPrintable(error);
    EXPECT_TRUE(QFile::exists(song.fileName())) << "the card came back with its file";
    EXPECT_FALSE(HostMemoryCard::insert(&error));
    EXPECT_EQ(error, "the memory card is in already");

    EXPECT_EQ(channelMessages("VEMO/System"),
              (MessageLines{"cardHotplugEvent(int,int) 0000000100000001", "cardHotplugEvent(int,int) 0000000100000000",
                            "cardHotplugEvent(int,int) 0000000100000001"}));
    EXPECT_EQ(journalArgs("phone", "setMemoryCard"), (QList<QJsonArray>{{true}, {false}, {true}}));
}

} // namespace
