// MP_AufList: removing the current entry, and following the database when it
// changes under the list. The database's callback only dispatches; the work
// runs from 1 ms single-shot timers on the event loop.

#include "lists/MP_AufList.h"

#include <QFile>
#include <QTimer>

#include <unistd.h>

#include <climits>

#include "lists/MP_AufSearchMediaAccessor.h"
#include "lists/MP_Shuffle.h"
#include "platform/TraceLog.h"

MP_DEFINE_TRACE(AufChangeTrace, "MP_AufList")

bool MP_AufList::removeItem(int index)
{
    // In 64 bits: the index comes from outside and may be as small as an int.
    const qint64 position = m_shuffle == ShuffleAlbums ? qint64(index) - m_albumOffset : index;
    if (position == m_currentIndex && removeCurrent())
        AufChangeTrace(3, "removed current!\n");
    else
        AufChangeTrace(3, "remove failed!\n");
    // The list itself changes when the database reports the removal.
    return false;
}

bool MP_AufList::removeCurrent()
{
    AufChangeTrace(3, "MP_AufList::removeCurrent, listType=%d\n", m_aufType);
    if (m_aufType == GroupList) {
        m_removePosition = uint32_t(getPositionOfCurrentSong());
        m_removeRecord.groupId = m_groupId;
        m_removeRecord.groupType = m_groupType;
        m_removeRecord.storageLocation = m_storageLocation;
        m_removeRecord.count = 1;
        m_removeRecord.positions = &m_removePosition;
        AufChangeTrace(3, "remove item from group, position=%d, groupid=%d\n", int(m_removePosition), int(m_groupId));
        int status = 0;
        return metadataRemoveItemsFromGroup(m_handler, &m_removeRecord, &status) == 0;
    }
    AufChangeTrace(3, "system list\n");
    const QByteArray path = m_currentItem.path.toUtf8();
    // The list knows its songs by path only: a file that another program put
    // under the same name since (a rename over it) is not the song the user
    // chose to delete. Deleted only while it is still the file the database
    // holds; anything else (changed, unknown, no answer) keeps it.
    const int check = metadataCheckFile(m_handler, path.constData());
    if (check != METADATA_FILE_AS_STORED) {
        AufChangeTrace(3, "not the file the database holds (%d), kept: %s\n", check, path.constData());
        return false;
    }
    return ::unlink(path.constData()) == 0;
}

void MP_AufList::indication_callback(void* self, unsigned short indication, void* data)
{
    auto* list = static_cast<MP_AufList*>(self);
    if (indication == METADATA_INDICATION_CONTENT_CHANGED)
        list->handleMetadataIndication();
    else if (indication == METADATA_INDICATION_GROUP_CHANGED)
        list->handleGroupUpdateIndication(static_cast<const MetadataGroupUpdatedIndication*>(data));
}

void MP_AufList::handleMetadataIndication()
{
    if (m_aufType == LibrarySelection) {
        QTimer::singleShot(1, this, SLOT(handleUpdate()));
        return;
    }
    if (!QFile::exists(getCurrent())) {
        AufChangeTrace(3, "handleMetadataIndication, current file deleted!!!\n");
        QTimer::singleShot(1, this, SLOT(handleNowPlayingDeleted()));
    }
}

void MP_AufList::handleGroupUpdateIndication(const MetadataGroupUpdatedIndication* indication)
{
    if (!indication || m_aufType != GroupList || indication->groupId != m_groupId)
        return;
    AufChangeTrace(3, "updated\n");
    if (indication->updateType == METADATA_GROUP_DELETED) {
        setEmptyList();
        Q_EMIT signalCurrentChanged();
    } else if (indication->updateType == METADATA_GROUP_MEMBERS_CHANGED) {
        QTimer::singleShot(1, this, SLOT(handleUpdate()));
    }
}

