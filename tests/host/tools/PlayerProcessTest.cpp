// The player, qcop and the media-controls bridge as separate processes on a
// private session bus: what one says the others hear and act on; and a flood
// of requests from another process, which the player's memory bounds.

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QProcess>
#include <QRegularExpression>

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include "tests/scenarios/ScenarioRun.h"
#include "tests/support/Journal.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/ProjectProgram.h"
#include "tests/support/TestEnvironment.h"

namespace {

// The programs run several times slower under an emulator.
const int kWaitMs = ProjectProgram::emulated() ? 60000 : 15000;

// The album from song FIRST, on the manual clock; each await is a step the test takes.
QByteArray albumScript(int first, const QByteArray& control = "TEST/Control", const QByteArray& steps = {})
{
    return "clock manual\n"
           "action PlayMusicListInMediaplayer isAllArtist=1 isAllAlbum=0 \"Album=Northern Lights\" isAllGenre=1 "
           "isAllComposer=1 FirstIndex=" + QByteArray::number(first) + " StorageLocation=2\n"
           + steps + "await " + control + " done 60000\nquit\n";
}

class PlayerProcessTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (m_bus.address().isEmpty())
            GTEST_SKIP() << m_bus.error().toStdString();
        ASSERT_TRUE(m_run.scanSampleLibrary());
    }

    void TearDown() override
    {
        for (QProcess* process : {&m_player, &m_tool, &m_second}) {
            process->kill();
            process->waitForFinished(kWaitMs);
        }
        QDBusConnection::disconnectFromBus(QStringLiteral("player-process-test"));
    }

    /** Starts @p program in the sample library, on the test's bus or in @p environment. */
    void start(QProcess& process, const QString& program, const QStringList& arguments,
               const QProcessEnvironment& environment = {})
    {
        process.setProcessEnvironment(environment.isEmpty() ? m_bus.environment() : environment);
        process.setWorkingDirectory(ScenarioRun::sampleLibrary());
        ProjectProgram::start(process, program, arguments);
    }

    /** Starts mp-mpris and connects the test to the bus; true once it offers the player. */
    bool startBridge()
    {
        if (!connectTest())
            return false;
        start(m_tool, "mp-mpris", {"--data-dir", m_run.dataDir() + "/data"});
        const QString offering = "mp-mpris: offering org.mpris.MediaPlayer2.mediaplayer";
        return ProjectProgram::readUntil(m_tool, QProcess::StandardError, offering) == offering;
    }

    bool connectTest()
    {
        return QDBusConnection::connectToBus(m_bus.address(), QStringLiteral("player-process-test")).isConnected();
    }

    /** Starts a player in @p process on @p script (written as NAME.mps, journaled to NAME.jsonl,
     *  on the shared data folder); true once the script's first await listens on @p awaiting. */
    bool startPlayerOn(QProcess& process, const QString& name, const QByteArray& script, const QString& awaiting,
                       const QStringList& extraArguments = {})
    {
        QFile file(m_run.dataDir() + "/" + name + ".mps");
        if (!file.open(QIODevice::WriteOnly) || file.write(script) != script.size())
            return false;
        file.close();
        start(process, "mediaplayer",
              QStringList{"--data-dir", m_run.dataDir() + "/data", "--journal", journalOf(name), "--quiet", "--log",
                          m_run.dataDir() + "/" + name + ".log", "--script", file.fileName()}
                  + extraArguments);
        m_playerSaid = ProjectProgram::readUntil(process, QProcess::StandardError, awaiting);
        return m_playerSaid.endsWith(awaiting);
    }

    QString journalOf(const QString& name) const { return m_run.dataDir() + "/" + name + ".jsonl"; }

    /** Sends a channel message from the test's own bus connection, at once. */
    void tell(const QByteArray& channel, const QByteArray& message)
    {
        QDBusMessage signal = QDBusMessage::createSignal("/org/mediaplayerhost/QCop", "org.mediaplayerhost.QCop",
                                                         "Message");
        signal << channel << message << QByteArray();
        QDBusConnection(QStringLiteral("player-process-test")).send(signal);
    }

    /** Runs qcop with @p arguments on the test's bus, or on @p busAddress; its exit code (-1 when it
     *  crashed), and what it said in @p errorOutput. */
    int runQcop(const QStringList& arguments, QString* errorOutput = nullptr, const QString& busAddress = {})
    {
        QProcessEnvironment environment = m_bus.environment();
        if (!busAddress.isEmpty())
            environment.insert("DBUS_SESSION_BUS_ADDRESS", busAddress);
        QProcess qcop;
        start(qcop, "qcop", arguments, environment);
        qcop.waitForFinished(kWaitMs);
        if (errorOutput)
            *errorOutput = QString::fromUtf8(qcop.readAllStandardError());
        return qcop.exitStatus() == QProcess::NormalExit ? qcop.exitCode() : -1;
    }

    /** Tells the player to quit, through qcop; its exit code. */
    int endPlayer()
    {
        QProcess qcop;
        start(qcop, "qcop", {"TEST/Control", "done"});
        qcop.waitForFinished(kWaitMs);
        m_player.waitForFinished(kWaitMs);
        return m_player.exitCode();
    }

    PrivateBus m_bus;
    ScenarioRun m_run;
    QProcess m_player;
    QProcess m_tool;  ///< the listener or the bridge
    QProcess m_second;  ///< a second player or bridge
    QString m_playerSaid;  ///< what the last player started by startPlayerOn wrote on standard error
};

