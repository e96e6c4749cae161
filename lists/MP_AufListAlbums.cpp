// MP_AufList: shuffle-albums mode. Whole albums play in a random order, the
// songs of each album in list order; the album that plays is held as an
// album restriction on the search, so the result count is its size.

#include "lists/MP_AufList.h"

#include "lists/MP_AufSearchMediaAccessor.h"
#include "lists/MP_Shuffle.h"
#include "platform/TraceLog.h"

MP_DEFINE_TRACE(AufAlbumTrace, "MP_AufList")

namespace {
const int kIdPage = 300;
}

void MP_AufList::setAlbumFilter(const QString& album)
{
    m_accessor->setAlbum(album);
    m_currentAlbum = album;
    m_isAlbumSpecified = !album.isNull();
}

void MP_AufList::handleShuffleAlbums()
{
    // The album to start with: at construction the one asked for at launch,
    // later the album of the song that plays (set by updateShuffle, or held
    // by the restriction); taken before the restriction is lifted, which
    // forgets it.
    const QString firstAlbum = m_currentAlbum;
    m_albumOffset = 0;
    clearAlbumFilter();
    QStringList albums;
    if (!m_accessor->getAlbums(0, 0, albums)) {
        AufAlbumTrace(3, "get album list failed.\n !!!");
        m_albumCount = 0;
        return;
    }
    m_albumCount = m_accessor->albumCount();
    m_shuffleOrder->shuffle(m_albumCount, -1);

    if (getFirstSong(m_currentIndex)) {
        AufAlbumTrace(3, "first song specified\n");
        // The album asked for at launch plays first, outside the order.
        m_albumIndex = -1;
        m_startAlbum = firstAlbum;
        setAlbumFilter(firstAlbum);
        countCurrentAlbum();
        setCurrentIndex(getItemIndex(m_firstItem));
    } else {
        AufAlbumTrace(3, "first song not specified\n");
        m_albumIndex = 0;
        m_firstItem = MP_AUF_ITEM();
        m_startAlbum = QString();
        setAlbumFilter(getAlbum(0));
        countCurrentAlbum();
        setCurrentIndex(0);
    }
}

void MP_AufList::countCurrentAlbum()
{
    // Everything else in this mode takes the result count for the size of the
    // album that plays (as it is after every album step), so the first album
    // is counted under its restriction too rather than keeping the whole
    // list's count; the id walk that finds the first song then stays inside it.
    if (!getCountFromAuf())
        AufAlbumTrace(3, "error while get item count of the album=%s!!\n", qPrintable(m_currentAlbum));
}

void MP_AufList::restartAlbumOrder()
{
    m_albumOffset = 0;
    m_albumIndex = 0;
    m_startAlbum = QString();
    setAlbumFilter(getAlbum(0));
    countCurrentAlbum();
}

QString MP_AufList::getAlbum(int position)
{
    if (position == -1)
        return m_startAlbum;
    if (position < 0 || position >= m_albumCount)
        return QString();
    const int albumPosition = m_shuffleOrder->getShuffleIndex(position);
    AufAlbumTrace(3, "real index of album=%d\n", albumPosition);
    QStringList albums;
    if (!m_accessor->getAlbums(albumPosition, 1, albums) || albums.size() != 1) {
        AufAlbumTrace(3, "exit: get album failed\n");
        return QString();
    }
    // Songs without an album form one of their own; its name is empty, not
    // null, which would mean "no album" and lift the restriction.
    return albums.first().isNull() ? QString(QLatin1String("")) : albums.first();
}

bool MP_AufList::isStartAlbumInOrder(int position, const QString& album) const
{
    // The start album plays first, outside the order: where the order holds
    // it too, it is passed over. At position -1 it is the start album itself.
    return position >= 0 && !m_startAlbum.isNull() && album == m_startAlbum;
}

