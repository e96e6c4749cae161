// The channel contracts (host/contracts) against both of their ends: the
// real library, driven in-process through its main window, and the host's
// real readers and senders of its messages: qcop's decoder and payload
// builder, the bridge's mirror of the player, and the setup screen. A message
// renamed, or a payload type changed, on either side breaks one of these.
// (Which message each of the bridge's requests sends is its own test's.) Last,
// how qcop's decoder reads a payload that does not keep a contract.

#include <QDBusObjectPath>
#include <QUrl>

#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "host/contracts/ChannelContracts.h"
#include "host/engine/HostEngine.h"
#include "host/engine/HostEngineClock.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/services/setuplib/HostSetupDialog.h"
#include "host/platform/toolkit/HostDialogs.h"
#include "host/tools/mp-mpris/DatabaseTrackLookup.h"
#include "host/tools/mp-mpris/PlayerMirror.h"
#include "host/tools/mp-mpris/StoredPlaySettings.h"
#include "host/tools/qcop/PayloadDecoder.h"
#include "host/words/PayloadBuilder.h"
#include "lists/MP_AufList.h"
#include "platform/QCopChannel.h"
#include "screen/MP_WindowClient.h"
#include "tests/support/Journal.h"
#include "tests/support/MainWindowFixture.h"
#include "tests/support/SongBuilder.h"

namespace {

using ChannelAndName = std::pair<std::string, std::string>;

struct SentMessage {
    QByteArray channel;
    QByteArray name;
    QByteArray data;
};

/** Every channel message sent in this process since the capture began, in order. */
std::vector<SentMessage> sentMessages()
{
    std::vector<SentMessage> sent;
    for (const QJsonObject& line : Journal::captured()) {
        if (line.value("kind") == "qcop")
            sent.push_back({line.value("channel").toString().toUtf8(), line.value("message").toString().toUtf8(),
                            QByteArray::fromHex(line.value("data").toString().toLatin1())});
    }
    return sent;
}

/** Every message the contracts declare going @p direction. */
std::set<ChannelAndName> declared(MessageDirection direction)
{
    std::set<ChannelAndName> messages;
    for (const ChannelContract& contract : ChannelContracts::kAll) {
        for (const ChannelMessage& message : contract) {
            if (message.direction == direction)
                messages.insert({contract.channel, message.name});
        }
    }
    return messages;
}

/** Whether @p message is declared, going @p direction, and `qcop` decodes it
 *  by its declared types, one word a type, with no byte left over. */
testing::AssertionResult keepsItsContract(const SentMessage& message, MessageDirection direction)
{
    const ChannelMessage* contract = ChannelContracts::find(message.channel, message.name);
    if (!contract || contract->direction != direction)
        return testing::AssertionFailure() << "not declared this way: " << message.channel.constData() << ' '
                                           << message.name.constData();
    const QStringList words = PayloadDecoder::describe(message.name, message.data);
    const QStringList types = ChannelContracts::payloadTypes(*contract);
    if (words.size() != types.size() || words.join(' ').startsWith("raw:"))
        return testing::AssertionFailure() << message.name.constData() << " reads as " << qPrintable(words.join(' '))
                                           << ", not as " << qPrintable(types.join(','));
    return testing::AssertionSuccess();
}

class ChannelContractTest : public MainWindowFixture {
protected:
    void SetUp() override
    {
        MainWindowFixture::SetUp();
        database = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(database);
        songA = database->addMedia(
            song(writeDataFile("music/a.mp3")).title("Afterglow").artist("Aurora Lane").album("Northern Lights"));
        songB = database->addMedia(song(writeDataFile("music/b.mp3")).title("Beacon").artist("Aurora Lane"));
        database->addMedia(song(writeDataFile("video/clip.mp4")).title("Clip").video());
        playList = database->addGroup(METADATA_GROUP_USER, "Evening");
        ASSERT_TRUE(database->setGroupMembers(playList, {songB, songA}));
        // The bridge hears the player's channels, as it does on the bus.
        for (const char* channel :
             {IdleScreenChannel::kChannel, MediaBrowserChannel::kNewsChannel, SetupChangeChannel::kChannel}) {
            listeners.push_back(std::make_unique<QCopChannel>(channel));
            QObject::connect(listeners.back().get(), &QCopChannel::received,
                             [this, channel](const QCString& name, const QByteArray& data) {
                                 mirror.receive(channel, name, data);
                             });
        }
        create();
    }

