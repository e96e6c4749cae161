// The transfer session as the download manager sees it: the journaled calls
// of the platform session, in order and with their arguments.

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>

#include "host/platform/HostJournal.h"
#include "host/platform/services/HostDownloadManager.h"
#include "share/MP_DLMSession.h"
#include "tests/support/TestEnvironment.h"

namespace {

class MP_DLMSessionTest : public TestEnvironment {
protected:
    /** "call args" of every journaled download-manager line, args as compact JSON. */
    static QStringList serviceCalls()
    {
        QStringList calls;
        for (const QJsonObject& line : journal()) {
            if (line.value("kind").toString() != QLatin1String("service"))
                continue;
            calls << line.value("call").toString() + QLatin1Char(' ')
                         + QString::fromUtf8(QJsonDocument(line.value("args").toArray()).toJson(QJsonDocument::Compact));
        }
        return calls;
    }
};

const QString kDone = QStringLiteral(
    "DLM_TransSession::transObjDone "
    "[{\"cause\":%1,\"destination\":\"/dl/a.mp3\",\"flag\":0,\"message\":\"\",\"source\":\"Song\",\"status\":1},0]");

} // namespace

TEST_F(MP_DLMSessionTest, NothingIsReportedBeforeTheStart)
{
    MP_DLMSession session("", "", nullptr, nullptr);
    session.transObjProgress(10, 20, 0);
    session.transObjDone(1, 0);
    session.sessionDone(1, 0);
    EXPECT_TRUE(serviceCalls().isEmpty());
    EXPECT_FALSE(HostDownloadManager::cancelNewest()) << "no platform session was opened";
}

TEST_F(MP_DLMSessionTest, StartRegistersOneObjectAndDoneSendsTheCauseOnlyWithTheObject)
{
    MP_DLMSession session("", "", nullptr, nullptr);
    session.sessionStart("Song", "/dl/a.mp3");
    session.transObjProgress(40, 1000, 0);
    session.sessionDone(1, 7);
    EXPECT_EQ(serviceCalls(),
              QStringList({"DLM_TransSession::DLM_TransSession [0,0]",
                           "DLM_TransSession::registerTransObjs [[{\"destination\":\"/dl/a.mp3\",\"kind\":0,"
                           "\"mode\":1,\"name\":\"\",\"reserved\":[0,0],\"size\":0,\"source\":\"Song\"}],1]",
                           "DLM_TransSession::startSession [0]",
                           "DLM_TransSession::transObjProgress [40,1000,0]",
                           kDone.arg(7),
                           "DLM_TransSession::sessionDone [1,0]"}));
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
    EXPECT_EQ(serviceCalls(), QStringList({"DownloadManager::cancel [0]", kDone.arg(0),
                                           "DLM_TransSession::sessionDone [1,0]"}));
}
