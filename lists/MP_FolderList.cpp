#include "lists/MP_FolderList.h"

#include <algorithm>
#include <climits>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include "platform/MyStuff.h"
#include "platform/TraceLog.h"
#include "platform/UTIL_MimeType.h"

MP_DEFINE_TRACE(FolderListTrace, "MP_FolderList")

namespace {
MYSTUFF_FileInfoList* newSortedList(int sortType)
{
    switch (sortType) {
    case MP_FolderList::SortByTime:
        return new MYSTUFF_SortTime_List;
    case MP_FolderList::SortBySize:
        return new MYSTUFF_SortSize_List;
    case MP_FolderList::SortByType:
        return new MYSTUFF_SortType_List;
    default:
        return new MYSTUFF_SortName_List;
    }
}
} // namespace

MP_FolderList::MP_FolderList(const QString& file, int sortType) : m_file(file), m_entries(newSortedList(sortType))
{
    initialize();
}

MP_FolderList::~MP_FolderList() = default;

QString MP_FolderList::getNameFilter() const
{
    int mediaClass = -1;
    if (UTIL_MimeType::isPicture(m_file))
        mediaClass = UTIL_MimeType::Picture;
    else if (UTIL_MimeType::isVideo(m_file))
        mediaClass = UTIL_MimeType::Video;
    else if (UTIL_MimeType::isAudio(m_file))
        mediaClass = UTIL_MimeType::Audio;
    QStringList extensions;
    UTIL_MimeType::queryMpSupportedExtensions(extensions, mediaClass);
    QStringList patterns;
    for (const QString& extension : extensions)
        patterns.append(QStringLiteral("*.") + extension);
    return patterns.join(QLatin1Char(';'));
}

void MP_FolderList::initialize()
{
    const QString filter = getNameFilter();
    QDir folder(QFileInfo(m_file).absolutePath());
    // A file of no known class lists nothing (an empty filter would list everything).
    if (!filter.isEmpty()) {
        folder.setNameFilters(filter.split(QLatin1Char(';')));
        folder.setSorting(QDir::Name | QDir::IgnoreCase);
        // What a file manager shows: a memory card's "._song.mp3" resource
        // fork, a FIFO or a folder named like a song would only fail to play.
        folder.setFilter(QDir::Files | QDir::NoDotAndDotDot);
        for (const QString& name : folder.entryList()) {
            auto* info = new MYSTUFF_FileInfo;
            info->setFile(folder, name);
            m_entries->append(info);
        }
    }
    m_entries->sort();
    for (int i = 0; i < m_entries->count(); ++i)
        m_stamps.push_back(MP_FileStamp::of(m_entries->at(i)->absFilePath()));

    m_currentIndex = 0;
    const QFileInfo start(m_file);
    if (start.exists()) {
        // Past the last entry when the start file is not in the list
        // (filtered out): getCurrent() then yields null until the next move.
        const QString startPath = start.absoluteFilePath();
        while (m_currentIndex < m_entries->count() && m_entries->at(m_currentIndex)->absFilePath() != startPath)
            ++m_currentIndex;
    }
    FolderListTrace(3, "MP_FolderList: %d entries, current %d\n", m_entries->count(), m_currentIndex);
}

unsigned int MP_FolderList::count()
{
    return unsigned(m_entries->count());
}

bool MP_FolderList::hasNext()
{
    return m_currentIndex < m_entries->count() - 1;
}

bool MP_FolderList::hasPrevious()
{
    return m_currentIndex > 0;
}

QString MP_FolderList::getCurrent()
{
    return getItem(m_currentIndex);
}

QString MP_FolderList::getItem(int index)
{
    const MYSTUFF_FileInfo* entry = m_entries->at(index);
    return entry ? entry->absFilePath() : QString();
}

int MP_FolderList::getCurrentIndex()
{
    return m_currentIndex;
}

void MP_FolderList::skipSteps(int steps)
{
    // Added in 64 bits: a step of any size ends at an end of the list.
    const qint64 target = qint64(m_currentIndex) + steps;
    m_currentIndex = int(std::clamp<qint64>(target, INT_MIN, INT_MAX));
    verifyIndex();
}

void MP_FolderList::moveTo(int index)
{
    m_currentIndex = index;
    verifyIndex();
}

void MP_FolderList::verifyIndex()
{
    if (m_currentIndex >= m_entries->count())
        m_currentIndex = m_entries->count() - 1;
    // After the upper clamp, so that an empty list ends at 0, not -1.
    if (m_currentIndex < 0)
        m_currentIndex = 0;
}

bool MP_FolderList::removeItem(int index)
{
    const MYSTUFF_FileInfo* entry = m_entries->at(index);
    if (!entry)
        return false;
    const QString path = entry->absFilePath();
    // The entry names a file by path only. Another program may have put
    // another file under that name since the folder was read (a rename over
    // it): that one is not the file the user chose to delete, so it stays.
    if (!MP_FileStamp::of(path).isSameFileAs(m_stamps[size_t(index)])) {
        FolderListTrace(3, "MP_FolderList::removeItem, %s is not the file listed, kept\n", qPrintable(path));
        return false;
    }
    if (!QFile::remove(path))
        return false;
    m_entries->remove(index);
    m_stamps.erase(m_stamps.begin() + index);
    // A later current entry moves back with the list, so it stays on its
    // file; a removed current entry is followed by the one that took its
    // place (or the new last one), so the index stays inside the list.
    if (m_currentIndex > index)
        --m_currentIndex;
    verifyIndex();
    return true;
}

QByteArray* MP_FolderList::getReservedData()
{
    return nullptr;
}
