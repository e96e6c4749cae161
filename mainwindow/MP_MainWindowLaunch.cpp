// MP_MainWindow: launch requests. Action records from other applications and
// launcher identifiers become play lists installed through setList(); music
// selections are saved as the last-played list, which the home screen and a
// Bluetooth headset resume.

#include "mainwindow/MP_MainWindow.h"

#include <QFile>

#include <cstring>

#include "lists/MP_AufContext.h"
#include "lists/MP_AufList.h"
#include "platform/AM_Action.h"
#include "platform/MP_CommonPlayer.h"
#include "platform/TextResources.h"
#include "platform/TraceLog.h"
#include "platform/VmDialogs.h"

MP_DEFINE_TRACE(LaunchTrace, "MP_MainWindow")

namespace {

// Request identifiers: built when the library is loaded, destroyed when it is unloaded.
const QString kPlayVideoAction = QStringLiteral("PlayVideoInMediaplayer");
const QString kPlayMusicListAction = QStringLiteral("PlayMusicListInMediaplayer");
const QString kPlayUserListAction = QStringLiteral("PlayUserListInMediaplayer");
const QString kPlayMediaAction = QStringLiteral("PlayMediaInMediaPlayer");
const QString kBluetoothLauncher = QStringLiteral("BTAvrcpKeys");
const QString kHomeScreenLauncher = QStringLiteral("HomeScreen");

const int kLibrarySelectionListType = 6;

int intValue(const AM_ActionData& action, const char* key)
{
    // Missing or not a number: 0.
    return action.getValue(QLatin1String(key)).toInt();
}

// The field's value, or a null string (no filter) when its "isAll" flag is set.
QString fieldValue(const AM_ActionData& action, const char* allKey, const char* valueKey)
{
    if (intValue(action, allKey) != 0)
        return QString();
    return action.getValue(QLatin1String(valueKey));
}

// A heap copy of @p text for the record; null for a null string.
// The record's string slots are documented as Latin-1, but Latin-1 cannot hold
// a Cyrillic, Greek or CJK name: the resume would search for "????" and fall
// back to the whole library. UTF-8 keeps every name, and gives the same bytes
// as Latin-1 for ASCII, so records written before read back unchanged. The
// metadata service reads the slots as UTF-8 too.
char* recordCopy(const QString& text, int32_t* length)
{
    if (text.isNull())
        return nullptr;
    const QByteArray bytes = text.toUtf8();
    *length = int32_t(std::strlen(bytes.constData()));
    char* copy = new char[size_t(*length) + 1];
    std::memcpy(copy, bytes.constData(), size_t(*length) + 1);
    return copy;
}

QString fromRecord(const char* text)
{
    return text ? QString::fromUtf8(text) : QString();
}

} // namespace

void MP_MainWindow::onReceiveAction(const AM_ActionData& action)
{
    const QString name = action.action();
    LaunchTrace(3, "onReceiveAction: %s\n", qPrintable(name));
    if (name == kPlayVideoAction)
        playVideoSelection(action);
    else if (name == kPlayMusicListAction)
        onPlaySystemList(action);
    else if (name == kPlayUserListAction)
        playUserList(action);
    else if (name == kPlayMediaAction)
        playForLauncher(action);
    else
        LaunchTrace(3, "onReceiveAction: unknown action ignored\n");
}

void MP_MainWindow::playVideoSelection(const AM_ActionData& action)
{
    const QString selectionType = action.getValue(QStringLiteral("SelectionType"));
    const QString date = action.getValue(QStringLiteral("Date"));
    const int firstIndex = intValue(action, "FirstIndex");
    const int storageLocation = intValue(action, "StorageLocation");
    const bool slideShow = intValue(action, "isSlideShow") != 0;
    freeCurrentList();
    readSetting(/*isVideo*/ true, /*forceShuffle*/ false);
    auto* list = new MP_AufList(selectionType, date, storageLocation, firstIndex);
    setList(list, /*userList*/ false, /*playFlag*/ slideShow, /*playerFlag*/ slideShow, /*startPlayback*/ true,
            MP_LAUNCH_LIST);
}

