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

#include <functional>
#include <memory>
#include <optional>

#include "lists/MP_AUF_ITEM.h"
#include "lists/MP_ListInterface.h"
#include "platform/Metadata.h"
#include "platform/Qt2Compat.h"

class MP_AufSearchMediaAccessor;
class MP_AufSearchCondition;
class MP_Shuffle;
class QCopChannel;
class QDataStream;

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
    /** The value of a setup-change message: a payload of exactly one 32-bit
     *  big-endian int. Anything else (shorter, longer) yields no value. Safe on
     *  arbitrary bytes. */
    static std::optional<int> readSetupValue(const QByteArray& payload);

    /** Removes the current entry: from its group for a group list, else deletes its file,
     *  but only while that file is still the one the database holds. True when done. */
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
    /** Acts on the setup application's messages; after every message, acted on
     *  or not, reports the modes with signalListUpdate. */
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
    void setIndex(qint64 index);
    int getRepeatedIndex(qint64 index) const;
    void setCurrentIndex(int index);
    static int getRestrictedIndex(int index, unsigned int count);
    /** Writes the reserved data: the kind of list, then what @p writeSelection adds. */
    void writeReservedData(const std::function<void(QDataStream&)>& writeSelection);
    static int storageOrAll(int storageLocation);

    // Shuffle-albums mode (MP_AufListAlbums.cpp).
    void handleShuffleAlbums();
    void countCurrentAlbum();
    void restartAlbumOrder();
    bool isStartAlbumInOrder(int position, const QString& album) const;
    QString stepAlbumIndex(int step);
    int positionInWholeList();
    QString albumOfSong(int position);
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

    // Positions: a "list position" counts the whole result in its unshuffled
    // order; a "play position" counts in the order of play (through the song
    // order in shuffle-songs mode, album by album in shuffle-albums mode).

    /** The current entry's play position. Shuffle off: its list position.
     *  Shuffle songs: its place in the song order. Shuffle albums: its position
     *  inside the album that plays (add m_albumOffset for the play position).
     *  Holds the first index asked for (or -1) until the first positioning. */
    int m_currentIndex;
    /** Entries of the whole list, in every mode. */
    unsigned int m_count = 0;
    /** First result position held in m_cache. */
    int m_cacheTopIndex = 0;
    /** One past the last result position held in m_cache (equal to the top: empty). */
    int m_cacheBottomIndex = 0;
    /** The fetched window: at most ten entries, one in shuffle-songs mode. Its
     *  positions are in the current search result: the album that plays, in
     *  shuffle-albums mode. */
    QValueList<MP_AUF_ITEM> m_cache;
    /** The list's stored description, written once at construction. */
    QByteArray m_reservedData;
    // Destroyed in reverse order: the shuffle order, the accessor (which
    // points at the condition), the condition, then the channel.
    /** "MEDIAPLAYER_MESSAGE_CHANNEL", on which the setup application changes the modes. */
    std::unique_ptr<QCopChannel> m_messageChannel;
    /** What the list is made of; the requests of m_accessor point into it. */
    std::unique_ptr<MP_AufSearchCondition> m_condition;
    /** Runs the searches of m_condition (used through MP_AufAccessor). */
    std::unique_ptr<MP_AufSearchMediaAccessor> m_accessor;
    /** Shuffle songs: maps a play position to a list position. Shuffle
     *  albums: maps an album's play position to its place among the albums
     *  by name. Unused with shuffle off. */
    std::unique_ptr<MP_Shuffle> m_shuffleOrder;
    /** The list holds videos: it follows the video settings messages. */
    bool m_isVideo = false;
    /** The list is the play-history group. */
    bool m_isHistory = false;
    /** ShuffleOff, ShuffleSongs or ShuffleAlbums; changed only by updateShuffle. */
    int m_shuffle = ShuffleOff;
    /** Steps past either end wrap around. */
    bool m_repeat = false;
    /** LibrarySelection, GroupList or VideoList: the first word of the reserved data. */
    int m_aufType = LibrarySelection;
    /** The group of a group list; 0 for other lists. */
    unsigned int m_groupId = 0;
    /** The entry that plays; the empty item when there is none. */
    MP_AUF_ITEM m_currentItem;
    /** The process's one database connection, shared by every list (not owned). */
    unsigned int m_handler;
    /** Shuffle albums: the play position of the first song of the album that
     *  plays (the sizes of the albums played before it). 0 in the other modes. */
    int m_albumOffset = 0;
    /** Shuffle albums: the search is restricted to m_currentAlbum. */
    bool m_isAlbumSpecified = false;
    /** Shuffle albums: the album that plays first, outside the album order, and
     *  is passed over where the order holds it; null when the order was built
     *  without a current song. */
    QString m_startAlbum;
    /** Shuffle albums: the entry the order was built around (found by getFirstSong). */
    MP_AUF_ITEM m_firstItem;
    /** Shuffle albums: the number of albums of the whole list. */
    int m_albumCount = 0;
    /** Shuffle albums: the play position of the album that plays in the album
     *  order; -1 while the start album plays. */
    int m_albumIndex = 0;
    /** The album the restriction holds (shuffle albums). Before the album order
     *  is built: the album to start it with (the first album of the launch). */
    QString m_currentAlbum;
    /** Group lists: the group's type, for the group-removal record. */
    int m_groupType = 0;
    /** The storage the list searches; group lists hand it to the group-removal record. */
    int m_storageLocation = 0;
    /** Entries of the current search result: m_count, except in shuffle-albums
     *  mode where it is the size of the album that plays. */
    unsigned int m_resultCount = 0;
    /** The group-removal record handed to the database; its position word points
     *  at m_removePosition. */
    MetadataRemoveItemsRecord m_removeRecord;
    uint32_t m_removePosition = 0;

    Q_DISABLE_COPY(MP_AufList)
};