QString MP_AufList::stepAlbumIndex(int step)
{
    QString album;
    do {
        m_albumIndex += step;
        album = getAlbum(m_albumIndex);
    } while (!album.isNull() && isStartAlbumInOrder(m_albumIndex, album));
    return album;
}

bool MP_AufList::moveToNextAlbum()
{
    const int from = m_albumIndex;
    const QString album = stepAlbumIndex(+1);
    if (album.isNull()) {
        AufAlbumTrace(3, "fatal error!!!");
        // Left where it was, so that a later step does not count an album twice.
        m_albumIndex = from;
        return false;
    }
    setAlbumFilter(album);
    // Forward: past the songs of the album that played until now.
    m_albumOffset += int(m_resultCount);
    if (!getItems(0, 0)) {
        AufAlbumTrace(3, "error while get item count of the album=%s!!\n", qPrintable(album));
        return false;
    }
    return true;
}

bool MP_AufList::moveToPreviousAlbum()
{
    const int from = m_albumIndex;
    const QString album = stepAlbumIndex(-1);
    if (album.isNull()) {
        AufAlbumTrace(3, "fatal error!!!");
        m_albumIndex = from;
        return false;
    }
    setAlbumFilter(album);
    if (!getCountFromAuf()) {
        AufAlbumTrace(3, "error while get item count of the album=%s!!\n", qPrintable(album));
        return false;
    }
    // Backward: before the songs of the album stepped back to.
    m_albumOffset -= int(m_resultCount);
    return true;
}

void MP_AufList::setShuffleAlbumIndex(int index)
{
    const int position = getRestrictedIndex(index, m_count);
    while (position < m_albumOffset) {
        const bool atFirstStage = m_albumIndex < 1 && (m_albumIndex != 0 || m_startAlbum.isNull());
        if (atFirstStage)
            break;
        if (!moveToPreviousAlbum()) {
            AufAlbumTrace(3, "MP_AufList::setShuffleAlbumIndex, fail to set index=%d\n", index);
            return;
        }
    }
    for (;;) {
        if (position < m_albumOffset + int(m_resultCount) || m_albumIndex >= m_albumCount) {
            setCurrentIndex(position - m_albumOffset);
            return;
        }
        if (!moveToNextAlbum()) {
            AufAlbumTrace(3, "MP_AufList::setShuffleAlbumIndex, fail to set index=%d\n", index);
            return;
        }
    }
}

int MP_AufList::positionInWholeList()
{
    // Looked up without the album restriction, then the restriction and its
    // count are put back: asking where the song is must not change what
    // plays next.
    const bool restricted = m_isAlbumSpecified;
    const QString album = m_currentAlbum;
    clearAlbumFilter();
    getCountFromAuf();
    const int position = getItemIndex(m_currentItem);
    if (restricted) {
        setAlbumFilter(album);
        getCountFromAuf();
    }
    return position;
}

QString MP_AufList::albumOfSong(int position)
{
    QString album;
    if (position < 0 || !m_accessor->getEntryAlbum(position, album))
        return QString();
    return album;
}

int MP_AufList::getItemIndex(const MP_AUF_ITEM& item)
{
    if (item.isEmpty())
        return -1;
    QValueList<unsigned int> ids;
    int offset = 0;
    for (;;) {
        if (!m_accessor->getIds(offset, kIdPage, ids) || offset >= m_accessor->count()) {
            AufAlbumTrace(3, "exit, not found first song, play from begining!\n");
            return -1;
        }
        const int place = int(ids.indexOf(item.id));
        if (place >= 0) {
            AufAlbumTrace(3, "exit: find song=%s, item index=%d\n", qPrintable(item.path), offset + place);
            return offset + place;
        }
        if (ids.isEmpty()) {
            // Defensive: a page that delivers nothing would never end the walk.
            AufAlbumTrace(3, "exit, not found first song, play from begining!\n");
            return -1;
        }
        offset += int(ids.size());
    }
}
