// MP_AufList: construction, the cache window, navigation and the settings.

#include "lists/MP_AufList.h"

#include <QDataStream>

#include <algorithm>

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
    m_storageLocation = MP_AufContext::maxStorageLocation();
    m_condition = std::make_unique<MP_AufSearchCondition>(QString(), QString(), QString(), QString(),
                                                          m_storageLocation);
    m_aufType = LibrarySelection;
    writeReservedData([](QDataStream& stream) { stream << QString() << QString() << QString() << QString(); });
    initialize();
}

MP_AufList::MP_AufList(const QString& artist, const QString& album, const QString& genre, const QString& composer,
                       int storageLocation, int firstIndex, const QString& firstAlbum)
    : QObject(nullptr), m_currentIndex(firstIndex), m_handler(MP_AufContext::getHandler())
{
    m_storageLocation = storageOrAll(storageLocation);
    m_condition = std::make_unique<MP_AufSearchCondition>(artist, album, genre, composer, m_storageLocation);
    m_currentAlbum = firstAlbum;
    m_aufType = LibrarySelection;
    writeReservedData([&](QDataStream& stream) { stream << artist << album << genre << composer; });
    initialize();
}

MP_AufList::MP_AufList(unsigned int groupId, MetadataGroupType groupType, int storageLocation, int firstIndex,
                       const QString& firstAlbum)
    : QObject(nullptr), m_currentIndex(firstIndex), m_handler(MP_AufContext::getHandler())
{
    m_storageLocation = storageOrAll(storageLocation);
    m_condition = std::make_unique<MP_AufSearchCondition>(groupId, groupType, m_storageLocation);
    m_isHistory = groupType == METADATA_GROUP_PLAY_HISTORY;
    m_groupId = groupId;
    m_groupType = int(groupType);
    m_currentAlbum = firstAlbum;
    m_aufType = GroupList;
    writeReservedData([groupId](QDataStream& stream) { stream << quint32(groupId); });
    initialize();
}

MP_AufList::MP_AufList(const QString& selectionType, const QString& selectionDate, int storageLocation,
                       int firstIndex)
    : QObject(nullptr), m_currentIndex(firstIndex), m_handler(MP_AufContext::getHandler())
{
    m_storageLocation = storageOrAll(storageLocation);
    m_condition = std::make_unique<MP_AufSearchCondition>(selectionType, selectionDate, m_storageLocation);
    m_isVideo = true;
    m_aufType = VideoList;
    writeReservedData([](QDataStream& stream) { stream << qint32(0); });
    initialize();
}

MP_AufList::~MP_AufList()
{
    // The connection keeps one subscription and one backup, and a newer list
    // has taken both over from an older one: releasing them here would leave
    // the newer list deaf to changes and without its backup.
    if (MP_AufContext::subscriber == this) {
        int status = 0;
        metadataManageBackupList(m_handler, METADATA_BACKUP_RELEASE, &status);
        metadataDeregisterIndication(m_handler);
        MP_AufContext::subscriber = nullptr;
    }
}