void MP_MainWindow::playUserList(const AM_ActionData& action)
{
    const int type = intValue(action, "Type");
    const int groupId = intValue(action, "GroupObjectID");
    const int firstIndex = intValue(action, "FirstIndex");
    const int storageLocation = intValue(action, "StorageLocation");
    const QString firstAlbum = action.getValue(QStringLiteral("FirstAlbum"));
    freeCurrentList();
    readSetting(/*isVideo*/ false, /*forceShuffle*/ false);
    m_lastPlayedList.listType = type;
    m_lastPlayedList.groupObjectId = uint32_t(groupId);
    m_lastPlayedList.storageLocation = storageLocation;
    m_lastPlayedList.firstIndex = firstIndex;
    m_lastPlayedList.handler = MP_AufContext::getHandler();
    saveLastPlayedList(&m_lastPlayedList);
    auto* list = new MP_AufList(unsigned(groupId), MetadataGroupType(type), storageLocation, firstIndex, firstAlbum);
    setList(list, /*userList*/ true, /*playFlag*/ false, /*playerFlag*/ false, /*startPlayback*/ true, MP_LAUNCH_LIST);
}

void MP_MainWindow::playForLauncher(const AM_ActionData& action)
{
    m_launcherId = action.getValue(QStringLiteral("Launcher"));
    handleLauncherRequest(m_launcherId);
}

QString MP_MainWindow::getArtistFromAction(const AM_ActionData& action) const
{
    return fieldValue(action, "isAllArtist", "Artist");
}

QString MP_MainWindow::getAlbumFromAction(const AM_ActionData& action) const
{
    return fieldValue(action, "isAllAlbum", "Album");
}

QString MP_MainWindow::getGenreFromAction(const AM_ActionData& action) const
{
    return fieldValue(action, "isAllGenre", "Genre");
}

QString MP_MainWindow::getComposerFromAction(const AM_ActionData& action) const
{
    return fieldValue(action, "isAllComposer", "Composer");
}

void MP_MainWindow::onPlaySystemList(const AM_ActionData& action)
{
    const QString artist = getArtistFromAction(action);
    const QString album = getAlbumFromAction(action);
    const QString genre = getGenreFromAction(action);
    const QString composer = getComposerFromAction(action);
    const int firstIndex = intValue(action, "FirstIndex");
    const int storageLocation = intValue(action, "StorageLocation");
    const bool shuffleAllSongs = intValue(action, "ShuffleAllSongs") != 0;
    const QString firstAlbum = action.getValue(QStringLiteral("FirstAlbum"));

    freeCurrentList();
    readSetting(/*isVideo*/ false, /*forceShuffle*/ shuffleAllSongs);
    storeLastplayedSystemList(artist, album, genre, composer, storageLocation, firstIndex);
    auto* list = new MP_AufList(artist, album, genre, composer, storageLocation, firstIndex, firstAlbum);
    setList(list, /*userList*/ false, /*playFlag*/ false, /*playerFlag*/ false, /*startPlayback*/ true,
            MP_LAUNCH_LIST);
    releaseLastPlayedStrings();
}

void MP_MainWindow::storeLastplayedSystemList(const QString& artist, const QString& album, const QString& genre,
                                              const QString& composer, int storageLocation, int firstIndex)
{
    m_lastPlayedList.listType = kLibrarySelectionListType;
    m_lastPlayedList.storageLocation = storageLocation;
    m_lastPlayedList.firstIndex = firstIndex;
    // Composer before genre: the record's order, not the list constructor's.
    m_lastPlayedList.artist = recordCopy(artist, &m_lastPlayedList.artistLength);
    m_lastPlayedList.album = recordCopy(album, &m_lastPlayedList.albumLength);
    m_lastPlayedList.composer = recordCopy(composer, &m_lastPlayedList.composerLength);
    m_lastPlayedList.genre = recordCopy(genre, &m_lastPlayedList.genreLength);
    saveLastPlayedList(&m_lastPlayedList);
}

