// The transfer session as the download manager sees it: the journaled calls
// of the platform session, in order and with their arguments.


#include "host/platform/HostJournal.h"
#include "host/platform/services/HostDownloadManager.h"
#include "share/MP_DLMSession.h"
#include "tests/support/Journal.h"
#include "tests/support/TestEnvironment.h"

#include <string>

namespace {

using MP_DLMSessionTest = TestEnvironment;

/** "service:call args" of every journaled download-manager line, args as compact JSON. */
MessageLines serviceCalls()
{
    return Journal::callsWithArgs(Journal::captured(), {QStringLiteral("service")});
}

std::string done(int cause)
{
    return "service:DLM_TransSession::transObjDone [{\"cause\":" + std::to_string(cause)
           + ",\"destination\":\"/dl/a.mp3\",\"flag\":0,\"message\":\"\",\"source\":\"Song\",\"status\":1},0]";
}

} // namespace

TEST_F(MP_DLMSessionTest, NothingIsReportedBeforeTheStart_ThenOneObjectAndTheCauseOnlyWithTheObject)
{
    MP_DLMSession session("", "", nullptr, nullptr);
    session.transObjProgress(10, 20, 0);
    session.transObjDone(1, 0);
    session.sessionDone(1, 0);
    EXPECT_TRUE(serviceCalls().empty());
    EXPECT_FALSE(HostDownloadManager::cancelNewest()) << "no platform session was opened";

    session.sessionStart("Song", "/dl/a.mp3");
    session.transObjProgress(40, 1000, 0);
    session.sessionDone(1, 7);
    EXPECT_EQ(serviceCalls(),
              MessageLines({"service:DLM_TransSession::DLM_TransSession [0,0]",
                            "service:DLM_TransSession::registerTransObjs [[{\"destination\":\"/dl/a.mp3\",\"kind\":0,"
                            "\"mode\":1,\"name\":\"\",\"reserved\":[0,0],\"size\":0,\"source\":\"Song\"}],1]",
                            "service:DLM_TransSession::startSession [0]",
                            "service:DLM_TransSession::transObjProgress [40,1000,0]", done(7),
                            "service:DLM_TransSession::sessionDone [1,0]"}));
}

TEST_F(MP_DLMSessionTest, CancelFromTheManagerSignalsBeforeTheDoneReports)
{
    MP_DLMSession session("", "", nullptr, nullptr);
    session.sessionStart("Song", "/dl/a.mp3");
    int callsWhenSignalled = -1;
    QObject::connect(&session, &MP_DLMSession::signalCancelFromDLM,
                     [&] { callsWhenSignalled = int(serviceCalls().size()); });
    HostJournal::startCapture();

    ASSERT_TRUE(HostDownloadManager::cancelNewest());
    EXPECT_EQ(callsWhenSignalled, 1) << "only the manager's own cancel precedes the signal";
    EXPECT_EQ(serviceCalls(), MessageLines({"service:DownloadManager::cancel [0]", done(0),
                                            "service:DLM_TransSession::sessionDone [1,0]"}));
}
