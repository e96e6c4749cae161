#pragma once
// What tells a file from another one put under the same name: its device and
// inode numbers, its size and its modification time, as stat() reads them.
// A file renamed or copied over the old one, or written to, has another stamp.

#include <QString>

#include <cstdint>

class MP_FileStamp {
public:
    /** The stamp of the regular file at @p path as it is now; an empty stamp
     *  when there is none (no such file, or not a regular file). */
    static MP_FileStamp of(const QString& path);

    bool isEmpty() const { return !m_exists; }
    /** Whether both stamps are of one and the same unchanged file; never for an empty stamp. */
    bool isSameFileAs(const MP_FileStamp& other) const
    {
        return m_exists && other.m_exists && m_device == other.m_device && m_inode == other.m_inode
               && m_size == other.m_size && m_modifiedSeconds == other.m_modifiedSeconds
               && m_modifiedNanoseconds == other.m_modifiedNanoseconds;
    }

private:
    bool m_exists = false;
    std::uint64_t m_device = 0;
    std::uint64_t m_inode = 0;
    std::int64_t m_size = 0;
    std::int64_t m_modifiedSeconds = 0;
    std::int64_t m_modifiedNanoseconds = 0;
};