    void launch(const QString& action, const QList<QPair<QString, QString>>& values)
    {
        AM_ActionData record(action);
        for (const auto& [key, value] : values)
            record.setValue(key, value);
        window->onReceiveAction(record);
        processEvents();
    }
    void playArtist() { launch("PlayMusicListInMediaplayer", {{"isAllArtist", "0"}, {"Artist", "Aurora Lane"}}); }
    void playPlayList()
    {
        launch("PlayUserListInMediaplayer", {{"Type", "0"}, {"GroupObjectID", QString::number(playList)}});
    }

    /** The player's engine and control calls since the capture began
     *  ("control:next []"), then the names of its messages on @p watched. */
    static MessageLines reaction(const char* watched)
    {
        MessageLines lines = Journal::callsWithArgs(journal(), {"engine", "control"});
        for (const SentMessage& message : sentMessages()) {
            if (watched && message.channel == watched)
                lines.push_back(message.name.toStdString());
        }
        return lines;
    }

    static QString trackId(quint32 id) { return QStringLiteral("/org/mediaplayerhost/Track/%1").arg(id); }

    std::unique_ptr<MediaDatabase> database;
    quint32 songA = 0;
    quint32 songB = 0;
    quint32 playList = 0;
    DatabaseTrackLookup tracks;
    StoredPlaySettings settings;
    PlayerMirror mirror{tracks, settings};
    std::vector<std::unique_ptr<QCopChannel>> listeners;
};

TEST_F(ChannelContractTest, EverythingThePlayerSays_IsDeclared_DecodesByItsTypes_AndTheMirrorFollowsIt)
{
    playArtist();
    HostEngineClock::advance(1000);
    processEvents();
    EXPECT_EQ(mirror.playbackStatus(), "Playing");
    EXPECT_EQ(mirror.position(), 1000000);
    const QVariantMap songAData{{"mpris:trackid", QVariant::fromValue(QDBusObjectPath(trackId(songA)))},
                                {"xesam:title", "Afterglow"},
                                {"xesam:artist", QStringList{"Aurora Lane"}},
                                {"xesam:album", "Northern Lights"},
                                {"xesam:url", QUrl::fromLocalFile(dataPath("music/a.mp3")).toString()},
                                {"mpris:length", qint64(10000000)}};
    EXPECT_EQ(mirror.metadata(), songAData);

    window->onHidePlayer();
    playPlayList();
    EXPECT_EQ(mirror.trackId(), trackId(songB)) << "the play list's first song";

    HostSetupDialog(0).apply(2, true);
    processEvents();
    EXPECT_EQ(std::pair(mirror.shuffleMode(), mirror.repeat()), std::pair(2, true));

    // A download that plays: Back, Yes cancels it; then Hide Download.
    static_cast<HostEngine*>(window->commonPlayer())->setMediumType(MP_MEDIUM_PROGRESSIVE_DOWNLOAD);
    HostDialogs::queueAnswer(1);
    ASSERT_TRUE(QMetaObject::invokeMethod(window->windowClient(), "onBackClicked"));
    ASSERT_TRUE(QMetaObject::invokeMethod(window->windowClient(), "onMenuHidePD"));
    window.reset();
    processEvents();
    EXPECT_FALSE(mirror.isPresent());

    std::set<ChannelAndName> said;
    for (const SentMessage& message : sentMessages()) {
        const bool fromPlayer = message.channel != SetupChangeChannel::kChannel;
        EXPECT_TRUE(keepsItsContract(message, fromPlayer ? MessageDirection::FromPlayer : MessageDirection::ToPlayer));
        said.insert({message.channel.toStdString(), message.name.toStdString()});
        // Each message alone, to a mirror of its own: an exit ends a player it
        // knew, other news makes one known, a setup change is read.
        PlayerMirror fresh(tracks, settings);
        const bool exit = message.name == MediaBrowserChannel::kExited || message.name == IdleScreenChannel::kExit;
        if (exit)
            fresh.receive(MediaBrowserChannel::kNewsChannel, MediaBrowserChannel::kStarted, {});
        fresh.receive(message.channel, message.name, message.data);
        if (message.channel == SetupChangeChannel::kChannel) {
            EXPECT_EQ(fresh.shuffleMode(), 2) << message.name.constData();  // as stored above
        } else if (message.channel == IdleScreenChannel::kChannel
                   || message.channel == MediaBrowserChannel::kNewsChannel) {
            EXPECT_EQ(fresh.isPresent(), !exit) << message.name.constData();
        }
    }
    for (const ChannelAndName& message : declared(MessageDirection::FromPlayer))
        EXPECT_EQ(said.count(message), 1u) << "never said: " << message.first << ' ' << message.second;
}

TEST_F(ChannelContractTest, EveryDeclaredRequest_ReachesThePlayerWithItsTypes_AndIsActedOn)
{
    namespace Idle = IdleScreenChannel;
    namespace Browser = MediaBrowserChannel;
    namespace Setup = SetupChangeChannel;
    namespace System = SystemChannel;
    const QString nextKey = QString::number(KeyEventChannel::kNextKey);
    const QString release = QString::number(KeyEventChannel::kRelease);
    // The window and the idle client each hand the engine the modes.
    const auto modes = [](const char* shuffleRepeat) {
        const std::string call = std::string("engine:setShuffleRepeat ") + shuffleRepeat;
        return MessageLines{call, call};
    };
    const struct {
        const char* channel;
        const char* name;
        QStringList words;  ///< the payload, as qcop takes it
        MessageLines reaction;
        const char* watched = nullptr;
        bool onVideos = false;
    } rows[] = {
        {Idle::kChannel, Idle::kSeekForth, {"int:2"}, {"control:seek [10000]"}},
        {Idle::kChannel, Idle::kSeekBack, {"int:1"}, {"control:seek [-5000]"}},
        {Idle::kChannel, Idle::kSeekEnd, {}, {"control:seekFinished []"}},
        {Idle::kChannel, Idle::kPlay, {}, {"control:playPause []"}},
        {Idle::kChannel, Idle::kPause, {}, {"control:playPause []"}},
        {Idle::kChannel, Idle::kNext, {}, {"control:next []"}},
        {Idle::kChannel, Idle::kPrev, {}, {"control:previous []"}},
        {Idle::kChannel, Idle::kRestore, {}, {"engine:showPlayer []"}},
        {Idle::kChannel, Idle::kUpdate, {}, {"control:requestUpdate [\"listener\"]"}},
        {Idle::kChannel, Idle::kShuffle, {}, modes("[false,false]")},
        {Idle::kChannel, Idle::kRepeat, {}, modes("[false,true]")},
        {Browser::kRequestChannel, Browser::kUnhide, {}, {"engine:showPlayer []"}},
        {Browser::kRequestChannel, Browser::kQuery, {}, {Browser::kSystemItem, Browser::kState}, Browser::kNewsChannel},
        {KeyEventChannel::kChannel, KeyEventChannel::kKey, {"int:" + nextKey, "int:" + release}, {"control:next []"}},
        {System::kChannel, System::kApplyStyle, {}, {HomeScreenChannel::kDeactivate, HomeScreenChannel::kActivate},
         HomeScreenChannel::kChannel},
        {Setup::kChannel, Setup::kShuffleMusic, {"int:2"}, {"engine:setShuffleRepeat [true,true]"}},
        {Setup::kChannel, Setup::kRepeatMusic, {"int:0"}, {"engine:setShuffleRepeat [true,false]"}},
        {Setup::kChannel, Setup::kShuffleVideo, {"int:1"}, {"engine:setShuffleRepeat [true,false]"}, nullptr, true},
        {Setup::kChannel, Setup::kRepeatVideo, {"int:1"}, {"engine:setShuffleRepeat [true,true]"}, nullptr, true},
        {Idle::kChannel, Idle::kQuit, {}, {"engine:closePlayerWindow []"}},
        {System::kChannel, System::kCardHotplug, {"int:1", "int:0"}, {"engine:closePlayerWindow []"}},
    };
    playArtist();
    std::set<ChannelAndName> sent;
    for (const auto& row : rows) {
        if (row.onVideos && !window->currentList()->isVideoList())
            launch("PlayVideoInMediaplayer", {{"SelectionType", "All"}});
        QByteArray payload;
        QString error;
        ASSERT_TRUE(PayloadBuilder::build(row.words, &payload, &error)) << qPrintable(error);
        EXPECT_TRUE(keepsItsContract({row.channel, row.name, payload}, MessageDirection::ToPlayer));
        EXPECT_EQ(PayloadDecoder::describe(row.name, payload), row.words) << "qcop prints what it sends";
        HostJournal::startCapture();
        QCopChannel::send(row.channel, row.name, payload);
        processEvents();
        EXPECT_EQ(reaction(row.watched), row.reaction) << row.name;
        sent.insert({row.channel, row.name});
    }
    EXPECT_EQ(sent, declared(MessageDirection::ToPlayer));
}

TEST(PayloadDecoderTest, DecodesByTheTypesTheNameGivesElseShowsTheBytes)
{
    const QByteArray keyPayload = QByteArray::fromHex("00000005ffffffff");
    EXPECT_EQ(PayloadDecoder::describe("keyMsg(int,int)", keyPayload), (QStringList{"int:5", "int:-1"}));
    EXPECT_EQ(PayloadDecoder::describe("keyMsg(int,int)", QByteArray::fromHex("000000050000")),
              QStringList{"raw:000000050000"})
        << "a short payload is not read past its end";
    EXPECT_EQ(PayloadDecoder::describe("keyMsg(int,int)", keyPayload + '\x01'), QStringList{"raw:00000005ffffffff01"})
        << "bytes left over";
    EXPECT_EQ(PayloadDecoder::describe("f(QString,QString,Q_INT8)", QByteArray::fromHex("ffffffff00000000") + "\x07"),
              (QStringList{"str:null", "str:\"\"", "i8:7"}));
    EXPECT_EQ(PayloadDecoder::describe("f(QByteArray,QByteArray)", QByteArray::fromHex("00000002abcd00000000")),
              (QStringList{"bytes:abcd", "bytes:"}));
    EXPECT_EQ(PayloadDecoder::describe("f(QString)", QByteArray::fromHex("0000000600220061005c")),
              QStringList{"str:\"\\\"a\\\\\""});
    EXPECT_EQ(PayloadDecoder::describe("f(QString)", QByteArray::fromHex("7fffffff0041")), QStringList{"raw:7fffffff0041"})
        << "a length beyond the payload";
    EXPECT_EQ(PayloadDecoder::describe("f(QRect)", keyPayload), QStringList{"raw:00000005ffffffff"});
    EXPECT_EQ(PayloadDecoder::describe("noTypes", keyPayload), QStringList{"raw:00000005ffffffff"});
    EXPECT_EQ(PayloadDecoder::describe("applyStyle()", QByteArray()), QStringList());
}

} // namespace