void MP_AufList::writeReservedData(const std::function<void(QDataStream&)>& writeSelection)
{
    QDataStream stream(&m_reservedData, QIODevice::WriteOnly);
    MP_SetPayloadFormat(stream);
    stream << qint32(m_aufType);
    writeSelection(stream);
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
    MP_AufContext::subscriber = this;

    m_accessor = std::make_unique<MP_AufSearchMediaAccessor>(int(m_handler), m_condition.get());
    m_shuffle = MP_AufContext::shuffle;
    m_repeat = MP_AufContext::isRepeat;
    m_shuffleOrder = std::make_unique<MP_Shuffle>();

    m_messageChannel = std::make_unique<QCopChannel>(kMessageChannel);
    connect(m_messageChannel.get(), SIGNAL(received(const QCString&, const QByteArray&)), this,
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
            m_count = m_resultCount = 0;
            return;
        }
        // A first index outside the list (one saved when the list was longer,
        // or given wrongly) still plays: past the end the last song, the
        // nearest to where play was; below 0 the first. In the shuffle modes
        // such an index names no song and play starts where the order does.
        setCurrentIndex(m_currentIndex);
        break;
    case ShuffleSongs:
        if (!getItems(0, 0)) {
            AufListTrace(3, "MP_AufList::initialize, get total number failed!!!\n");
            m_count = m_resultCount = 0;
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
    const unsigned int found = unsigned(std::max(0, m_accessor->count()));
    if (m_shuffle != ShuffleAlbums || !m_isAlbumSpecified)
        m_count = found;
    m_resultCount = found;
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
    return qint64(m_currentIndex) + m_albumOffset < qint64(m_count) - 1;
}

bool MP_AufList::hasPrevious()
{
    if (m_count == 0)
        return false;
    if (m_repeat)
        return true;
    return qint64(m_currentIndex) + m_albumOffset >= 1;
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
    // In 64 bits: the steps come from outside and may be as large as an int.
    const qint64 target = qint64(m_currentIndex) + m_albumOffset + steps;
    // A step before position 0 passes an end of the order as well.
    if (m_shuffle != ShuffleOff && (target < 0 || target >= qint64(m_count))) {
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

void MP_AufList::setIndex(qint64 index)
{
    const int position = getRepeatedIndex(index);
    if (m_shuffle == ShuffleAlbums)
        setShuffleAlbumIndex(position);
    else
        setCurrentIndex(position);
}

int MP_AufList::getRepeatedIndex(qint64 index) const
{
    const qint64 count = qint64(m_count);
    // An empty list has nothing to wrap onto, and without repeat nothing
    // wraps: a position outside the list stays outside (as -1 or count, so
    // that it fits an int) and every look-up there yields the empty item.
    if (!m_repeat || count == 0)
        return int(std::clamp<qint64>(index, -1, count));
    index %= count;
    return int(index < 0 ? index + count : index);
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
    const MP_AUF_ITEM playing = m_currentItem;
    m_currentIndex = getPositionOfCurrentSong();
    if (m_shuffle == ShuffleAlbums && mode != ShuffleAlbums) {
        // Leaving the mode: the album that played no longer restricts the list.
        clearAlbumFilter();
        m_albumOffset = 0;
    }
    if (mode == ShuffleAlbums && m_shuffle != ShuffleAlbums) {
        // The album order starts with the album of the song that plays. The
        // album held until now is the launch's first album, which says where
        // play began, not where it is.
        m_currentAlbum = albumOfSong(m_currentIndex);
    }
    m_shuffle = mode;
    MP_AufContext::shuffle = mode;
    MP_AufContext::shuffleSetting = mode;
    handleShuffle();
    // The order is rebuilt around the playing song, which stays current; should
    // it be gone from the list meanwhile, the engine must load the new one.
    if (m_currentItem.id != playing.id)
        Q_EMIT signalCurrentChanged();
}

void MP_AufList::updateRepeat(bool repeat)
{
    m_repeat = repeat;
    MP_AufContext::isRepeat = repeat;
}

std::optional<int> MP_AufList::readSetupValue(const QByteArray& payload)
{
    QDataStream stream(payload);
    MP_SetPayloadFormat(stream);
    qint32 value = 0;
    stream >> value;
    // A short payload would read as 0 and switch a mode off; a longer one is
    // not the message the setup application sends.
    if (stream.status() != QDataStream::Ok || !stream.atEnd())
        return std::nullopt;
    return int(value);
}

void MP_AufList::onMessageChannel(const QCString& message, const QByteArray& data)
{
    const QCString shuffleMessage = m_isVideo ? "MP_MSG_SETUP_CHANGE_SHUFFLE_VIDEO" : "MP_MSG_SETUP_CHANGE_SHUFFLE_MUSIC";
    const QCString repeatMessage = m_isVideo ? "MP_MSG_SETUP_CHANGE_REPEAT_VIDEO" : "MP_MSG_SETUP_CHANGE_REPEAT_MUSIC";
    if (message == shuffleMessage || message == repeatMessage) {
        const std::optional<int> value = readSetupValue(data);
        if (!value)
            AufListTrace(3, "MP_AufList::onMessageChannel, unreadable value of %s ignored\n", message.constData());
        else if (message == repeatMessage)
            updateRepeat(*value != 0);
        else if (*value < ShuffleOff || *value > ShuffleAlbums)
            AufListTrace(3, "MP_AufList::onMessageChannel, unknown shuffle mode %d ignored\n", *value);
        else
            updateShuffle(*value);
    }
    Q_EMIT signalListUpdate(m_shuffle, m_repeat);
}
