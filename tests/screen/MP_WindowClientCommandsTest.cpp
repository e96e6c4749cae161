// The player screen's commands: leaving the player with and without a
// download, deleting and removing through the two kinds of list, the setup
// library, hiding a download, bookmarks and the buy-more mark.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>

#include <memory>

#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/toolkit/HostDialogs.h"
#include "host/platform/toolkit/HostTranslations.h"
#include "lists/MP_AufContext.h"
#include "lists/MP_AufList.h"
#include "lists/MP_FolderList.h"
#include "platform/VmOptionsMenu.h"
#include "screen/MP_SetupLibrary.h"
#include "screen/MP_WindowClient.h"
#include "tests/lists/TraceCapture.h"
#include "tests/support/FakeEngine.h"
#include "tests/support/Journal.h"
#include "tests/support/PathList.h"
#include "tests/support/SongBuilder.h"
#include "tests/support/TestEnvironment.h"

namespace {

class MP_WindowClientCommandsTest : public TestEnvironment {
protected:
    void SetUp() override
    {
        TestEnvironment::SetUp();
        engine.path = QStringLiteral("/dl/Night Song.mp3.pd");
        client = std::make_unique<MP_WindowClient>(&engine);
        const auto record = [this](const char* what) { return [this, what] { emitted << what; }; };
        QObject::connect(client.get(), &MP_WindowClient::hidePlayer, record("hide"));
        QObject::connect(client.get(), &MP_WindowClient::quitApp, record("quit"));
        QObject::connect(client.get(), &MP_WindowClient::closePlayer, record("close"));
        QObject::connect(client.get(), &MP_WindowClient::signalCurrentChanged, record("changed"));
    }
    void TearDown() override
    {
        client.reset();
        HostDialogs::clearAnswers();
        MP_SetupLibrary::setLibraryName(QByteArray());
        TestEnvironment::TearDown();
    }

    void run(const char* slot) { ASSERT_TRUE(QMetaObject::invokeMethod(client.get(), slot)); }

    static QStringList dialogs() { return Journal::dialogs(journal()); }
    /** Files named @p names in a fresh folder; returns the folder. */
    QString makeFolder(const QString& name, const QStringList& names)
    {
        const QString folder = dataPath(name);
        QDir().mkpath(folder);
        for (const QString& file : names)
            QFile(folder + '/' + file).open(QIODevice::WriteOnly);
        return folder;
    }

