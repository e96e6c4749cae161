// The player, qcop and the media-controls bridge as separate processes on a
// private session bus: what one says the others hear, byte for byte.

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>
#include <QCoreApplication>

#include <functional>

#include <gtest/gtest.h>

#include "host/tools/qcop/PayloadDecoder.h"
#include "tests/scenarios/ScenarioRun.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/ProjectProgram.h"

namespace {

const int kWaitMs = 15000;

// Plays the album from its first song and stays until the test says done.
const QByteArray kPlayerScript =
    "clock manual\n"
    "action PlayMusicListInMediaplayer isAllArtist=1 isAllAlbum=0 \"Album=Northern Lights\" isAllGenre=1 "
    "isAllComposer=1 FirstIndex=0 StorageLocation=2\n"
    "await TEST/Control done 60000\n"
    "quit\n";

/** Reads @p process's @p channel line by line until one equals @p line; the lines read, joined. */
QString readUntil(QProcess& process, QProcess::ProcessChannel channel, const QString& line)
{
    process.setReadChannel(channel);
    QStringList lines;
    const QDeadlineTimer deadline(kWaitMs);
    while (lines.isEmpty() || lines.last() != line) {
        if (!process.canReadLine() && !process.waitForReadyRead(int(deadline.remainingTime())))
            break;
        while (process.canReadLine() && (lines.isEmpty() || lines.last() != line))
            lines.append(QString::fromUtf8(process.readLine()).chopped(1));
    }
    return lines.join(QLatin1Char('\n'));
}

class PlayerProcessTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (m_bus.address().isEmpty())
            GTEST_SKIP() << m_bus.error().toStdString();
        ASSERT_TRUE(m_run.scanSampleLibrary());
        QFile script(m_run.dataDir() + "/player.mps");
        ASSERT_TRUE(script.open(QIODevice::WriteOnly) && script.write(kPlayerScript) == kPlayerScript.size());
    }

    void TearDown() override
    {
        for (QProcess* process : {&m_player, &m_tool}) {
            process->kill();
            process->waitForFinished(kWaitMs);
        }
        QDBusConnection::disconnectFromBus(QStringLiteral("player-process-test"));
    }

    void start(QProcess& process, const QString& program, const QStringList& arguments)
    {
        process.setProcessEnvironment(m_bus.environment());
        process.setWorkingDirectory(ScenarioRun::sampleLibrary());
        ProjectProgram::start(process, program, arguments);
    }

    /** Starts the player on the script; true once it waits for the test. */
    bool startPlayer()
    {
        start(m_player, "mediaplayer",
              {"--data-dir", m_run.dataDir() + "/data", "--journal", m_run.dataDir() + "/journal.jsonl", "--quiet",
               "--log", m_run.dataDir() + "/trace.log", "--script", m_run.dataDir() + "/player.mps"});
        const QString awaiting = "await: listening on TEST/Control for done";
        return readUntil(m_player, QProcess::StandardError, awaiting).endsWith(awaiting);
    }

    /** Starts mp-mpris and connects the test to the bus; true once it offers the player. */
    bool startBridge()
    {
        if (!QDBusConnection::connectToBus(m_bus.address(), QStringLiteral("player-process-test")).isConnected())
            return false;
        start(m_tool, "mp-mpris", {"--data-dir", m_run.dataDir() + "/data"});
        const QString offering = "mp-mpris: offering org.mpris.MediaPlayer2.mediaplayer";
        return readUntil(m_tool, QProcess::StandardError, offering) == offering;
    }

    int qcop(const QStringList& arguments)
    {
        QProcess process;
        start(process, "qcop", arguments);
        process.waitForFinished(kWaitMs);
        return process.exitCode();
    }

    /** Tells the player to quit; its exit code. */
    int endPlayer()
    {
        qcop({"TEST/Control", "done"});
        m_player.waitForFinished(kWaitMs);
        return m_player.exitCode();
    }

    PrivateBus m_bus;
    ScenarioRun m_run;
    QProcess m_player;
    QProcess m_tool;  ///< the listener or the bridge
};

