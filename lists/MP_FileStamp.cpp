#include "lists/MP_FileStamp.h"

#include <QFile>

#include <sys/stat.h>

MP_FileStamp MP_FileStamp::of(const QString& path)
{
    MP_FileStamp stamp;
    struct stat status {};
    if (path.isEmpty() || ::stat(QFile::encodeName(path).constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return stamp;
    stamp.m_exists = true;
    stamp.m_device = std::uint64_t(status.st_dev);
    stamp.m_inode = std::uint64_t(status.st_ino);
    stamp.m_size = std::int64_t(status.st_size);
    stamp.m_modifiedSeconds = std::int64_t(status.st_mtim.tv_sec);
    stamp.m_modifiedNanoseconds = std::int64_t(status.st_mtim.tv_nsec);
    return stamp;
}
