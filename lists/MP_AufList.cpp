// MP_AufList: construction, the cache window, navigation and the settings.

#include "lists/MP_AufList.h"

#include <QDataStream>

#include "lists/MP_AufContext.h"
#include "lists/MP_AufSearchCondition.h"
#include "lists/MP_AufSearchMediaAccessor.h"
#include "lists/MP_Shuffle.h"
#include "platform/QCopChannel.h"
#include "platform/StreamEncoding.h"
#include "platform/TraceLog.h"

MP_DEFINE_TRACE(AufListTrace, "MP_AufList")

namespace {
const char* const kMessageChannel = "MEDIAPLAYER_MESSAGE_CHANNEL";
const int kCacheWindow = 10;
const unsigned short kIndications[] = {METADATA_INDICATION_CONTENT_CHANGED, METADATA_INDICATION_GROUP_CHANGED};
} // namespace

MP_AufList::MP_AufList() : QObject(nullptr), m_currentIndex(-1), m_handler(MP_AufContext::getHandler())
{
    m_condition = new MP_AufSearchCondition(QString(), QString(), QString(), QString(),
                                            MP_AufContext::maxStorageLocation());
    m_aufType = LibrarySelection;
    m_storageLocation = MP_AufContext::maxStorageLocation();
    QDataStream stream(&m_reservedData, QIODevice::WriteOnly);
    MP_SetPayloadFormat(stream);
    stream << qint32(m_aufType) << QString() << QString() << QString() << QString();
    initialize();
}

MP_AufList::MP_AufList(const QString& artist, const QString& album, const QString& genre, const QString& composer,
                       int storageLocation, int firstIndex, const QString& firstAlbum)
    : QObject(nullptr), m_currentIndex(firstIndex), m_handler(MP_AufContext::getHandler())
{
    m_storageLocation = storageOrAll(storageLocation);
    m_condition = new MP_AufSearchCondition(artist, album, genre, composer, m_storageLocation);
    m_currentAlbum = firstAlbum;
    m_aufType = LibrarySelection;
    QDataStream stream(&m_reservedData, QIODevice::WriteOnly);
    MP_SetPayloadFormat(stream);
    stream << qint32(m_aufType) << artist << album << genre << composer;
    initialize();
}

MP_AufList::MP_AufList(unsigned int groupId, MetadataGroupType groupType, int storageLocation, int firstIndex,
                       const QString& firstAlbum)
    : QObject(nullptr), m_currentIndex(firstIndex), m_handler(MP_AufContext::getHandler())
{
    m_storageLocation = storageOrAll(storageLocation);
    m_condition = new MP_AufSearchCondition(groupId, groupType, m_storageLocation);
    m_isHistory = groupType == METADATA_GROUP_PLAY_HISTORY;
    m_groupId = groupId;
    m_groupType = int(groupType);
    m_currentAlbum = firstAlbum;
    m_aufType = GroupList;
    QDataStream stream(&m_reservedData, QIODevice::WriteOnly);
    MP_SetPayloadFormat(stream);
    stream << qint32(m_aufType) << quint32(m_groupId);
    initialize();
}

MP_AufList::MP_AufList(const QString& selectionType, const QString& selectionDate, int storageLocation,
                       int firstIndex)
    : QObject(nullptr), m_currentIndex(firstIndex), m_handler(MP_AufContext::getHandler())
{
    m_storageLocation = storageOrAll(storageLocation);
    m_condition = new MP_AufSearchCondition(selectionType, selectionDate, m_storageLocation);
    m_isVideo = true;
    m_aufType = VideoList;
    QDataStream stream(&m_reservedData, QIODevice::WriteOnly);
    MP_SetPayloadFormat(stream);
    stream << qint32(m_aufType) << qint32(0);
    initialize();
}

MP_AufList::~MP_AufList()
{
    int status = 0;
    metadataManageBackupList(m_handler, METADATA_BACKUP_RELEASE, &status);
    metadataDeregisterIndication(m_handler);
    delete m_shuffleOrder;
    delete m_accessor;
    delete m_condition;
    delete m_messageChannel;
}

int MP_AufList::storageOrAll(int storageLocation)
{
    return storageLocation < 0 ? MP_AufContext::maxStorageLocation() : storageLocation;
}

