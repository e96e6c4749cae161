#include "platform/VmDialogs.h"

#include <QJsonObject>

#include "host/platform/toolkit/HostDialogs.h"
#include "tests/support/TestEnvironment.h"

namespace {

using HostDialogsTest = TestEnvironment;

TEST_F(HostDialogsTest, AnswersComeQueuedFirstThenTheSafeDefault)
{
    HostDialogs::queueAnswer(1);
    HostDialogs::queueAnswer(0);
    EXPECT_EQ(VmMessageDlg(2, "Delete", "Delete this song?").exec(), 1);
    EXPECT_EQ(VmNoticeDlg(1, "", "Done.").exec(), 0);
    // Nothing queued: a question answers No, a notice closes with 1.
    EXPECT_EQ(VmMessageDlg(2, "Delete", "Delete this song?").exec(), 0);
    EXPECT_EQ(VmNoticeDlg(1, "", "Done.").exec(), 1);

    const QList<QJsonObject> lines = journal();
    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(lines.at(0), (QJsonObject{{"kind", "dialog"}, {"class", "VmMessageDlg"}, {"type", 2},
                                        {"title", "Delete"}, {"text", "Delete this song?"}, {"answer", 1}}));
    EXPECT_EQ(lines.at(3).value("class").toString(), "VmNoticeDlg");
    EXPECT_EQ(lines.at(3).value("answer").toInt(), 1);
}

} // namespace