void MP_AufList::handleUpdate()
{
    const int oldCount = int(m_count);
    m_cacheTopIndex = m_cacheBottomIndex = 0;
    if (m_shuffle == ShuffleAlbums) {
        findCurrentSongAgain(oldCount);
        return;
    }
    const int position = getPositionOfCurrentSong();
    AufChangeTrace(3, "currentIndex=%d\n", position);

    bool isExisted = false;
    int newIndex = 0;
    const int checked = metadataCheckBackupedItem(m_handler, position, &isExisted, &newIndex, &m_count);
    // A count beyond an int is no count a list can play through: the answer is
    // as unusable as a failed look-up.
    if (checked != 0 || m_count > unsigned(INT_MAX)) {
        AufChangeTrace(3, "Error!!! Can't get index from backup list, play from beginning!!!\n");
        if (!getCountFromAuf())
            m_count = m_resultCount = 0;
        handleCurrentRemoved(0);
        Q_EMIT signalCurrentChanged();
    } else {
        AufChangeTrace(3, "after retrive current position: m_count=%d, isExisted=%d, newIndex=%d\n", int(m_count),
                       isExisted, newIndex);
        m_resultCount = m_count;
        if (isExisted) {
            handleCurrentChanged(getNewCurrentIndex(newIndex), position, oldCount);
        } else {
            handleCurrentRemoved(newIndex);
            Q_EMIT signalCurrentChanged();
        }
    }
    int status = 0;
    metadataManageBackupList(m_handler, METADATA_BACKUP_REFRESH, &status);
}

void MP_AufList::findCurrentSongAgain(int oldCount)
{
    // In shuffle-albums mode the song's place in the list is looked up by its
    // id in the database as it is now, after the change, so it cannot be
    // checked against the backup, which holds the places from before. The
    // lookup answers the question directly: the song is still there (and
    // where), or it is gone; either way the album order is built anew.
    const int oldPlaceInAlbum = m_currentIndex;
    const unsigned int oldAlbumSize = m_resultCount;
    const int position = getPositionOfCurrentSong();
    AufChangeTrace(3, "currentIndex=%d\n", position);
    if (position >= 0) {
        // The library's count and the song's place in it say nothing of the
        // album that plays: a song that moved within its album keeps both.
        // Nothing changed only when the song keeps its place in an album of
        // the same size (the count above put the album back as it is now).
        const bool isSamePlace = getItemIndex(m_currentItem) == oldPlaceInAlbum && m_resultCount == oldAlbumSize;
        handleCurrentChanged(position, isSamePlace ? position : -1, oldCount);
    } else {
        handleCurrentRemoved(0);
        Q_EMIT signalCurrentChanged();
    }
    int status = 0;
    metadataManageBackupList(m_handler, METADATA_BACKUP_REFRESH, &status);
}

int MP_AufList::getNewCurrentIndex(int reportedIndex) const
{
    // The database counts a surviving entry's position from 1.
    return reportedIndex < 0 ? int(m_count) - 1 : reportedIndex - 1;  // no overflow: m_count <= INT_MAX
}

void MP_AufList::handleCurrentChanged(int newIndex, int oldPosition, int oldCount)
{
    if (m_aufType == LibrarySelection && int(m_count) == oldCount && newIndex == oldPosition) {
        AufChangeTrace(3, "No change for current list!\n");
        return;
    }
    switch (m_shuffle) {
    case ShuffleOff:
        // The database's position is not trusted to lie inside the list.
        m_currentIndex = getRestrictedIndex(newIndex, m_count);
        break;
    case ShuffleSongs:
        m_shuffleOrder->shuffle(int(m_count), newIndex);
        m_currentIndex = 0;
        break;
    case ShuffleAlbums:
        m_currentIndex = getPositionOfCurrentSong();
        handleShuffleAlbums();
        break;
    default:
        break;
    }
    // The same song goes on playing; only its place changed.
    Q_EMIT signalListUpdate(m_shuffle, m_repeat);
}

void MP_AufList::handleCurrentRemoved(int nextIndex)
{
    m_currentItem = MP_AUF_ITEM();
    if (nextIndex < 0)
        nextIndex = 0;
    switch (m_shuffle) {
    case ShuffleOff:
        setCurrentIndex(nextIndex);
        break;
    case ShuffleSongs:
        m_shuffleOrder->shuffle(int(m_count), -1);
        setCurrentIndex(0);
        break;
    case ShuffleAlbums:
        m_currentIndex = -1;
        handleShuffleAlbums();
        break;
    default:
        break;
    }
}

void MP_AufList::handleNowPlayingDeleted()
{
    const qint64 next = qint64(getCurrentIndex()) + 1;
    handleCurrentRemoved(next < qint64(count()) ? int(next) : -1);
    Q_EMIT signalCurrentChanged();
}

void MP_AufList::setEmptyList()
{
    // Every count and window goes too: the entries looked up last are not
    // the list's any more, whatever position is asked for.
    m_count = m_resultCount = 0;
    m_cacheTopIndex = m_cacheBottomIndex = 0;
    m_albumOffset = 0;
    m_currentItem = MP_AUF_ITEM();
    m_currentIndex = 0;
}