void MP_AufList::initialize()
{
    m_count = 0;
    m_cacheTopIndex = m_cacheBottomIndex = 0;
    m_currentItem = MP_AUF_ITEM();

    metadataSetIndicationHandler(m_handler, &MP_AufList::indication_callback, this);
    metadataRegisterIndication(m_handler, kIndications, 2);

    m_accessor = new MP_AufSearchMediaAccessor(int(m_handler), m_condition);
    m_shuffle = MP_AufContext::shuffle;
    m_repeat = MP_AufContext::isRepeat;
    m_shuffleOrder = new MP_Shuffle();

    m_messageChannel = new QCopChannel(kMessageChannel);
    connect(m_messageChannel, SIGNAL(received(const QCString&, const QByteArray&)), this,
            SLOT(onMessageChannel(const QCString&, const QByteArray&)));

    // The database keeps the result as it is now, to find the current song
    // again after a change.
    metadataBackupSearchedMedias(m_handler, m_condition->getRequest(0, 0, false));
    handleShuffle();
}

void MP_AufList::handleShuffle()
{
    m_albumOffset = 0;
    switch (m_shuffle) {
    case ShuffleOff:
        if (!getItems(0, 0)) {
            AufListTrace(3, "MP_AufList::initialize, get total number failed!!!\n");
            m_count = 0;
            return;
        }
        if (m_currentIndex < 0)
            m_currentIndex = 0;
        m_currentItem = getAufItem(m_currentIndex);
        break;
    case ShuffleSongs:
        if (!getItems(0, 0)) {
            AufListTrace(3, "MP_AufList::initialize, get total number failed!!!\n");
            m_count = 0;
            return;
        }
        // The song that was current (or the one asked for) plays first.
        m_shuffleOrder->shuffle(int(m_count), m_currentIndex);
        setCurrentIndex(0);
        break;
    case ShuffleAlbums:
        handleShuffleAlbums();
        break;
    default:
        AufListTrace(3, "MP_AufList::handleShuffle, unknown shuffle mode %d\n", m_shuffle);
        break;
    }
}

bool MP_AufList::getItems(int offset, int num)
{
    m_cacheTopIndex = m_cacheBottomIndex = 0;
    const bool ok = m_accessor->getItems(offset, num, m_cache);
    if (ok && num > 0) {
        m_cacheTopIndex = offset;
        m_cacheBottomIndex = offset + int(m_cache.size());
    } else if (ok) {
        updateCount();
    }
    return ok;
}

void MP_AufList::updateCount()
{
    // In shuffle-albums mode the accessor counts the album that plays; the
    // whole list's count is taken only without an album restriction.
    if (m_shuffle != ShuffleAlbums || !m_isAlbumSpecified)
        m_count = unsigned(m_accessor->count());
    m_resultCount = unsigned(m_accessor->count());
}

bool MP_AufList::getCountFromAuf()
{
    return getItems(0, 0);
}

MP_AUF_ITEM MP_AufList::getItemByIndex(int index)
{
    if (index >= m_cacheTopIndex && index < m_cacheBottomIndex)
        return m_cache.at(index - m_cacheTopIndex);
    // Shuffled play jumps about: a window would be wasted.
    const int window = m_shuffle == ShuffleSongs ? 1 : kCacheWindow;
    if (!getItems(index, window) || index >= m_cacheBottomIndex)
        return MP_AUF_ITEM();
    return m_cache.at(index - m_cacheTopIndex);
}

MP_AUF_ITEM MP_AufList::getAufItem(int position)
{
    if (position < 0 || unsigned(position) >= m_resultCount)
        return MP_AUF_ITEM();
    if (m_shuffle == ShuffleSongs)
        position = m_shuffleOrder->getShuffleIndex(position);
    return getItemByIndex(position);
}

unsigned int MP_AufList::count()
{
    return m_count;
}

bool MP_AufList::hasNext()
{
    if (m_count == 0)
        return false;
    if (m_repeat)
        return true;
    return m_currentIndex + m_albumOffset < int(m_count) - 1;
}

bool MP_AufList::hasPrevious()
{
    if (m_count == 0)
        return false;
    if (m_repeat)
        return true;
    return m_currentIndex + m_albumOffset >= 1;
}

QString MP_AufList::getCurrent()
{
    return m_currentItem.path;
}

int MP_AufList::getCurrentIndex()
{
    return m_currentIndex + m_albumOffset;
}

