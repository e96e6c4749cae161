#pragma once
// The simple play list: the playable files of one folder, sorted, with a
// plain current index and no shuffle, repeat or database. Built from the
// file to start with; it holds every file of that file's folder with a
// supported extension of the same media class (audio, video or picture).
// Removing an entry deletes its file, but only while it is still the file
// that was listed (see MP_FileStamp).
//
// Part of the library's exported interface, beside the three entry points:
// a host that wants to play a folder builds one and hands it to its engine.
// The library itself never constructs it.

#include <QString>

#include <memory>
#include <vector>

#include "lists/MP_FileStamp.h"
#include "lists/MP_ListInterface.h"

class MYSTUFF_FileInfoList;

// The library hides everything else (hidden visibility and a version script).
class __attribute__((visibility("default"))) MP_FolderList : public MP_ListInterface {
public:
    /** Sort types of the constructor. */
    enum { SortByName = 0, SortByTime = 1, SortBySize = 2, SortByType = 3 };

    /** Lists the folder of @p file, sorted by @p sortType (any other value: by name),
     *  and makes @p file current. */
    MP_FolderList(const QString& file, int sortType);
    virtual ~MP_FolderList();

    unsigned int count() override;
    /** Plain bounds tests; false on an empty list. */
    bool hasNext() override;
    bool hasPrevious() override;
    /** Absolute path of the current entry; null when the index lies outside the list. */
    QString getCurrent() override;
    QString getItem(int index) override;
    int getCurrentIndex() override;
    /** Moves by @p steps, clamped into the list. */
    void skipSteps(int steps) override;
    /** Moves to @p index, clamped into the list. */
    void moveTo(int index) override;
    /** Deletes the file at @p index and drops its entry; false when the index is
     *  outside the list, the file is no longer the one listed (replaced or
     *  changed since), or it cannot be deleted (then nothing changes). */
    bool removeItem(int index) override;
    /** Null: a folder list has no stored description. */
    QByteArray* getReservedData() override;

    /** "*.ext;*.ext..." for the start file's media class; empty for other files. */
    QString getNameFilter() const;

private:
    void initialize();
    void verifyIndex();

    QString m_file;
    int m_currentIndex = 0;
    std::unique_ptr<MYSTUFF_FileInfoList> m_entries;  // owns its entries
    /** The stamp of each entry's file when the folder was read, in entry order. */
    std::vector<MP_FileStamp> m_stamps;

    MP_FolderList(const MP_FolderList&) = delete;
    MP_FolderList& operator=(const MP_FolderList&) = delete;
};
