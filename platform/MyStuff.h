#pragma once
// The file manager's file information and its sorted file lists.

#include <QDir>
#include <QFileInfo>
#include <QList>
#include <QString>

/** One file of a folder. */
class MYSTUFF_FileInfo : public QFileInfo {
public:
    MYSTUFF_FileInfo() = default;
    /** The absolute path of the file. */
    QString absFilePath() const { return absoluteFilePath(); }
};

/**
 * A list of file informations that owns them (deletes them when removed or
 * when the list goes) and sorts them by the order its class defines.
 */
class MYSTUFF_FileInfoList {
public:
    MYSTUFF_FileInfoList() = default;
    virtual ~MYSTUFF_FileInfoList();

    /** Takes ownership of @p info. */
    void append(MYSTUFF_FileInfo* info) { m_items.append(info); }
    int count() const { return int(m_items.size()); }
    /** The item at @p index; null outside 0..count()-1. */
    const MYSTUFF_FileInfo* at(int index) const;
    /** Deletes the item at @p index; false outside the list. */
    bool remove(int index);
    /** Sorts by compareItems(); equal items keep their order. */
    void sort();

protected:
    /** Negative when @p a goes before @p b, positive after, 0 when equal. */
    virtual int compareItems(const MYSTUFF_FileInfo& a, const MYSTUFF_FileInfo& b) const = 0;
    /** File names ignoring case, then exactly (so the order is total). */
    static int compareNames(const MYSTUFF_FileInfo& a, const MYSTUFF_FileInfo& b);

private:
    QList<MYSTUFF_FileInfo*> m_items;  // owned
    MYSTUFF_FileInfoList(const MYSTUFF_FileInfoList&) = delete;
    MYSTUFF_FileInfoList& operator=(const MYSTUFF_FileInfoList&) = delete;
};

/** By name, ignoring case. */
class MYSTUFF_SortName_List : public MYSTUFF_FileInfoList {
protected:
    int compareItems(const MYSTUFF_FileInfo& a, const MYSTUFF_FileInfo& b) const override;
};

/** Newest first (last modification), then by name. */
class MYSTUFF_SortTime_List : public MYSTUFF_FileInfoList {
protected:
    int compareItems(const MYSTUFF_FileInfo& a, const MYSTUFF_FileInfo& b) const override;
};

/** Largest first, then by name. */
class MYSTUFF_SortSize_List : public MYSTUFF_FileInfoList {
protected:
    int compareItems(const MYSTUFF_FileInfo& a, const MYSTUFF_FileInfo& b) const override;
};

/** By extension ignoring case (files without one first), then by name. */
class MYSTUFF_SortType_List : public MYSTUFF_FileInfoList {
protected:
    int compareItems(const MYSTUFF_FileInfo& a, const MYSTUFF_FileInfo& b) const override;
};