/** Calls @p method of the bridge's @p interface from the test's connection; the answer. */
QDBusMessage callOnBridge(const QString& interface, const QString& method, const QVariantList& arguments = {})
{
    QDBusMessage call = QDBusMessage::createMethodCall("org.mpris.MediaPlayer2.mediaplayer", "/org/mpris/MediaPlayer2",
                                                       interface, method);
    call.setArguments(arguments);
    return QDBusConnection(QStringLiteral("player-process-test")).call(call);
}

/** One property of the bridge's player, as a desktop reads it. */
QVariant playerProperty(const QString& name)
{
    const QDBusMessage reply =
        callOnBridge("org.freedesktop.DBus.Properties", "Get", {QStringLiteral("org.mpris.MediaPlayer2.Player"), name});
    if (reply.type() != QDBusMessage::ReplyMessage)
        return {};
    return reply.arguments().value(0).value<QDBusVariant>().variant();
}

QVariantMap bridgeMetadata()
{
    return qdbus_cast<QVariantMap>(playerProperty("Metadata").value<QDBusArgument>());
}

QString playbackStatus()
{
    return playerProperty("PlaybackStatus").toString();
}

bool callBridge(const QString& method)
{
    return callOnBridge("org.mpris.MediaPlayer2.Player", method).type() == QDBusMessage::ReplyMessage;
}

bool setBridgeProperty(const QString& name, const QVariant& value)
{
    return callOnBridge("org.freedesktop.DBus.Properties", "Set",
                        {QStringLiteral("org.mpris.MediaPlayer2.Player"), name, QVariant::fromValue(QDBusVariant(value))})
               .type()
           == QDBusMessage::ReplyMessage;
}

QString title()
{
    return bridgeMetadata().value("xesam:title").toString();
}

/** The args of one kind and call in a journal file, in order. */
QList<QJsonArray> journalArgs(const QString& path, const QString& kind, const QString& call)
{
    return Journal::argsOf(Journal::readFile(path), kind, call);
}

/** Whether @p name has an owner on the test's bus; its process id in @p pid. */
bool busNameOwned(const QString& name, uint* pid = nullptr)
{
    QDBusConnectionInterface* bus = QDBusConnection(QStringLiteral("player-process-test")).interface();
    if (!bus->isServiceRegistered(name).value())
        return false;
    if (pid)
        *pid = bus->servicePid(name).value();
    return true;
}

/** Whether process @p pid runs (an ended one that nobody has reaped yet does not). */
bool processRuns(uint pid)
{
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!stat.open(QIODevice::ReadOnly))
        return false;
    const QByteArray line = stat.readAll();
    const int afterName = line.lastIndexOf(')');
    const char state = afterName >= 0 && afterName + 2 < line.size() ? line.at(afterName + 2) : 'X';
    return state != 'Z' && state != 'X';
}

bool waitFor(const std::function<bool()>& condition)
{
    return waitUntil(condition, kWaitMs);
}

/** The player's resident memory in kB, the sum of its mappings' resident parts; 0 when it cannot be
 *  read. Under the emulator, only what lies in the emulated 32-bit program's address space (the first
 *  4 GiB): the emulator's own memory, mostly the code it has translated, grows with every new path the
 *  player takes and is no part of the player's. */
