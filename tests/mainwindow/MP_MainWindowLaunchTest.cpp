// Launch requests through the main window, in one process: the last-played
// record round trip, the resume's file check, and the captured-video request;
// and the lists they install: replaced, run empty and released.

#include "mainwindow/MP_MainWindow.h"

#include <QDataStream>
#include <QFile>
#include <QJsonArray>
#include <QPointer>

#include <memory>

#include "host/platform/HostJournal.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "lists/MP_AufContext.h"
#include "lists/MP_AufList.h"
#include "lists/MP_RecentList.h"
#include "tests/support/MainWindowFixture.h"
#include "tests/support/PathList.h"
#include "tests/support/SongBuilder.h"

namespace {

/** The four strings of a library selection's stored description. */
QStringList selectionOf(const MP_AufList& list)
{
    QDataStream stream(*const_cast<MP_AufList&>(list).getReservedData());
    int type = -1;
    QString artist, album, genre, composer;
    stream >> type >> artist >> album >> genre >> composer;
    return {QString::number(type), artist, album, genre, composer};
}

class MP_MainWindowLaunchTest : public MainWindowFixture {
protected:
    void SetUp() override
    {
        MainWindowFixture::SetUp();
        database = MediaDatabase::open(MediaDatabase::defaultFile());
        ASSERT_TRUE(database);
    }

    // Real files: the resume checks that they exist.
    QString addFile(SongBuilder builder)
    {
        EXPECT_NE(database->addMedia(builder), 0u);
        return builder.record().path;
    }
    SongBuilder songFile(const QString& name) { return song(writeDataFile("music/" + name)); }

    void request(const QString& name, const QList<QPair<QString, QString>>& values)
    {
        AM_ActionData action(name);
        for (const auto& [key, value] : values)
            action.setValue(key, value);
        window->onReceiveAction(action);
    }
    void resumeFromHomeScreen() { create().handleLauncherRequest(QStringLiteral("HomeScreen")); }

