#pragma once
// The ordered results of the last few request shapes, so that a window
// anywhere in a long result costs as much as one at its start. Every change
// of the database (by this connection or another one) empties it.

#include <QByteArray>

#include <list>
#include <memory>
#include <vector>

struct MediaOrderedResult {
    std::vector<quint32> ids;          ///< in result order (entry searches)
    std::vector<QByteArray> albums;    ///< in result order (album-name searches), UTF-8
};

class MediaResultCache {
public:
    /** Keeps at most @p capacity results, the least recently used going first. */
    explicit MediaResultCache(int capacity);

    /** Forgets every result unless the database is in the state they were taken in:
     *  @p othersVersion counts commits by other connections, @p ownChanges rows changed
     *  by this one. */
    void validate(qint64 othersVersion, qint64 ownChanges);
    /** The result kept under @p key, or null. */
    std::shared_ptr<const MediaOrderedResult> find(const QByteArray& key);
    void insert(const QByteArray& key, std::shared_ptr<const MediaOrderedResult> result);
    void clear();

private:
    struct Entry {
        QByteArray key;
        std::shared_ptr<const MediaOrderedResult> result;
    };
    int m_capacity;
    qint64 m_othersVersion = -1;
    qint64 m_ownChanges = -1;
    std::list<Entry> m_entries;        // most recently used first
};