long residentKb(qint64 pid)
{
    QFile maps(QStringLiteral("/proc/%1/smaps").arg(pid));
    if (!maps.open(QIODevice::ReadOnly))
        return 0;
    const qulonglong counted = ProjectProgram::emulated() ? 1ULL << 32 : ~0ULL;
    // Each mapping's line "start-end perms ..." is followed by its sizes.
    static const QRegularExpression kMapping(QStringLiteral("^[0-9a-f]+-([0-9a-f]+) "));
    bool inside = false;
    long kb = 0;
    for (const QByteArray& line : maps.readAll().split('\n')) {
        const QRegularExpressionMatch mapping = kMapping.match(QString::fromLatin1(line));
        if (mapping.hasMatch())
            inside = mapping.captured(1).toULongLong(nullptr, 16) <= counted;
        else if (inside && line.startsWith("Rss:"))
            kb += line.mid(4).trimmed().split(' ').value(0).toLong();
    }
    return kb;
}

/** Whether journal line @p line is of @p kind, and its call, or message, is @p name. */
bool isLine(const QByteArray& line, const QString& kind, const QString& name)
{
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    return object.value("kind").toString() == kind
           && (object.value("call").toString() == name || object.value("message").toString() == name);
}

/** The lines of journal @p path of @p kind whose call, or message, is @p name, in its first @p bytes. */
int countInJournal(const QString& path, const QString& kind, const QString& name, qint64 bytes = -1)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = file.read(bytes < 0 ? file.size() : bytes).split('\n');
    return int(std::count_if(lines.begin(), lines.end(),
                             [&](const QByteArray& line) { return isLine(line, kind, name); }));
}

/** Whether journal @p path shows a Next acted on within a minute: only what the player added since
 *  the last look is read, however long the journal grows. */
bool journalShowsANext(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QByteArray unfinishedLine;
    return waitUntil(
        [&] {
            const QList<QByteArray> lines = (unfinishedLine + file.readAll()).split('\n');
            unfinishedLine = lines.last();
            return std::any_of(lines.begin(), lines.end() - 1,
                               [](const QByteArray& line) { return isLine(line, "control", "next"); });
        },
        4 * kWaitMs);
}