    FakeScreenEngine engine;
    std::unique_ptr<MP_WindowClient> client;
    QStringList emitted;  ///< what the client told the window, in order: hide, quit, close, changed
    TraceCapture traces;
};

TEST_F(MP_WindowClientCommandsTest, Back_WithoutDownload_HidesOnlyPlayingSoundWhenBackHides)
{
    struct Case {
        bool backHide;
        int content;
        MP_PLAYER_STATE state;
        bool hasControl;
        const char* left;
    } const cases[] = {
        {true, MP_CONTENT_SOUND, MP_STATE_PLAYING, true, "hide"},
        {true, MP_CONTENT_SOUND, MP_STATE_4, true, "hide"},
        {false, MP_CONTENT_SOUND, MP_STATE_PLAYING, true, "quit"},
        {true, MP_CONTENT_VIDEO, MP_STATE_PAUSED, true, "quit"},
        {true, MP_CONTENT_SOUND, MP_STATE_STOPPED, true, "quit"},
        {true, MP_CONTENT_SOUND, MP_STATE_PLAYING, false, "quit"},
    };
    QStringList expected;
    for (const Case& c : cases) {
        client->setBackHide(c.backHide);
        engine.content = c.content;
        engine.control.state = c.state;
        engine.hasControl = c.hasControl;
        run("onBackClicked");
        expected << c.left;
    }
    EXPECT_EQ(emitted, expected);
    EXPECT_TRUE(dialogs().isEmpty()) << "nothing to ask without a download";
}

TEST_F(MP_WindowClientCommandsTest, Back_WhileDownloading_CancelsOnlyOnYes_HideDownloadLeavesATransferGoing)
{
    engine.medium = MP_MEDIUM_PROGRESSIVE_DOWNLOAD;
    client->updateListInfo(nullptr);
    run("onBackClicked");  // nothing queued: the safe answer is No, and the download and the player stay
    HostDialogs::queueAnswer(1);
    run("onBackClicked");
    EXPECT_TRUE(client->isDownloading()) << "the engine's reports end the download, not the question";

    const QString question = QStringLiteral(
        "Cancel Download|You are currently downloading: Night Song.mp3.  Choosing Yes will cancel this download. "
        "Do you want to continue?|");
    EXPECT_EQ(dialogs(), QStringList({question + '0', question + '1'}));

    // A transfer session is closed instead, and playing sound may hide.
    engine.medium = MP_MEDIUM_TRANSFER_SESSION;
    client->updateListInfo(nullptr);
    client->updateDownloadProgress(10, 100);
    client->setBackHide(true);
    engine.control.state = MP_STATE_PLAYING;
    HostDialogs::queueAnswer(1);
    run("onBackClicked");
    EXPECT_EQ(journalLines("service", "DLM_TransSession::sessionDone").size(), 1);

    // Hide Download: a transfer goes on in the download manager and only the
    // player screen goes; a progressive download ends with the player.
    run("onMenuHidePD");
    engine.medium = MP_MEDIUM_PROGRESSIVE_DOWNLOAD;
    run("onMenuHidePD");
    EXPECT_EQ(engine.control.calls, QStringList({"stop()"}));
    EXPECT_EQ(emitted, QStringList({"quit", "hide", "close", "quit"}));
    EXPECT_EQ(channelMessages("/VEMO/AM/DOWNLOADMANAGER"), MessageLines({"MPUserCancelDL() ", "ShowUI ", "ShowUI "}))
        << "no second cancel message";
}

TEST_F(MP_WindowClientCommandsTest, DeleteThroughAFolderList_DeletesOnlyThatFileAfterYes)
{
    const QString folder = makeFolder("songs", {"a.mp3", "b.mp3", "c.mp3"});
    MP_FolderList list(folder + "/b.mp3", MP_FolderList::SortByName);
    engine.list = &list;

    run("onMenuDelete");  // answered No
    HostDialogs::queueAnswer(1);
    run("onMenuDelete");
    EXPECT_EQ(QDir(folder).entryList(QDir::Files), QStringList({"a.mp3", "c.mp3"}));
    EXPECT_EQ(list.getCurrent(), folder + "/c.mp3");
    EXPECT_EQ(dialogs(), QStringList({"Delete|Are you sure you want to delete this file?|0",
                                      "Delete|Are you sure you want to delete this file?|1"}));

    // Remove (offered in a user list) asks its own question and takes the
    // item out the same way; the last one quits.
    const QString single = makeFolder("single", {"only.mp3"});
    MP_FolderList last(single + "/only.mp3", MP_FolderList::SortByName);
    engine.list = &last;
    client->setUserList(true);
    HostDialogs::queueAnswer(1);
    run("onMenuRemove");
    EXPECT_FALSE(QFile::exists(single + "/only.mp3"));
    EXPECT_EQ(emitted, QStringList({"changed", "quit"}));
    EXPECT_EQ(dialogs().last(), QStringLiteral("Remove|Are you sure you want to remove this file?|1"));

    client->setUserList(false);
    engine.list = &list;
    ASSERT_TRUE(HostTranslations::use(QStringLiteral("de")));
    run("onMenuDelete");
    HostTranslations::use(QString());
    EXPECT_EQ(dialogs().last(), QStringLiteral("Löschen|Möchten Sie diese Datei wirklich löschen?|0"));
}

TEST_F(MP_WindowClientCommandsTest, DeleteAndRemove_WhenPlaybackMovesOnUnderTheQuestion_ChangeNothingAndSaySo)
{
    const QString folder = makeFolder("songs", {"a.mp3", "b.mp3", "c.mp3"});
    MP_FolderList list(folder + "/a.mp3", MP_FolderList::SortByName);
    MP_FolderList other(folder + "/a.mp3", MP_FolderList::SortByName);
    engine.list = &list;
    const QString notice = QStringLiteral("The file you chose is no longer playing. Nothing was changed.|1");

    // a.mp3 ends while the question is open: Yes was about a.mp3, and b.mp3 plays.
    HostDialogs::queueAnswer(1, [&] { list.skipSteps(1); });
    run("onMenuDelete");
    // Another list is given to the engine meanwhile (its current item is the same file).
    HostDialogs::queueAnswer(1, [&] { engine.list = &other; });
    run("onMenuDelete");
    engine.list = &list;
    // The list becomes a user list meanwhile: Delete no longer applies to it.
    HostDialogs::queueAnswer(1, [&] { client->setUserList(true); });
    run("onMenuDelete");
    // Not offered for what plays, they ask nothing: Remove chosen from a menu
    // built for a user list (this one deletes files), and Delete of a single
    // file, which has no list to take it out of.
    client->setUserList(false);
    HostDialogs::queueAnswer(1);
    run("onMenuRemove");
    HostDialogs::clearAnswers();
    engine.list = nullptr;
    engine.path = folder + "/a.mp3";
    run("onMenuDelete");

    EXPECT_EQ(QDir(folder).entryList(QDir::Files), QStringList({"a.mp3", "b.mp3", "c.mp3"}));
    EXPECT_TRUE(emitted.isEmpty());
    EXPECT_EQ(dialogs(), QStringList({"Delete|Are you sure you want to delete this file?|1", "Delete|" + notice,
                                      "Delete|Are you sure you want to delete this file?|1", "Delete|" + notice,
                                      "Delete|Are you sure you want to delete this file?|1", "Delete|" + notice}));
}

TEST_F(MP_WindowClientCommandsTest, DatabaseLists_RemoveAsksTheList_DeleteKeepsAFileReplacedUnderItsName)
{
    auto database = MediaDatabase::open(MediaDatabase::defaultFile());
    QList<quint32> ids;
    for (const QString& name : QStringList{"x", "y"}) {
        const QString path = writeDataFile("music/" + name + ".mp3");
        ids << database->addMedia(song(path).title(name).stampOf(QFileInfo(path)));
    }
    MP_AufContext::shuffle = MP_AufContext::shuffleSetting = 0;  // in list order, once through
    MP_AufContext::isRepeat = false;
    const quint32 group = database->addGroup(METADATA_GROUP_USER, QStringLiteral("Mine"));
    ASSERT_TRUE(database->setGroupMembers(group, ids));
    MP_AufList playList(group, METADATA_GROUP_USER, 2, 0, QString());
    engine.list = &playList;
    client->setUserList(true);
    HostDialogs::queueAnswer(1);
    run("onMenuRemove");
    EXPECT_EQ(database->groupMembers(group), QList<quint32>({ids.at(1)})) << "the list asked the database";
    EXPECT_TRUE(emitted.isEmpty()) << "false from the list ends the command";

    client->setUserList(false);
    MP_AufList library;
    engine.list = &library;
    // Another file under x.mp3's name: the list compares it with the size and
    // time the database holds (the folder list's own test has its check) and
    // refuses, and the newcomer stays.
    ASSERT_TRUE(QFile::remove(dataPath("music/x.mp3")));
    writeDataFile("music/x.mp3", "important");
    HostDialogs::queueAnswer(1);
    run("onMenuDelete");
    EXPECT_TRUE(QFile::exists(dataPath("music/x.mp3")));

    // The file as it was stored goes, without a notice.
    library.moveTo(1);
    HostDialogs::queueAnswer(1);
    run("onMenuDelete");
    EXPECT_FALSE(QFile::exists(dataPath("music/y.mp3")));
    EXPECT_EQ(dialogs().mid(2, 1),
              QStringList{"Delete|The file was not deleted: it was changed or replaced since it was listed, or it "
                          "cannot be deleted.|1"});
    EXPECT_EQ(dialogs().size(), 4);
}

TEST_F(MP_WindowClientCommandsTest, Setup_OpensTheLibraryWithTheKindOfContentAndTheBackHideFlag)
{
    client->setBackHide(true);
    run("onMenuSetup");
    engine.content = MP_CONTENT_VIDEO;
    client->setBackHide(false);
    run("onMenuSetup");
    engine.content = MP_CONTENT_UNKNOWN;
    run("onMenuSetup");
    EXPECT_EQ(journalArgs("service", "exeShowSetupUI"), (QList<QJsonArray>{{0, true}, {1, false}}))
        << "no setup screen for content of no known type";

    // Missing, or without the entry point: traced, nothing shown, the player goes on.
    engine.content = MP_CONTENT_SOUND;
    MP_SetupLibrary::setLibraryName("libmp_no_such_setup.so");
    run("onMenuSetup");
    EXPECT_TRUE(traces.text().contains("dlopen failed: libmp_no_such_setup.so: cannot open shared object file"))
        << traces.text().constData();
    MP_SetupLibrary::setLibraryName("libmp_platform.so");
    run("onMenuSetup");
    EXPECT_TRUE(traces.text().contains("undefined symbol: exeShowSetupUI")) << traces.text().constData();
}

TEST_F(MP_WindowClientCommandsTest, SaveBookmark_ShowsEditForTheStreamThatPlays_AFailedSaveHasNone)
{
    PathList streams({"rtsp://radio.example/a", "rtsp://radio.example/b"});
    engine.list = &streams;
    engine.medium = MP_MEDIUM_STREAM;
    client->updateMetaInfo("A", "B", "C", QByteArray(), false);
    VmOptionsMenu* menu = client->getMenu();
    emit menu->aboutToShow();  // as the left key opens it

    // A file where the bookmark folder should be: the store cannot keep anything.
    QFile(dataPath("bookmarks")).open(QIODevice::WriteOnly);
    run("onMenuSaveBookmark");
    EXPECT_FALSE(menu->isItemVisible(6002)) << "nothing stored, nothing to edit";
    run("onMenuEditBookmark");
    EXPECT_EQ(dialogs(), QStringList{"Cannot Open|Because the file does not exist.|1"}) << "saved, with no bookmark";
    QFile::remove(dataPath("bookmarks"));
    run("onMenuSaveBookmark");
    EXPECT_TRUE(menu->isItemVisible(6002)) << "shown at once, without reopening the menu";

    streams.skipSteps(1);
    client->updateListInfo(&streams);
    EXPECT_FALSE(menu->isItemVisible(6002)) << "A's bookmark is not B's";
    run("onMenuSaveBookmark");
    EXPECT_TRUE(menu->isItemVisible(6002));
    run("onMenuEditBookmark");
    const QList<QJsonArray> saves = journalArgs("service", "addBookmark");
    ASSERT_EQ(saves.size(), 3);
    EXPECT_EQ(saves.at(2).at(1), "rtsp://radio.example/b");
    EXPECT_EQ(journalArgs("service", "editBookmark"), QList<QJsonArray>{{saves.at(2).at(2)}}) << "B's, not A's";

    streams.moveTo(0);  // A again, before the engine reports it
    emit menu->aboutToShow();
    EXPECT_FALSE(menu->isItemVisible(6002)) << "B's is not A's, as the menu opens";
}

TEST_F(MP_WindowClientCommandsTest, BuyMore_NoticeOnlyWhenTheFlagWasSet)
{
    auto database = MediaDatabase::open(MediaDatabase::defaultFile());
    const QString folder = makeFolder("music", {"x.mp3"});
    database->addMedia(song(folder + "/x.mp3").title("X"));
    engine.path = folder + "/x.mp3";
    run("onMenuBuyMore");
    EXPECT_EQ(dialogs(), QStringList{"Buy More|This song has been marked. During synchronization with a PC you will be "
                                     "prompted to buy more related content.|1"})
        << "a notice: one button, answered 1";
    const QJsonObject notice = Journal::linesOf(journal(), "dialog", QString()).value(0);
    EXPECT_EQ(notice.value("class").toString() + QString::number(notice.value("type").toInt()), "VmMessageDlg2")
        << "the information notice";

    engine.path = folder + "/unknown.mp3";
    run("onMenuBuyMore");
    EXPECT_EQ(dialogs().size(), 1) << "no dialog when the flag was not set";
    EXPECT_TRUE(traces.text().contains("MP_WindowClient::onMenuBuyMore, set Flag failed.\n"));
    EXPECT_EQ(journalArgs("metadata", "metadataSetBuyFlagByUri"),
              (QList<QJsonArray>{{folder + "/x.mp3", 1, 0}, {folder + "/unknown.mp3", 1, 0}}));
    EXPECT_TRUE(database->mediaByPath(folder + "/x.mp3")->buy) << "the flag is stored";
}

} // namespace
