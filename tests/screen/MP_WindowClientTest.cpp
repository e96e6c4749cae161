// The player screen's client: which menu each screen shows, the hide and
// enable rules at building and at opening, the soft keys, the download state
// and the transfer session.

#include <QDir>
#include <QSignalSpy>

#include <memory>

#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/phone/HostPhone.h"
#include "host/platform/phone/HostStorage.h"
#include "host/platform/services/HostDownloadManager.h"
#include "tests/lists/TraceCapture.h"
#include "platform/STUFF_Global.h"
#include "platform/VmOptionsMenu.h"
#include "platform/VmSoftKey.h"
#include "screen/MP_WindowClient.h"
#include "tests/support/FakeEngine.h"
#include "tests/support/Journal.h"
#include "tests/support/PathList.h"
#include "tests/support/SongBuilder.h"
#include "tests/support/TestEnvironment.h"

namespace {

class MP_WindowClientTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        engine.path = writeDataFile("music/a.mp3");
    }

    MP_WindowClient& makeClient()
    {
        client = std::make_unique<MP_WindowClient>(&engine);
        client->updateMetaInfo("A", "B", "C", QByteArray(), true);
        return *client;
    }

    /** Opens the menu as the left key does, on the screen the engine plays. */
    VmOptionsMenu& open(int content, int medium)
    {
        engine.content = content;
        engine.medium = medium;
        VmOptionsMenu* menu = client->getMenu();
        emit menu->aboutToShow();
        return *menu;
    }

    QString rightKey() { return engine.widget.getSoftKey(false)->text(1); }

    /** Which of @p ids the menu shows, e.g. "1005 -1006" (a minus: hidden). */
    static QString shown(const VmOptionsMenu& menu, std::initializer_list<int> ids)
    {
        QStringList result;
        for (int id : ids)
            result << (menu.isItemVisible(id) ? QString::number(id) : QStringLiteral("-%1").arg(id));
        return result.join(' ');
    }

    FakeScreenEngine engine;
    std::unique_ptr<MP_WindowClient> client;
    TraceCapture traces;
};

} // namespace

TEST_F(MP_WindowClientTest, MenuIsMadeOnceAndBuiltPerScreen)
{
    MP_WindowClient& screen = makeClient();
    VmOptionsMenu* menu = screen.getMenu();
    ASSERT_NE(menu, nullptr);
    screen.updateMetaInfo("A", "B", "C", QByteArray(), true);
    EXPECT_EQ(screen.getMenu(), menu) << "a second report makes no second menu";
    EXPECT_EQ(engine.widget.getSoftKey(false)->text(0), QStringLiteral("Options"));
    EXPECT_EQ(engine.widget.getSoftKey(false)->optMenu(0), menu);

    // Each kind of content by each medium has its screen, and every item of
    // every screen connects to a command the client has.
    QStringList screens;
    for (int content = MP_CONTENT_SOUND; content <= MP_CONTENT_VIDEO; ++content) {
        for (int medium = MP_MEDIUM_LOCAL; medium <= MP_MEDIUM_TRANSFER_SESSION; ++medium) {
            const QString name = open(content, medium).menuName();
            screens << QStringLiteral("%1:%2").arg(screen.getCurrentScreenIndex()).arg(name);
            EXPECT_FALSE(menu->itemIds().isEmpty()) << content << "/" << medium;
        }
    }
    EXPECT_EQ(screens.join(' '), "0:sound_control 4:stream_sound 2:pd_sound 6:pd_sound "
                                  "1:video_control 5:stream_video 3:pd_video 7:pd_video");
    EXPECT_FALSE(traces.text().contains("cannot run")) << traces.text().constData();
    open(MP_CONTENT_SOUND, MP_MEDIUM_LOCAL);
    EXPECT_EQ(menu->itemText(1011), QStringLiteral("Memory Card")) << "the table's text, not the parser's";
    open(MP_CONTENT_UNKNOWN, MP_MEDIUM_LOCAL);
    EXPECT_TRUE(menu->itemIds().isEmpty()) << "no screen, no items";
    EXPECT_TRUE(screen.getScreenName(8).isNull());
    EXPECT_TRUE(screen.getScreenName(-1).isNull());
}

TEST_F(MP_WindowClientTest, DeleteAndRemoveFollowTheItemThatPlaysAndTheList)
{
    const QString preload = MYSTUFF_FixedFolder::preloadPath() + "/tones";
    QDir().mkpath(preload);
    PathList list({engine.path, preload + "/b.mp3"});
    engine.list = &list;
    MP_WindowClient& screen = makeClient();
    VmOptionsMenu& menu = open(MP_CONTENT_SOUND, MP_MEDIUM_LOCAL);
    EXPECT_EQ(shown(menu, {1005, 1006}), "1005 -1006") << "a writable folder of a library list";

    // The next song is preloaded: same screen, so the menu is not rebuilt,
    // but the rules follow the item as soon as the engine reports the step.
    list.skipSteps(1);
    screen.updateListInfo(&list);
    EXPECT_FALSE(menu.isItemVisible(1005)) << "a preloaded folder, under the open menu";
    list.moveTo(0);
    open(MP_CONTENT_SOUND, MP_MEDIUM_LOCAL);
    EXPECT_TRUE(menu.isItemVisible(1005)) << "decided again at every opening";

    // At once: a user list offers Remove wherever the file lies, never Delete.
    screen.setUserList(true);
    EXPECT_EQ(shown(menu, {1005, 1006}), "-1005 1006");

    // A single file plays without a list: nothing to remove it from (in a
    // user list) or delete it from (in a library list).
    engine.list = nullptr;
    open(MP_CONTENT_VIDEO, MP_MEDIUM_LOCAL);
    EXPECT_FALSE(menu.isItemVisible(2006));
    screen.setUserList(false);
    EXPECT_FALSE(menu.isItemVisible(2005));
}