// That the bus carries a message's bytes between processes as they were sent
// is qcop's test: the player, qcop and the bridge share the bus's one client.
TEST_F(PlayerProcessTest, TheBridgeFollowsThePlayerAndDrivesIt_ReadsBackShuffleAndLoop_ASecondTakesAnInstanceName)
{
    const QByteArray keys = "await TEST/Control keys 60000\nsetupkey 0x4002 pressed\nsetupkey 0x4002 released\n"
                            "await TEST/Control again 60000\nsetupkey 0x4002 pressed\nsetupkey 0x4002 released\n";
    ASSERT_TRUE(startBridge());
    ASSERT_TRUE(startPlayerOn(m_player, "keys", albumScript(0, "TEST/Control", keys),
                              "await: listening on TEST/Control for keys"));
    ASSERT_TRUE(waitFor([] { return title() == "First Light"; })) << title().toStdString();
    // Its values are the channel contract test's; here, the types they cross the bus in.
    const QVariantMap metadata = bridgeMetadata();
    EXPECT_EQ(metadata.value("xesam:artist"), QStringList{"Aurora Lane"});
    EXPECT_EQ(metadata.value("mpris:length").metaType().id(), QMetaType::LongLong);
    EXPECT_EQ(metadata.value("mpris:trackid").metaType().id(), qMetaTypeId<QDBusObjectPath>());
    EXPECT_EQ(playbackStatus(), "Playing");

    // Seeks as far as they go: before the start is no seek, past the end is Next.
    ASSERT_TRUE(waitFor([] { return playerProperty("CanSeek") == QVariant(true); }));
    const auto seek = [](qlonglong offset) {
        return callOnBridge("org.mpris.MediaPlayer2.Player", "Seek", {offset}).type();
    };
    EXPECT_EQ(seek(std::numeric_limits<qlonglong>::min()), QDBusMessage::ReplyMessage);
    EXPECT_EQ(seek(std::numeric_limits<qlonglong>::max()), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(waitFor([] { return title() == "Harbour Wind"; }));
    ASSERT_TRUE(callBridge("Next"));
    EXPECT_TRUE(waitFor([] { return !title().isEmpty() && title() != "Harbour Wind"; }));
    EXPECT_EQ(journalArgs(journalOf("keys"), "control", "seek").size(), 0) << "already at the start";
    EXPECT_EQ(journalArgs(journalOf("keys"), "control", "next").size(), 2);
    ASSERT_TRUE(callBridge("Pause"));
    EXPECT_TRUE(waitFor([] { return playbackStatus() == "Paused"; }));

    // Each change is read back, and handled to its end, before the next: the
    // player reads the mode the bridge stored, so a request stored while the
    // player still handles the one before would be read by that one.
    const auto shuffleIs = [](bool on) { return waitFor([on] { return playerProperty("Shuffle") == QVariant(on); }); };
    const auto engineCalls = [this] { return journalArgs(journalOf("keys"), "engine", "setShuffleRepeat").size(); };
    const std::pair<QString, QVariant> asked[] = {
        {"Shuffle", true}, {"Shuffle", false}, {"LoopStatus", "Playlist"}, {"Shuffle", true}, {"LoopStatus", "None"}};
    for (const auto& [name, value] : asked) {
        const qsizetype handled = engineCalls() + 2;  // the window's call, then the idle client's
        ASSERT_TRUE(setBridgeProperty(name, value));
        EXPECT_TRUE(waitFor([&] { return playerProperty(name) == value && engineCalls() == handled; }))
            << name.toStdString();
    }
    EXPECT_TRUE(shuffleIs(false)) << "changing repeat turns shuffle off";
    // The player screen's key, twice: on, then back off.
    tell("TEST/Control", "keys");
    EXPECT_TRUE(shuffleIs(true));
    ASSERT_TRUE(ProjectProgram::readUntil(m_player, QProcess::StandardError, "await: listening on TEST/Control for again")
                    .endsWith("again"));
    tell("TEST/Control", "again");
    EXPECT_TRUE(shuffleIs(false));
    ASSERT_TRUE(ProjectProgram::readUntil(m_player, QProcess::StandardError, "await: listening on TEST/Control for done")
                    .endsWith("done"));

    start(m_second, "mp-mpris", {"--data-dir", m_run.dataDir() + "/data"});
    const QString instance = "mp-mpris: offering org.mpris.MediaPlayer2.mediaplayer.instance"
                             + QString::number(m_second.processId());
    EXPECT_EQ(ProjectProgram::readUntil(m_second, QProcess::StandardError, instance), instance);

    // The player goes; the bridge shows that. (One coming after another: the sender tracker's test.)
    ASSERT_EQ(endPlayer(), 0) << m_player.readAllStandardError().toStdString();
    // What the engine was told after the list's installation, as the window applied it.
    // Each call reads "s" for shuffle and "r" for repeat, "-" for off.
    QStringList told;
    for (const QJsonArray& args : journalArgs(journalOf("keys"), "engine", "setShuffleRepeat"))
        told << QString(args[0].toBool() ? "s" : "-") + (args[1].toBool() ? "r" : "-");
    ASSERT_GE(told.size(), 12);
    // Shuffle on (the window, then the idle client), off, LoopStatus Playlist,
    // Shuffle on, LoopStatus None; then the key twice.
    EXPECT_EQ(told.mid(told.size() - 12).join(' ').toStdString(), "s- s- -- -- -r -r sr sr -- -- s- --");
    EXPECT_TRUE(waitFor([] { return playbackStatus() == "Stopped" && bridgeMetadata().isEmpty(); }));
}

TEST_F(PlayerProcessTest, OfTwoPlayersTheNewestIsFollowedAndDriven_ThenTheOneLeft)
{
    ASSERT_TRUE(startPlayerOn(m_player, "a", albumScript(0, "TEST/A", "await TEST/A tick 60000\nadvance 3000\n"),
                              "await: listening on TEST/A for tick"));
    ASSERT_TRUE(startBridge());
    ASSERT_TRUE(waitFor([] { return playbackStatus() == "Playing" && !title().isEmpty(); }));
    const QString titleOfA = title();

    ASSERT_TRUE(startPlayerOn(m_second, "b", albumScript(2, "TEST/B"), "await: listening on TEST/B for done"));
    ASSERT_TRUE(waitFor([&] { return !title().isEmpty() && title() != titleOfA; })) << title().toStdString();
    const QString titleOfB = title();

    // The older player speaks; the bridge keeps showing the newer one.
    tell("TEST/A", "tick");
    ASSERT_TRUE(ProjectProgram::readUntil(m_player, QProcess::StandardError, "await: listening on TEST/A for done")
                    .endsWith("await: listening on TEST/A for done"));
    for (int read = 0; read < 50; ++read) {
        ASSERT_EQ(title(), titleOfB) << "read " << read;
        ASSERT_EQ(playerProperty("Position").toLongLong(), 0) << "read " << read;
    }
    ASSERT_TRUE(callBridge("Next"));
    ASSERT_TRUE(waitFor([&] { return journalArgs(journalOf("b"), "control", "next").size() == 1; }));

    // The newer one dies; the bridge shows the older one as it plays on.
    m_second.kill();
    ASSERT_TRUE(m_second.waitForFinished(kWaitMs));
    EXPECT_TRUE(waitFor([&] {
        return playbackStatus() == "Playing" && title() == titleOfA && playerProperty("Position").toLongLong() == 3000000;
    })) << playbackStatus().toStdString() << " " << title().toStdString();
    tell("TEST/A", "done");
    ASSERT_TRUE(m_player.waitForFinished(kWaitMs));
    EXPECT_EQ(journalArgs(journalOf("a"), "control", "next").size(), 0) << "only the followed player moves";
}

TEST_F(PlayerProcessTest, ABridgeThatCannotStartIsSaid_TheBridgeEndsWithAKilledPlayerThatStartedIt_AndWithItsBus)
{
    ASSERT_TRUE(connectTest());
    // A player starts its bridge through the command MP_EMULATOR names; one that cannot start is said.
    qputenv("MP_EMULATOR", "/nonexistent/emulator \"an option\"");
    const bool started = startPlayerOn(m_second, "nobridge", "await TEST/Control done 60000\nquit\n",
                                       "await: listening on TEST/Control for done", {"--mpris"});
    qunsetenv("MP_EMULATOR");
    ASSERT_TRUE(started) << m_playerSaid.toStdString();
    // The await is the script's first line: the player's bus connection is as new as it can be.
    tell("TEST/Control", "done");
    const QStringList said = m_playerSaid.split('\n').filter("mediaplayer: --mpris:");
    ASSERT_EQ(said.size(), 1) << m_playerSaid.toStdString();
    // The bridge follows this player alone: its unique bus name, ":1.N".
    const QString command = "/nonexistent/emulator an option " + ProjectProgram::path("mp-mpris") + " --data-dir "
                            + m_run.dataDir() + "/data --follow :1.";
    EXPECT_TRUE(said[0].startsWith("mediaplayer: --mpris: cannot start " + command)) << said[0].toStdString();
    EXPECT_TRUE(said[0].contains(QRegularExpression("--follow :1\\.\\d+: \\S"))) << "and why: " << said[0].toStdString();
    ASSERT_TRUE(m_second.waitForFinished(kWaitMs)) << "the message sent at once was missed";
    EXPECT_EQ(m_second.exitCode(), 0) << m_second.readAllStandardError().toStdString();

    ASSERT_TRUE(startPlayerOn(m_player, "mpris", albumScript(0),
                              "await: listening on TEST/Control for done", {"--mpris"}))
        << m_playerSaid.toStdString();
    uint bridgePid = 0;
    ASSERT_TRUE(waitFor([&] { return busNameOwned("org.mpris.MediaPlayer2.mediaplayer", &bridgePid); }))
        << "the player's bridge never came on the bus; the player said:\n" << m_playerSaid.toStdString();
    ASSERT_NE(bridgePid, 0u);

    // A second player with a bridge of its own: the first bridge goes on
    // showing its own player, not the newer one.
    ASSERT_TRUE(waitFor([] { return title() == "First Light"; })) << title().toStdString();
    ASSERT_TRUE(startPlayerOn(m_second, "second", albumScript(2), "await: listening on TEST/Control for done",
                              {"--mpris"}));
    for (int read = 0; read < 20; ++read)
        ASSERT_EQ(title().toStdString(), "First Light") << "read " << read;
    m_second.kill();
    ASSERT_TRUE(m_second.waitForFinished(kWaitMs));
    m_player.kill();
    ASSERT_TRUE(m_player.waitForFinished(kWaitMs));
    EXPECT_TRUE(waitFor([&] {
        return !busNameOwned("org.mpris.MediaPlayer2.mediaplayer") && !processRuns(bridgePid);
    })) << "the bridge " << bridgePid << " outlived its player";

    // A bridge of its own ends when its bus goes.
    ASSERT_TRUE(startBridge());
    QDBusConnection::disconnectFromBus(QStringLiteral("player-process-test"));
    m_bus.stop();
    ASSERT_TRUE(m_tool.waitForFinished(kWaitMs));
    EXPECT_EQ(m_tool.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_tool.exitCode(), 3);
    EXPECT_EQ(ProjectProgram::readUntil(m_tool, QProcess::StandardError, "mp-mpris: the session bus went away"),
              "mp-mpris: the session bus went away");
}

// Bounded by the number of messages sent, never by time.
TEST_F(PlayerProcessTest, UpdateAndNextFloods_KeepMemoryBounded_AndTerminationEndsThePlayerAtOnce)
{
    const int floodSize = 100000;
    // What the player may still do between the signal and its end: the request it is acting on, not the
    // queue behind it.
    const int nextsAfterTermination = 5;
    // Repeat, so that the player plays on however often it is moved on.
    ASSERT_EQ(m_run.runText("setting MediaControlItem MusicRepeat bool:true\nquit\n"), 0);
    ASSERT_TRUE(connectTest());
    QProcessEnvironment environment = m_bus.environment();
#if defined(__SANITIZE_ADDRESS__)
    // Freed memory the sanitizer holds back would count as resident.
    environment.insert("ASAN_OPTIONS", environment.value("ASAN_OPTIONS") + ":quarantine_size_mb=8");
#endif
    const QString journal = journalOf("flood");
    // Without a script, as a person would start it.
    start(m_player, "mediaplayer",
          {"--data-dir", m_run.dataDir() + "/data", "--journal", journal, "--quiet", "--log",
           m_run.dataDir() + "/flood.log", "--action", "PlayMusicListInMediaplayer", "isAllArtist=1", "isAllAlbum=0",
           "Album=Northern Lights", "isAllGenre=1", "isAllComposer=1", "FirstIndex=0", "StorageLocation=2"},
          environment);
    ASSERT_TRUE(waitFor([&] { return countInJournal(journal, "qcop", "/MP/Idle/Info/State") > 0; }))
        << m_player.readAllStandardError().toStdString();
    const long before = residentKb(m_player.processId());
    ASSERT_GT(before, 0);
    // The player's largest resident memory while the test sends @p request floodSize times.
    const auto flood = [&](const QByteArray& request) {
        QDBusConnection bus(QStringLiteral("player-process-test"));
        long peak = before;
        for (int sent = 1; sent <= floodSize; ++sent) {
            tell("/MP/Idle/Channel", request);
            if (sent % 1000 == 0) {
                // A call returns after the signals before it have left: the player has them.
                bus.interface()->isServiceRegistered(QStringLiteral("org.freedesktop.DBus"));
                peak = std::max(peak, residentKb(m_player.processId()));
            }
        }
        return peak;
    };
    const long updatePeak = flood("/MP/Idle/Req/Update");
    const long peak = std::max(updatePeak, flood("/MP/Idle/Req/Next"));  // the Nexts last: they are acted on
    // The player acts on the flood at its own pace, behind its bounded
    // backlog (an emulated or starved one slowly): the termination comes
    // once it has acted on a Next, with the rest of the flood still waiting.
    ASSERT_TRUE(journalShowsANext(journal)) << "the player acted on none of the requests";
    // Where the journal stood when the signal went: the player writes it line by line. It stands
    // still meanwhile, lest what it did while this test waited for a processor count as after it.
    const pid_t player = pid_t(m_player.processId());
    siginfo_t stopped{};
    ASSERT_EQ(::kill(player, SIGSTOP) | ::waitid(P_PID, id_t(player), &stopped, WSTOPPED | WEXITED | WNOWAIT), 0);
    const qint64 journalAtTermination = QFileInfo(journal).size();
    ASSERT_EQ(::kill(player, SIGTERM) | ::kill(player, SIGCONT), 0);
    ASSERT_TRUE(m_player.waitForFinished(kWaitMs));
    const int nextsAtTermination = countInJournal(journal, "control", "next", journalAtTermination);
    EXPECT_EQ(m_player.exitStatus(), QProcess::NormalExit);
    // Ended in order, or, when the media back end locked up inside itself,
    // by the termination's own deadline, which says so.
    const QByteArray errors = m_player.readAllStandardError();
    if (m_player.exitCode() != 0) {
        EXPECT_TRUE(errors.contains("the orderly end did not finish within 10 s")) << errors.toStdString();
    }

    const int actedOnAfter = countInJournal(journal, "control", "next") - nextsAtTermination;
    EXPECT_LE(actedOnAfter, nextsAfterTermination) << "acted on " << actedOnAfter << " queued requests after SIGTERM";
#if !defined(__SANITIZE_ADDRESS__)
    // Under AddressSanitizer the allocator keeps freed blocks and their shadow
    // pages resident, so the memory bound is a property of the plain build.
    // However slowly the player acts (under the emulator, 20 times slower),
    // the flood waits in its bounded backlog, not in the process.
    const long residentLimitKb = 100 * 1024;
    const QString peaks = QStringLiteral("from %1 kB to %2 kB").arg(before).arg(peak);
    EXPECT_LT(peak - before, residentLimitKb - 31 * 1024) << peaks.toStdString();
    EXPECT_LT(peak, residentLimitKb) << peaks.toStdString();
#else
    (void)peak;
#endif
}

TEST_F(PlayerProcessTest, QcopMessagesReachTheListenersOfOtherProcessesInOrderWithTheirBytes_ForeignSignalsAreIgnored)
{
    start(m_tool, "qcop", {"--listen", "VEMO/System", "/MP/Idle/Channel"});
    const QString listening = "qcop: listening on 2 channel(s)";
    ASSERT_EQ(ProjectProgram::readUntil(m_tool, QProcess::StandardError, listening), listening);
    const auto linesUntil = [this](const QString& last) {
        return ProjectProgram::readUntil(m_tool, QProcess::StandardOutput, last);
    };
    EXPECT_EQ(runQcop({"VEMO/System", "keyMsg(int,int)", "int:5", "int:-1"}), 0);
    EXPECT_EQ(runQcop({"NOT/Listened", "x()"}), 0);
    EXPECT_EQ(runQcop({"/MP/Idle/Channel", "/MP/Idle/Req/Seek", "raw:00001388"}), 0);
    EXPECT_EQ(runQcop({"VEMO/System", "applyStyle()"}), 0);
    EXPECT_EQ(linesUntil("VEMO/System applyStyle()"),
              "VEMO/System keyMsg(int,int) int:5 int:-1\n"
              "/MP/Idle/Channel /MP/Idle/Req/Seek raw:00001388\n"
              "VEMO/System applyStyle()");

    ASSERT_TRUE(connectTest());
    QDBusConnection sender(QStringLiteral("player-process-test"));
    const auto signal = [](const QString& signature) {
        return QDBusMessage::createSignal("/org/mediaplayerhost/QCop", "org.mediaplayerhost.QCop", signature);
    };
    // Another program on the bus that speaks the same name but not the layout.
    sender.send(signal("Message") << QStringLiteral("VEMO/System") << QStringLiteral("wrong types") << 1);
    sender.send(signal("Message") << QByteArray("VEMO/System") << QByteArray());
    QStringList expected;
    for (int i = 0; i < 50; ++i) {
        sender.send(signal("Message") << QByteArray("VEMO/System") << QByteArray("n(int)")
                                      << QByteArray::fromHex("000000").append(char(i)));
        expected.append(QStringLiteral("VEMO/System n(int) int:%1").arg(i));
    }
    EXPECT_EQ(linesUntil("VEMO/System n(int) int:49"), expected.join(QLatin1Char('\n')));
}

TEST_F(PlayerProcessTest, QcopToldBadUsageAndNoBusApart)
{
    QString error;
    EXPECT_EQ(runQcop({}, &error), 2);
    EXPECT_TRUE(error.startsWith("qcop: no channel given\nusage: qcop CHANNEL MESSAGE")) << error.toStdString();
    EXPECT_EQ(runQcop({"--listen"}, &error), 2);
    EXPECT_EQ(runQcop({"C", "m(int)", "int:x"}, &error), 2);
    EXPECT_TRUE(error.startsWith("qcop: bad argument")) << error.toStdString();

    EXPECT_EQ(runQcop({"C", "m()"}, &error, "unix:path=/nonexistent/bus"), 1);
    EXPECT_EQ(error, "qcop: no D-Bus session bus (DBUS_SESSION_BUS_ADDRESS): no other process can be reached\n");
}

} // namespace