QString MP_AufList::getItem(int index)
{
    const int position = getRepeatedIndex(index);
    if (m_shuffle != ShuffleAlbums)
        return getAufItem(position).path;
    if (position >= m_albumOffset && unsigned(position - m_albumOffset) < m_resultCount)
        return getAufItem(position - m_albumOffset).path;
    AufListTrace(3, "Error!!! Not support get item randomly from other album!\n");
    return QString();
}

void MP_AufList::skipSteps(int steps)
{
    const int target = m_currentIndex + m_albumOffset + steps;
    // Compared unsigned on purpose: a step before position 0 also passes an
    // end of the order and draws a new one.
    if (m_shuffle != ShuffleOff && unsigned(target) >= m_count) {
        AufListTrace(3, "re-shuffle!\n");
        m_shuffleOrder->reShuffle();
        // A wrap with repeat starts a new album order from its first album.
        // Keeping the old album offset would measure the walk back over the
        // new order's albums with the old order's sizes, and the offset would
        // drift by the difference every cycle, skipping or repeating songs.
        if (m_shuffle == ShuffleAlbums && m_repeat)
            restartAlbumOrder();
    }
    setIndex(target);
}

void MP_AufList::moveTo(int index)
{
    setIndex(index);
}

QByteArray* MP_AufList::getReservedData()
{
    return &m_reservedData;
}

void MP_AufList::setIndex(int index)
{
    const int position = getRepeatedIndex(index);
    if (m_shuffle == ShuffleAlbums)
        setShuffleAlbumIndex(position);
    else
        setCurrentIndex(position);
}

int MP_AufList::getRepeatedIndex(int index) const
{
    // An empty list has nothing to wrap onto: the position stays as it is
    // and every look-up then yields the empty item.
    if (!m_repeat || m_count == 0)
        return index;
    const int count = int(m_count);
    index %= count;
    return index < 0 ? index + count : index;
}

void MP_AufList::setCurrentIndex(int index)
{
    m_currentIndex = getRestrictedIndex(index, m_resultCount);
    m_currentItem = getAufItem(m_currentIndex);
}

int MP_AufList::getRestrictedIndex(int index, unsigned int count)
{
    if (count == 0 || index < 0)
        return 0;
    if (unsigned(index) >= count)
        return int(count) - 1;
    return index;
}

bool MP_AufList::getFirstSong(int index)
{
    m_firstItem = MP_AUF_ITEM();
    if (!getItems(0, 0)) {
        AufListTrace(3, "total count = 0\n");
        m_count = 0;
        return false;
    }
    if (index < 0 || !getItems(index, 1) || m_cache.isEmpty())
        return false;
    m_firstItem = m_cache.first();
    return true;
}

int MP_AufList::getPositionOfCurrentSong()
{
    switch (m_shuffle) {
    case ShuffleOff:
        return m_currentIndex;
    case ShuffleSongs:
        return m_shuffleOrder->getShuffleIndex(m_currentIndex);
    case ShuffleAlbums:
        return positionInWholeList();
    default:
        return -1;
    }
}

void MP_AufList::updateShuffle(int mode)
{
    m_currentIndex = getPositionOfCurrentSong();
    if (m_shuffle == ShuffleAlbums && mode != ShuffleAlbums) {
        // Leaving the mode: the album that played no longer restricts the list.
        clearAlbumFilter();
        m_albumOffset = 0;
    }
    m_shuffle = mode;
    MP_AufContext::shuffle = mode;
    MP_AufContext::shuffleSetting = mode;
    handleShuffle();
}

void MP_AufList::updateRepeat(bool repeat)
{
    m_repeat = repeat;
    MP_AufContext::isRepeat = repeat;
}

void MP_AufList::onMessageChannel(const QCString& message, const QByteArray& data)
{
    QDataStream stream(data);
    MP_SetPayloadFormat(stream);
    qint32 value = 0;
    stream >> value;
    const QCString shuffleMessage = m_isVideo ? "MP_MSG_SETUP_CHANGE_SHUFFLE_VIDEO" : "MP_MSG_SETUP_CHANGE_SHUFFLE_MUSIC";
    const QCString repeatMessage = m_isVideo ? "MP_MSG_SETUP_CHANGE_REPEAT_VIDEO" : "MP_MSG_SETUP_CHANGE_REPEAT_MUSIC";
    if (message == shuffleMessage)
        updateShuffle(value);
    else if (message == repeatMessage)
        updateRepeat(value != 0);
    Q_EMIT signalListUpdate(m_shuffle, m_repeat);
}
