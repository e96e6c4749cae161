#pragma once
// A play list of songs or videos drawn from the media-metadata database: the
// whole music library, an artist/album/genre/composer selection, a stored
// group (a play list or the play history) or a selection of videos. The list
// never holds all its entries: it knows their number, keeps a window of at
// most ten fetched entries (one in shuffle-songs mode), maps play positions
// through a shuffle order, wraps with repeat, and follows the database when
// it changes under it.
//
// The class is spread over three sources: MP_AufList.cpp (construction,
// cache, navigation, settings), MP_AufListAlbums.cpp (shuffle-albums mode)
// and MP_AufListChanges.cpp (removal and database indications).

#include <QByteArray>
#include <QObject>
#include <QString>

#include "lists/MP_AUF_ITEM.h"
#include "lists/MP_ListInterface.h"
#include "platform/Metadata.h"
#include "platform/Qt2Compat.h"

class MP_AufSearchMediaAccessor;
class MP_AufSearchCondition;
class MP_Shuffle;
class QCopChannel;

class MP_AufList : public QObject, public MP_ListInterface {
    Q_OBJECT
public:
    /** Shuffle modes. */
    enum { ShuffleOff = 0, ShuffleSongs = 1, ShuffleAlbums = 2 };
    /** Kinds of list: the first word of the reserved data. */
    enum { LibrarySelection = 0, GroupList = 1, VideoList = 2 };

    /** The whole music library, on every storage. */
    MP_AufList();
    /** The songs matching every non-null field; a negative storage means all storages. */
    MP_AufList(const QString& artist, const QString& album, const QString& genre, const QString& composer,
               int storageLocation, int firstIndex, const QString& firstAlbum);
    /** The members of a stored group (a play list, or the play history for type 2). */
    MP_AufList(unsigned int groupId, MetadataGroupType groupType, int storageLocation, int firstIndex,
               const QString& firstAlbum);
    /** Videos: selection "All", "Captured", "Downloaded" or "By Date" (with @p selectionDate). */
    MP_AufList(const QString& selectionType, const QString& selectionDate, int storageLocation, int firstIndex);
    /** Releases the database backup and subscription, then the owned parts. */
    ~MP_AufList() override;

    // MP_ListInterface
    unsigned int count() override;
    /** False on an empty list; true with repeat; else whether a later entry exists. */
    bool hasNext() override;
    bool hasPrevious() override;
    QString getCurrent() override;
    /** Path at list position @p index (wrapped with repeat); null outside the list,
     *  and in shuffle-albums mode outside the album that plays. */
    QString getItem(int index) override;
    int getCurrentIndex() override;
    /** Moves by @p steps; in a shuffle mode a step past either end draws a new order first. */
    void skipSteps(int steps) override;
    void moveTo(int index) override;
    /** Removes the current entry (other positions are refused); always false: the list
     *  changes when the database reports the change. */
    bool removeItem(int index) override;
    QByteArray* getReservedData() override;

    /** Looks up the entry at whole-list position @p index as the first song; false when none. */
    bool getFirstSong(int index);
    /** The current entry's position in the unshuffled list; -1 in an unknown mode. */
    int getPositionOfCurrentSong();
    int getAbstractIndex() { return getPositionOfCurrentSong(); }
    bool isVideoList() const { return m_isVideo; }
    bool isHistoryList() const { return m_isHistory; }
    /** Switches the shuffle mode around the song that plays. */
    void updateShuffle(int mode);
    void updateRepeat(bool repeat);
    /** A counting search; true on success. */
    bool getCountFromAuf();
    static bool isEmptyItem(const MP_AUF_ITEM& item) { return item.isEmpty(); }

    /** Removes the current entry: from its group for a group list, else deletes its file. */
    bool removeCurrent();

    // Read-only views for the rest of the player.
    int shuffleMode() const { return m_shuffle; }
    bool isRepeat() const { return m_repeat; }
    int aufType() const { return m_aufType; }
    unsigned int groupId() const { return m_groupId; }
    const MP_AUF_ITEM& currentItem() const { return m_currentItem; }
    /** The first and one-past-last result positions held in the cache window. */
    int cacheTop() const { return m_cacheTopIndex; }
    int cacheBottom() const { return m_cacheBottomIndex; }

Q_SIGNALS:
    /** The current entry was replaced because the database changed. */
    void signalCurrentChanged();
    /** The shuffle mode or repeat changed. */
    void signalListUpdate(int shuffleMode, bool repeat);

public Q_SLOTS:
    void onMessageChannel(const QCString& message, const QByteArray& data);
    void handleUpdate();
    void handleNowPlayingDeleted();

private:
    void initialize();
    void handleShuffle();
    bool getItems(int offset, int num);
    void updateCount();
    MP_AUF_ITEM getItemByIndex(int index);
    MP_AUF_ITEM getAufItem(int position);
    void setIndex(int index);
    int getRepeatedIndex(int index) const;
    void setCurrentIndex(int index);
    static int getRestrictedIndex(int index, unsigned int count);
    void writeReservedData();
    static int storageOrAll(int storageLocation);

    // Shuffle-albums mode (MP_AufListAlbums.cpp).
    void handleShuffleAlbums();
    void countCurrentAlbum();
    void restartAlbumOrder();
    bool isStartAlbumInOrder(int position, const QString& album) const;
    QString stepAlbumIndex(int step);
    int positionInWholeList();
    QString getAlbum(int position);
    bool moveToNextAlbum();
    bool moveToPreviousAlbum();
    void setShuffleAlbumIndex(int index);
    void setAlbumFilter(const QString& album);
    void clearAlbumFilter() { setAlbumFilter(QString()); }
    int getItemIndex(const MP_AUF_ITEM& item);

    // Database changes (MP_AufListChanges.cpp).
    static void indication_callback(void* self, unsigned short indication, void* data);
    void handleMetadataIndication();
    void handleGroupUpdateIndication(const MetadataGroupUpdatedIndication* indication);
    void handleCurrentChanged(int newIndex, int oldPosition, int oldCount);
    void handleCurrentRemoved(int nextIndex);
    int getNewCurrentIndex(int reportedIndex) const;
    void findCurrentSongAgain(int oldCount);
    void setEmptyList();

    int m_currentIndex;
    unsigned int m_count = 0;
    int m_cacheTopIndex = 0;
    int m_cacheBottomIndex = 0;
    QValueList<MP_AUF_ITEM> m_cache;
    MP_AufSearchCondition* m_condition = nullptr;  // owned
    MP_AufSearchMediaAccessor* m_accessor = nullptr;  // owned; used through MP_AufAccessor
    QByteArray m_reservedData;
    QCopChannel* m_messageChannel = nullptr;       // owned
    MP_Shuffle* m_shuffleOrder = nullptr;          // owned
    bool m_isVideo = false;
    bool m_isHistory = false;
    int m_shuffle = ShuffleOff;
    bool m_repeat = false;
    int m_aufType = LibrarySelection;
    unsigned int m_groupId = 0;
    MP_AUF_ITEM m_currentItem;
    unsigned int m_handler;
    int m_albumOffset = 0;
    bool m_isAlbumSpecified = false;
    QString m_startAlbum;
    MP_AUF_ITEM m_firstItem;
    int m_albumCount = 0;
    int m_albumIndex = 0;
    QString m_currentAlbum;
    int m_groupType = 0;
    int m_storageLocation = 0;
    unsigned int m_resultCount = 0;
    // The group-removal record handed to the database; its position word points here.
    MetadataRemoveItemsRecord m_removeRecord;
    uint32_t m_removePosition = 0;

    Q_DISABLE_COPY(MP_AufList)
};
