#include "platform/VmDialogs.h"

#include "host/platform/toolkit/HostDialogs.h"
#include "tests/support/TestEnvironment.h"

namespace {

using HostDialogsTest = TestEnvironment;

// The window client's commands and the share tests see a question's callback,
// an information notice and the journal's dialog lines.
TEST_F(HostDialogsTest, QuestionsTakeQueuedAnswersInOrder_ANoticeLeavesThemToTheQuestions)
{
    HostDialogs::queueAnswer(0);
    HostDialogs::queueAnswer(1);
    EXPECT_EQ(VmNoticeDlg(1, "", "Done.").exec(), 1);
    EXPECT_EQ(VmMessageDlg(1, "Delete", "Delete this song?").exec(), 0);
    EXPECT_EQ(VmMessageDlg(1, "Delete", "Delete this song?").exec(), 1);
}

} // namespace
