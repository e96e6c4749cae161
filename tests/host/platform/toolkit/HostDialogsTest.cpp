#include "platform/VmDialogs.h"

#include <QJsonObject>

#include "host/platform/toolkit/HostDialogs.h"
#include "tests/support/TestEnvironment.h"

namespace {

using HostDialogsTest = TestEnvironment;

TEST_F(HostDialogsTest, QuestionsTakeQueuedAnswersThenNo_NoticesAlwaysCloseWith1)
{
    HostDialogs::queueAnswer(1);
    HostDialogs::queueAnswer(0);
    int whileOpen = 0;
    HostDialogs::queueAnswer(1, [&] { ++whileOpen; });
    EXPECT_EQ(VmMessageDlg(1, "Delete", "Delete this song?").exec(), 1);
    // A notice has one button: it leaves the queued answers to the questions.
    EXPECT_EQ(VmNoticeDlg(1, "", "Done.").exec(), 1);
    EXPECT_EQ(VmMessageDlg(2, "Buy More", "Marked.").exec(), 1) << "type 2 is the information notice";
    EXPECT_EQ(VmMessageDlg(1, "Delete", "Delete this song?").exec(), 0);
    EXPECT_EQ(whileOpen, 0);
    EXPECT_EQ(VmMessageDlg(1, "Remove", "Remove this song?").exec(), 1);
    EXPECT_EQ(whileOpen, 1) << "ran while the question was open";
    // Nothing queued: a question answers No.
    EXPECT_EQ(VmMessageDlg(1, "Delete", "Delete this song?").exec(), 0);

    const QList<QJsonObject> lines = journal();
    ASSERT_EQ(lines.size(), 6);
    EXPECT_EQ(lines.at(0), (QJsonObject{{"kind", "dialog"}, {"class", "VmMessageDlg"}, {"type", 1},
                                        {"title", "Delete"}, {"text", "Delete this song?"}, {"answer", 1}}));
    EXPECT_EQ(lines.at(1).value("class").toString(), "VmNoticeDlg");
    EXPECT_EQ(lines.at(1).value("answer").toInt(), 1);
    EXPECT_EQ(lines.at(2).value("answer").toInt(), 1);
}

} // namespace