void MP_MainWindow::releaseLastPlayedStrings()
{
    for (char** text : {&m_lastPlayedList.artist, &m_lastPlayedList.album, &m_lastPlayedList.composer,
                        &m_lastPlayedList.genre}) {
        delete[] *text;
        *text = nullptr;
    }
}

void MP_MainWindow::handleLauncherRequest(const QString& launcherId)
{
    LaunchTrace(3, "handleLauncherRequest: \"%s\"\n", qPrintable(launcherId));
    if (m_commonPlayer) {
        // A launcher never replaces the list of a running player.
        m_commonPlayer->showPlayer();
        return;
    }
    freeCurrentList();
    readSetting(/*isVideo*/ false, /*forceShuffle*/ false);
    if (launcherId != kBluetoothLauncher && launcherId != kHomeScreenLauncher) {
        setList(new MP_AufList(), /*userList*/ false, /*playFlag*/ false, /*playerFlag*/ false,
                /*startPlayback*/ true, MP_LAUNCH_LIST);
        return;
    }
    MP_AufList* list = takeLastPlayedList(launcherId);
    if (!list)
        return;
    const bool userList = m_lastPlayedList.listType != kLibrarySelectionListType;
    // A headset only prepares the list; the home screen starts playing.
    setList(list, userList, /*playFlag*/ false, /*playerFlag*/ false,
            /*startPlayback*/ launcherId != kBluetoothLauncher, MP_LAUNCH_LIST);
    freeLastPlayedList(&m_lastPlayedList);
}

MP_AufList* MP_MainWindow::takeLastPlayedList(const QString& launcherId)
{
    m_lastPlayedList.handler = MP_AufContext::getHandler();
    if (getLastPlayedList(&m_lastPlayedList) == 0) {
        LaunchTrace(3, "handleLauncherRequest: no last-played list for %s\n", qPrintable(launcherId));
        VmNoticeDlg notice(1, QString(),
                           MP_tr("TXT_RID_INSTRUCTIONALTXT_BECAUSE_THE_FILES_DO_NOT_EXIST",
                                 "Because the files do not exist."));
        notice.exec();
        return nullptr;
    }
    MP_AufList* list = nullptr;
    if (m_lastPlayedList.listType == kLibrarySelectionListType) {
        // Genre is the fourth string slot, composer the third.
        list = new MP_AufList(fromRecord(m_lastPlayedList.artist), fromRecord(m_lastPlayedList.album),
                              fromRecord(m_lastPlayedList.genre), fromRecord(m_lastPlayedList.composer),
                              m_lastPlayedList.storageLocation, m_lastPlayedList.firstIndex, QString());
    } else {
        list = new MP_AufList(m_lastPlayedList.groupObjectId, MetadataGroupType(m_lastPlayedList.listType),
                              m_lastPlayedList.storageLocation, m_lastPlayedList.firstIndex, QString());
    }
    // Resume only a list that still has a file on the device.
    bool anyFileExists = false;
    for (int index = 0; index < int(list->count()) && !anyFileExists; ++index)
        anyFileExists = QFile::exists(list->getItem(index));
    if (!anyFileExists) {
        delete list;
        list = new MP_AufList();
    }
    return list;
}

void MP_MainWindow::playCapturedVideo()
{
    // Neither the history is saved nor the settings read: the shuffle and
    // repeat context stays as it was. The previous list goes before the new
    // one is made, not in setList: every list shares the one database
    // handle, and a list leaving releases the handle's result backup and
    // change subscription, which by then would be the new list's.
    releaseListQuietly();
    auto* list = new MP_AufList(QStringLiteral("Captured"), QStringLiteral(""), -1, 0);
    setList(list, /*userList*/ false, /*playFlag*/ false, /*playerFlag*/ true, /*startPlayback*/ true,
            MP_LAUNCH_CAPTURED_VIDEO);
}
