#pragma once
// The album names of an album-name result, each with its sort key, in result
// order, packed: the texts of every album in one block of bytes and two
// 32-bit offsets an album. A kept result of 90,000 albums so costs the bytes
// of its texts and 8 more an album, where a text of its own costs a heap block
// and a string object (about 70 bytes a text).

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

class MediaAlbumList {
public:
    /** An album: its sort key, then its name; ordered as SQLite's BINARY collation
     *  orders them, the key first. */
    using Album = std::pair<std::string_view, std::string_view>;

    size_t size() const { return m_starts.size() / 2; }
    bool isEmpty() const { return m_starts.empty(); }
    /** The album at @p index (below size()); valid until the list next changes. */
    Album at(size_t index) const;
    std::string_view nameAt(size_t index) const { return at(index).second; }

    /** Adds an album at the end; false (and nothing added) when the list cannot hold
     *  more text (4 GiB). */
    bool append(std::string_view key, std::string_view name);
    void reserve(size_t albums, size_t textBytes);
    /** Gives back the room beyond what the albums take. */
    void shrinkToFit();
    /** The bytes of the albums' texts. */
    size_t textBytes() const { return m_texts.size(); }
    /** The memory the list holds, room included. */
    size_t bytesHeld() const;

    bool operator==(const MediaAlbumList& other) const;
    bool operator!=(const MediaAlbumList& other) const { return !(*this == other); }

private:
    std::vector<char> m_texts;      // the key and then the name of each album in turn
    std::vector<uint32_t> m_starts; // where album i's key starts (2i) and its name (2i + 1)
};
