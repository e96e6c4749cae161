// What waits of other processes' messages: bounded, in order, and folding
// only the requests that asking twice in a row does not change.

#include <gtest/gtest.h>

#include "host/platform/channels/QCopBacklog.h"

namespace {

QCopBacklog::Message idle(const char* request, const QByteArray& data = {})
{
    return {"/MP/Idle/Channel", request, data};
}

QStringList drain(QCopBacklog& backlog)
{
    QStringList taken;
    while (!backlog.isEmpty()) {
        const QCopBacklog::Message message = backlog.take();
        taken.append(QString::fromUtf8(message.message + ' ' + message.data.toHex()));
    }
    return taken;
}

TEST(QCopBacklogTest, RepeatedShowAndTellRequestsFold_CountedOnesNever)
{
    QCopBacklog backlog;
    EXPECT_TRUE(backlog.add(idle("/MP/Idle/Req/Update")));
    EXPECT_FALSE(backlog.add(idle("/MP/Idle/Req/Update")));
    EXPECT_TRUE(backlog.add(idle("/MP/Idle/Req/Next")));
    EXPECT_TRUE(backlog.add(idle("/MP/Idle/Req/Next")));
    EXPECT_TRUE(backlog.add(idle("/MP/Idle/Req/Update"))) << "not the last waiting: the Next came between";
    EXPECT_TRUE(backlog.add(idle("/MP/Idle/Req/Seek/END")));
    EXPECT_FALSE(backlog.add(idle("/MP/Idle/Req/Seek/END")));
    EXPECT_TRUE(backlog.add(idle("/MP/Idle/Req/Seek/END", "1"))) << "other bytes: another request";
    EXPECT_TRUE(backlog.add({"OTHER", "/MP/Idle/Req/Seek/END", {}})) << "the same name on another channel";
    EXPECT_TRUE(backlog.add({"OTHER", "/MP/Idle/Req/Seek/END", {}}));
    EXPECT_EQ(backlog.dropped(), 0);
    EXPECT_EQ(drain(backlog), (QStringList{"/MP/Idle/Req/Update ", "/MP/Idle/Req/Next ", "/MP/Idle/Req/Next ",
                                           "/MP/Idle/Req/Update ", "/MP/Idle/Req/Seek/END ",
                                           "/MP/Idle/Req/Seek/END 31", "/MP/Idle/Req/Seek/END ",
                                           "/MP/Idle/Req/Seek/END "}));
}

TEST(QCopBacklogTest, AFullBacklogDropsWhatComesUntilRoomIsMade)
{
    QCopBacklog backlog;
    for (int i = 0; i < QCopBacklog::kLimit; ++i)
        ASSERT_TRUE(backlog.add(idle("/MP/Idle/Req/Next", QByteArray::number(i))));
    EXPECT_FALSE(backlog.add(idle("/MP/Idle/Req/Prev")));
    EXPECT_FALSE(backlog.add(idle("/MP/Idle/Req/Prev")));
    EXPECT_EQ(backlog.dropped(), 2);
    EXPECT_EQ(backlog.size(), QCopBacklog::kLimit);
    EXPECT_EQ(backlog.take().data, "0") << "the oldest first";
    EXPECT_TRUE(backlog.add(idle("/MP/Idle/Req/Prev")));
    EXPECT_EQ(backlog.size(), QCopBacklog::kLimit);
}

} // namespace
