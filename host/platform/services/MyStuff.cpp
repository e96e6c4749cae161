#include "platform/MyStuff.h"

#include <QDateTime>

#include <algorithm>

MYSTUFF_FileInfoList::~MYSTUFF_FileInfoList()
{
    qDeleteAll(m_items);
}

const MYSTUFF_FileInfo* MYSTUFF_FileInfoList::at(int index) const
{
    return index >= 0 && index < count() ? m_items.at(index) : nullptr;
}

bool MYSTUFF_FileInfoList::remove(int index)
{
    if (index < 0 || index >= count())
        return false;
    delete m_items.takeAt(index);
    return true;
}

void MYSTUFF_FileInfoList::sort()
{
    std::stable_sort(m_items.begin(), m_items.end(),
                     [this](const MYSTUFF_FileInfo* a, const MYSTUFF_FileInfo* b) { return compareItems(*a, *b) < 0; });
}

int MYSTUFF_FileInfoList::compareNames(const MYSTUFF_FileInfo& a, const MYSTUFF_FileInfo& b)
{
    const int folded = a.fileName().compare(b.fileName(), Qt::CaseInsensitive);
    return folded != 0 ? folded : a.fileName().compare(b.fileName());
}

int MYSTUFF_SortName_List::compareItems(const MYSTUFF_FileInfo& a, const MYSTUFF_FileInfo& b) const
{
    return compareNames(a, b);
}

int MYSTUFF_SortTime_List::compareItems(const MYSTUFF_FileInfo& a, const MYSTUFF_FileInfo& b) const
{
    // Newest first: what was just recorded or downloaded is what a user looks for.
    const QDateTime timeA = a.lastModified();
    const QDateTime timeB = b.lastModified();
    if (timeA != timeB)
        return timeA > timeB ? -1 : 1;
    return compareNames(a, b);
}

int MYSTUFF_SortSize_List::compareItems(const MYSTUFF_FileInfo& a, const MYSTUFF_FileInfo& b) const
{
    if (a.size() != b.size())
        return a.size() > b.size() ? -1 : 1;
    return compareNames(a, b);
}

int MYSTUFF_SortType_List::compareItems(const MYSTUFF_FileInfo& a, const MYSTUFF_FileInfo& b) const
{
    const int byType = a.suffix().compare(b.suffix(), Qt::CaseInsensitive);
    return byType != 0 ? byType : compareNames(a, b);
}