TEST_F(PlayerProcessTest, QcopHearsThePlayersIdleMessagesAndMovesItOn)
{
    start(m_tool, "qcop", {"--listen", "/MP/Idle/Channel"});
    ASSERT_EQ(readUntil(m_tool, QProcess::StandardError, "qcop: listening on 1 channel(s)"),
              "qcop: listening on 1 channel(s)");
    ASSERT_TRUE(startPlayer());
    const QString playing = "/MP/Idle/Channel /MP/Idle/Info/State int:1";
    QString heard = readUntil(m_tool, QProcess::StandardOutput, playing);
    ASSERT_TRUE(heard.endsWith(playing)) << heard.toStdString();

    // A seek without its count, from another process, is no seek.
    EXPECT_EQ(qcop({"/MP/Idle/Channel", "/MP/Idle/Req/Seek/Forth", "raw:0001"}), 0);
    EXPECT_EQ(qcop({"/MP/Idle/Channel", "/MP/Idle/Req/Next"}), 0);
    heard += '\n' + readUntil(m_tool, QProcess::StandardOutput,
                               "/MP/Idle/Channel /MP/Idle/Info/MetaInfo str:\"Harbour Wind - Northern Lights - "
                               "Aurora Lane\" bytes: i8:0");
    ASSERT_EQ(endPlayer(), 0) << m_player.readAllStandardError().toStdString();

    // Every idle message the player sent, as qcop decodes its bytes, in order.
    QStringList sent;
    for (const QJsonObject& line : m_run.journal()) {
        if (line.value("kind").toString() != "qcop" || line.value("channel").toString() != "/MP/Idle/Channel")
            continue;
        const QByteArray message = line.value("message").toString().toUtf8();
        sent.append((QStringList{"/MP/Idle/Channel", QString::fromUtf8(message)}
                     + PayloadDecoder::describe(message, QByteArray::fromHex(line.value("data").toString().toLatin1())))
                        .join(' '));
    }
    QStringList infos = heard.split('\n').filter("/MP/Idle/Info/");
    ASSERT_GE(sent.size(), infos.size());
    EXPECT_EQ(infos.join('\n').toStdString(), sent.mid(0, infos.size()).join('\n').toStdString());
    EXPECT_TRUE(heard.contains("/MP/Idle/Channel /MP/Idle/Req/Seek/Forth raw:0001"));
    EXPECT_EQ(m_run.argsOf("control", "seek").size(), 0);
    EXPECT_EQ(m_run.argsOf("control", "next").size(), 1);
    EXPECT_EQ(m_run.titlesPlayed().mid(0, 3).join(" | ").toStdString(), "Afterglow | First Light | Harbour Wind");
}

/** One property of the bridge, as a desktop reads it. */
QVariant bridgeProperty(const QString& interface, const QString& name)
{
    QDBusMessage get = QDBusMessage::createMethodCall("org.mpris.MediaPlayer2.mediaplayer", "/org/mpris/MediaPlayer2",
                                                      "org.freedesktop.DBus.Properties", "Get");
    get << interface << name;
    const QDBusMessage reply = QDBusConnection(QStringLiteral("player-process-test")).call(get);
    if (reply.type() != QDBusMessage::ReplyMessage)
        return {};
    return reply.arguments().value(0).value<QDBusVariant>().variant();
}

QVariantMap bridgeMetadata()
{
    return qdbus_cast<QVariantMap>(bridgeProperty("org.mpris.MediaPlayer2.Player", "Metadata").value<QDBusArgument>());
}

QString playbackStatus()
{
    return bridgeProperty("org.mpris.MediaPlayer2.Player", "PlaybackStatus").toString();
}

bool callBridge(const QString& method)
{
    QDBusMessage call = QDBusMessage::createMethodCall("org.mpris.MediaPlayer2.mediaplayer", "/org/mpris/MediaPlayer2",
                                                       "org.mpris.MediaPlayer2.Player", method);
    return QDBusConnection(QStringLiteral("player-process-test")).call(call).type() == QDBusMessage::ReplyMessage;
}