    std::unique_ptr<MediaDatabase> database;
};

TEST_F(MP_MainWindowLaunchTest, LibrarySelection_EveryFieldAndNonLatinNameSurviveTheResume)
{
    addFile(songFile("kino.mp3").title("Gruppa krovi").artist("Кино").album("Звезда").genre("Рок").composer("Цой"));
    addFile(songFile("other.mp3").title("Other").artist("Other"));
    create();  // a request made now comes before the start-up installs the library
    request("PlayMusicListInMediaplayer", {{"isAllArtist", "0"}, {"Artist", "Кино"}, {"isAllAlbum", "0"},
                                           {"Album", "Звезда"}, {"isAllGenre", "0"}, {"Genre", "Рок"},
                                           {"isAllComposer", "0"}, {"Composer", "Цой"}, {"StorageLocation", "2"},
                                           {"FirstIndex", "0"}});
    ASSERT_EQ(window->currentList()->count(), 1u);

    // The record holds composer third and genre fourth, as UTF-8.
    LastPlayedListRecord record{};
    record.handler = MP_AufContext::getHandler();
    ASSERT_NE(getLastPlayedList(&record), 0);
    EXPECT_EQ((QStringList{QString::fromUtf8(record.artist), QString::number(record.artistLength),
                           QString::fromUtf8(record.composer), QString::fromUtf8(record.genre)}),
              (QStringList{"Кино", "8", "Цой", "Рок"}))
        << "a byte length, not a character count";
    freeLastPlayedList(&record);

    resumeFromHomeScreen();
    ASSERT_NE(window->currentList(), nullptr);
    EXPECT_EQ(selectionOf(*window->currentList()), (QStringList{"0", "Кино", "Звезда", "Рок", "Цой"}))
        << "the same selection, not the whole library";
    EXPECT_EQ(window->currentList()->count(), 1u);
}

TEST_F(MP_MainWindowLaunchTest, Resume_KeepsAListWithOneFileLeftAndReplacesOneWithNone)
{
    const QString first = addFile(songFile("1.mp3").title("A").artist("Band"));
    const QString second = addFile(songFile("2.mp3").title("B").artist("Band"));
    addFile(songFile("3.mp3").title("C").artist("Solo"));
    create();
    request("PlayMusicListInMediaplayer", {{"isAllArtist", "0"}, {"Artist", "Band"}, {"isAllAlbum", "1"},
                                           {"isAllGenre", "1"}, {"isAllComposer", "1"}, {"StorageLocation", "2"}});

    QFile::remove(first);
    resumeFromHomeScreen();
    EXPECT_EQ(selectionOf(*window->currentList()).at(1), "Band") << "the second file still exists";

    QFile::remove(second);
    resumeFromHomeScreen();
    EXPECT_EQ(selectionOf(*window->currentList()), (QStringList{"0", "", "", "", ""}))
        << "no file left: the whole library instead";
    EXPECT_EQ(window->currentList()->count(), 3u);
}

TEST_F(MP_MainWindowLaunchTest, CapturedVideo_ReplacesTheListKeepsEngineAndSettings_LeavesTheHistoryUnsaved)
{
    addFile(songFile("clip.mp4").title("Clip").video().createdBy(int(METADATA_CREATED_CAPTURED)));
    const QString played = addFile(songFile("song.mp3").title("Song"));
    create();
    request("PlayMusicListInMediaplayer", {{"isAllArtist", "1"}, {"isAllAlbum", "1"}, {"isAllGenre", "1"},
                                           {"isAllComposer", "1"}, {"StorageLocation", "2"}});
    MP_RecentList::getAudioList()->addItem(played);
    // The song that started playing went into the history already.
    const auto historyWrites = journalLines("metadata", "metadataAddItemsIntoGroup").size();
    MP_AufContext::shuffle = 1;

    playCapturedVideo(window.get());
    EXPECT_EQ(window->launchType(), MP_LAUNCH_CAPTURED_VIDEO);
    EXPECT_TRUE(window->currentList()->isVideoList());
    EXPECT_EQ(MP_RecentList::getAudioList()->paths(), QStringList{played}) << "still waiting, not saved";
    EXPECT_EQ(journalLines("metadata", "metadataAddItemsIntoGroup").size(), historyWrites);
    EXPECT_EQ(journalLines("engine", "MP_CreateCommonPlayer").size(), 1) << "the engine keeps its launch type";
    EXPECT_EQ(MP_AufContext::shuffle, 1) << "the settings are not read again";
    // The new list keeps the database's backup of its result: the old one
    // left before the new one made it.
    bool exists = false;
    int index = 0;
    unsigned int count = 0;
    EXPECT_EQ(metadataCheckBackupedItem(MP_AufContext::getHandler(), 0, &exists, &index, &count), 0);

    playCapturedVideo(nullptr);   // an application without a window gets nothing done
    MP_RecentList::getAudioList()->saveToDB();   // leave the process-wide collector empty
}

TEST_F(MP_MainWindowLaunchTest, NewList_TheEngineLetsGoOfNothingDeletedAndGetsTheNewList)
{
    create();
    QPointer<MP_AufList> first = new MP_AufList();
    window->setList(first, false, false, false, false, MP_LAUNCH_LIST);
    int linesWhenDeleted = -1;
    QObject::connect(first, &QObject::destroyed, [&] { linesWhenDeleted = int(journal().size()); });
    auto* second = new MP_AufList();
    const int linesBefore = int(journal().size());
    window->setList(second, false, false, false, false, MP_LAUNCH_LIST);

    ASSERT_TRUE(first.isNull());
    EXPECT_EQ(window->currentList(), second);
    // The old list is gone before the engine is handed the new one.
    QStringList calls;
    for (const QJsonObject& line : journal())
        calls << line.value("call").toString();
    EXPECT_GE(linesWhenDeleted, linesBefore);
    EXPECT_LE(linesWhenDeleted, calls.lastIndexOf("setPlayList"));
}

class MP_MainWindowListTest : public MP_MainWindowLaunchTest {
protected:
    void SetUp() override
    {
        MP_MainWindowLaunchTest::SetUp();
        for (int i = 0; i < 3; ++i) {
            const QString number = QString::number(i);
            ASSERT_NE(database->addMedia(song("/music/song" + number + ".mp3").title("Song " + number).artist("Band")), 0u);
        }
        // A file passed at creation keeps the start-up from installing a list.
        create(QStringLiteral("/music/song0.mp3"));
        ASSERT_TRUE(waitForEngine());
    }
};

TEST_F(MP_MainWindowListTest, TheCurrentListAgainOrALauncherOnARunningPlayer_OnlyShowsThePlayer)
{
    MP_AufList* list = new MP_AufList();
    window->setList(list, false, false, false, true, MP_LAUNCH_LIST);
    ASSERT_EQ(window->currentList(), list);
    HostJournal::startCapture();

    window->handleLauncherRequest(QStringLiteral("HomeScreen"));
    EXPECT_EQ(window->currentList(), list);
    window->setList(list, true, true, true, true, MP_LAUNCH_CAPTURED_VIDEO);
    EXPECT_EQ(window->launchType(), MP_LAUNCH_CAPTURED_VIDEO);
    EXPECT_EQ(journal().size(), 2) << "nothing saved, nothing replaced";
    EXPECT_EQ(journalCalls(), (QStringList{"engine:showPlayer", "engine:showPlayer"}));
}

TEST_F(MP_MainWindowListTest, AListChange_QuitsThePlayerOnlyWhenTheEnginesListRanEmpty)
{
    window->setList(new MP_AufList(), false, false, false, true, MP_LAUNCH_LIST);
    // The engine plays a list of its own, with one song left in it.
    PathList lastSong({QStringLiteral("/music/song1.mp3")});
    window->commonPlayer()->setPlayList(&lastSong);
    window->onCurrentItemChanged();
    EXPECT_EQ(journalLines("engine", "notifyCurrentChanged").size(), 1);
    EXPECT_TRUE(journalLines("engine", "closePlayerWindow").isEmpty());

    window->freeCurrentList();
    EXPECT_EQ(journalArgs("engine", "setPlayList").last(), QJsonArray{QJsonValue()});
    window->onCurrentItemChanged();
    EXPECT_EQ(journalLines("engine", "closePlayerWindow").size(), 1);
}

TEST_F(MP_MainWindowListTest, FreeCurrentList_SavesThePlayedSongsToTheHistory)
{
    window->setList(new MP_AufList(), false, false, false, true, MP_LAUNCH_LIST);
    MP_RecentList::getAudioList()->addItem(QStringLiteral("/music/song1.mp3"));
    MP_RecentList::getAudioList()->addItem(QStringLiteral("/music/song2.mp3"));
    window->freeCurrentList();
    EXPECT_TRUE(MP_RecentList::getAudioList()->paths().isEmpty());
    // In the order the history's own test checks.
    EXPECT_EQ(MP_AufList(METADATA_AUDIO_HISTORY_GROUP_ID, METADATA_GROUP_PLAY_HISTORY, 2, 0, QString()).count(), 2u);
}

} // namespace