TEST_F(MP_WindowClientTest, FeatureBitsAndTheFileDecideTheItems)
{
    HostPhone::setFlexBit(149, true);
    HostPhone::setFlexBit(512, true);
    makeClient();
    // The blog bit is set; the file is not of the media library, and there is no memory card.
    VmOptionsMenu& menu = open(MP_CONTENT_SOUND, MP_MEDIUM_LOCAL);
    EXPECT_EQ(shown(menu, {1010, 1019, 1014, 1011}), "1010 -1019 -1014 -1011");

    auto database = MediaDatabase::open(MediaDatabase::defaultFile());
    database->addMedia(song(engine.path).title("A"));
    QDir().mkpath(HostStorage::memoryCardPath());
    engine.path = dataPath("missing.mp3");
    open(MP_CONTENT_SOUND, MP_MEDIUM_LOCAL);
    // A missing file cannot ring; the card is checked at every opening.
    EXPECT_EQ(shown(menu, {1015, 1011}), "-1015 1011");

    HostPhone::setFlexBit(149, false);
    HostPhone::setFlexBit(512, false);
    engine.path = dataPath("music/a.mp3");
    makeClient();
    VmOptionsMenu& plain = open(MP_CONTENT_SOUND, MP_MEDIUM_LOCAL);
    EXPECT_EQ(shown(plain, {1010, 1019, 1014, 1015}), "-1010 1019 1014 1015")
        << "without the check Ringtone stays";

    // Nothing saved to edit; then the bookmark bit, read at every build, hides both bookmark items.
    open(MP_CONTENT_SOUND, MP_MEDIUM_STREAM);
    EXPECT_EQ(shown(plain, {6003, 6002}), "6003 -6002");
    HostPhone::setFlexBit(492, true);
    open(MP_CONTENT_VIDEO, MP_MEDIUM_STREAM);
    EXPECT_EQ(shown(plain, {7002, 7001}), "-7002 -7001");
}

TEST_F(MP_WindowClientTest, DownloadStateDrivesKeysAndItemsOnce)
{
    MP_WindowClient& screen = makeClient();
    VmOptionsMenu& menu = open(MP_CONTENT_SOUND, MP_MEDIUM_PROGRESSIVE_DOWNLOAD);
    const auto state = [&] {
        return shown(menu, {4001}) + (menu.isItemEnabled(4004) ? " 4004" : " off 4004") + ' ' + rightKey();
    };
    EXPECT_EQ(state(), "-4001 4004 Back");

    screen.updateListInfo(nullptr);
    EXPECT_EQ(state(), "4001 off 4004 Cancel");

    // A second report of the same state leaves what was changed meanwhile.
    menu.setItemVisible(4001, false);
    screen.setDownloading(true);
    EXPECT_FALSE(menu.isItemVisible(4001));

    QSignalSpy quit(&screen, &MP_WindowClient::quitApp);
    screen.updateState(MP_STATE_STOPPED);
    EXPECT_EQ(quit.count(), 1) << "a stopped progressive download cannot go on";
    screen.updateDownloadComplete();
    EXPECT_EQ(rightKey(), QStringLiteral("Back"));
    screen.updateState(MP_STATE_STOPPED);
    EXPECT_EQ(quit.count(), 1);
}

TEST_F(MP_WindowClientTest, TransferSessionStartsAtTheFirstProgressAndCancels)
{
    engine.medium = MP_MEDIUM_TRANSFER_SESSION;
    MP_WindowClient& screen = makeClient();
    screen.updateDownloadProgress(30, 500);
    screen.updateDownloadProgress(60, 900);
    // The session's own calls are its test's; started once, the total goes first.
    EXPECT_EQ(journalLines("service", "DLM_TransSession::startSession").size(), 1);
    EXPECT_EQ(journalArgs("service", "DLM_TransSession::transObjProgress"),
              (QList<QJsonArray>{{500, 30, 0}, {900, 60, 0}}));

    ASSERT_TRUE(HostDownloadManager::cancelNewest());
    EXPECT_TRUE(traces.text().contains("MP_WindowClient::onFTSignalCancelFromDLM\n"));

    screen.updateListInfo(nullptr);
    engine.medium = MP_MEDIUM_LOCAL;
    screen.updateListInfo(nullptr);
    EXPECT_FALSE(HostDownloadManager::cancelNewest()) << "a local file closes the session";
    EXPECT_FALSE(screen.isDownloading());
}