/** Runs the event loop until @p condition holds, at most kWaitMs. */
bool waitFor(const std::function<bool()>& condition)
{
    const QDeadlineTimer deadline(kWaitMs);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

TEST_F(PlayerProcessTest, TheBridgeFollowsThePlayerAndDrivesIt)
{
    ASSERT_TRUE(startBridge());
    EXPECT_EQ(playbackStatus(), "Stopped");
    EXPECT_EQ(bridgeMetadata(), QVariantMap());
    EXPECT_EQ(bridgeProperty("org.mpris.MediaPlayer2.Player", "CanPlay"), QVariant(false));
    EXPECT_EQ(bridgeProperty("org.mpris.MediaPlayer2", "Identity"), QVariant("Media Player"));
    EXPECT_EQ(bridgeProperty("org.mpris.MediaPlayer2", "HasTrackList"), QVariant(false));

    ASSERT_TRUE(startPlayer());
    ASSERT_TRUE(waitFor([] { return bridgeMetadata().value("xesam:title") == "First Light"; }))
        << bridgeMetadata().value("xesam:title").toString().toStdString();
    QVariantMap metadata = bridgeMetadata();
    EXPECT_EQ(metadata.value("xesam:album"), "Northern Lights");
    EXPECT_EQ(metadata.value("xesam:artist"), QStringList{"Aurora Lane"});
    EXPECT_EQ(metadata.value("mpris:length").metaType().id(), QMetaType::LongLong);
    EXPECT_EQ(metadata.value("mpris:length").toLongLong() % 1000000, 0) << "whole seconds, in microseconds";
    EXPECT_TRUE(metadata.value("mpris:trackid").value<QDBusObjectPath>().path().startsWith("/org/mediaplayerhost/Track/"));
    EXPECT_TRUE(metadata.value("xesam:url").toString().startsWith("file:///"));
    EXPECT_EQ(playbackStatus(), "Playing");
    EXPECT_EQ(bridgeProperty("org.mpris.MediaPlayer2.Player", "CanGoNext"), QVariant(true));

    ASSERT_TRUE(callBridge("Next"));
    EXPECT_TRUE(waitFor([] { return bridgeMetadata().value("xesam:title") == "Harbour Wind"; }));
    ASSERT_TRUE(callBridge("Pause"));
    EXPECT_TRUE(waitFor([] { return playbackStatus() == "Paused"; }));

    // The player goes and comes back; the bridge follows.
    ASSERT_EQ(endPlayer(), 0) << m_player.readAllStandardError().toStdString();
    EXPECT_TRUE(waitFor([] { return playbackStatus() == "Stopped" && bridgeMetadata().isEmpty(); }));
    EXPECT_EQ(bridgeProperty("org.mpris.MediaPlayer2.Player", "CanPlay"), QVariant(false));
    ASSERT_TRUE(startPlayer());
    EXPECT_TRUE(waitFor([] { return playbackStatus() == "Playing"; }));
    ASSERT_EQ(endPlayer(), 0);
}

TEST_F(PlayerProcessTest, TheBridgeNoticesAKilledPlayerAndFollowsTheNextOne)
{
    // The player runs first: the bridge learns which process it is from its answers.
    ASSERT_TRUE(startPlayer());
    ASSERT_TRUE(startBridge());
    ASSERT_TRUE(waitFor([] { return playbackStatus() == "Playing"; })) << playbackStatus().toStdString();
    const auto gone = [] {
        return playbackStatus() == "Stopped" && bridgeMetadata().isEmpty()
               && bridgeProperty("org.mpris.MediaPlayer2.Player", "CanPlay") == QVariant(false)
               && bridgeProperty("org.mpris.MediaPlayer2", "CanQuit") == QVariant(false);
    };
    for (int round = 0; round < 2; ++round) {
        m_player.kill();  // SIGKILL: the player says nothing more
        ASSERT_TRUE(m_player.waitForFinished(kWaitMs));
        EXPECT_TRUE(waitFor(gone)) << "round " << round << ": " << playbackStatus().toStdString();
        // The next player announces itself and is the one watched from now on.
        ASSERT_TRUE(startPlayer());
        EXPECT_TRUE(waitFor([] { return playbackStatus() == "Playing"; })) << "round " << round;
    }
    ASSERT_EQ(endPlayer(), 0);
}

} // namespace
