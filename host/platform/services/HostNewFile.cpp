#include "host/platform/services/HostNewFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const qint64 kChunkBytes = 64 * 1024;

// A temporary file beside @p target, open for writing. It is removed when it
// goes: after a failure, and after a link; after a rename it names nothing.
bool openBeside(const QString& target, QTemporaryFile& file)
{
    const QFileInfo info(target);
    file.setFileTemplate(info.dir().filePath(QStringLiteral(".%1.XXXXXX").arg(info.fileName())));
    if (!file.open())
        return false;
    // A temporary file is private to its owner; the new file is an ordinary one.
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    return true;
}

bool copyBytes(QFile& source, QFile& target, const HostNewFile::Progress& progress)
{
    const qint64 total = source.size();
    qint64 done = 0;
    while (!source.atEnd()) {
        const QByteArray chunk = source.read(kChunkBytes);
        if (chunk.isEmpty() || target.write(chunk) != chunk.size())
            return false;
        done += chunk.size();
        if (progress)
            progress(done, total);
    }
    return true;
}

// On the disk before the name is given, so that a crash never leaves the
// name on a file without its bytes.
bool finish(QFile& file)
{
    const bool isSynced = file.flush() && ::fdatasync(file.handle()) == 0;
    file.close();
    return isSynced;
}

} // namespace

HostNewFile::Result HostNewFile::copy(const QString& source, const QString& target, const Progress& progress)
{
    // Checked first so that a taken name costs no copy; checked again, the
    // check that counts, when the copy takes the name.
    if (isNameTaken(target))
        return Result::NameTaken;
    QFile input(source);
    QTemporaryFile output;
    if (!input.open(QIODevice::ReadOnly) || !openBeside(target, output))
        return Result::Failed;
    if (!copyBytes(input, output, progress) || !finish(output))
        return Result::Failed;
    return claimName(output.fileName(), target);
}

HostNewFile::Result HostNewFile::write(const QByteArray& bytes, const QString& target)
{
    if (isNameTaken(target))
        return Result::NameTaken;
    QTemporaryFile output;
    if (!openBeside(target, output) || output.write(bytes) != bytes.size() || !finish(output))
        return Result::Failed;
    return claimName(output.fileName(), target);
}

bool HostNewFile::isNameTaken(const QString& path)
{
    // lstat, unlike QFileInfo::exists, sees a link that points nowhere.
    struct stat status;
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 || errno != ENOENT;
}

HostNewFile::Result HostNewFile::claimName(const QString& temporary, const QString& target)
{
    const QByteArray from = QFile::encodeName(temporary);
    const QByteArray to = QFile::encodeName(target);
    // One step that fails when the name is held, where a check and a rename
    // would let another program's file be replaced in between.
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return Result::Made;
    if (errno == EEXIST)
        return Result::NameTaken;
    // A file system without that rename: a hard link is made only where no
    // name is; the temporary name goes with its object.
    if (errno != EINVAL && errno != ENOSYS)
        return Result::Failed;
    if (::link(from.constData(), to.constData()) == 0)
        return Result::Made;
    return errno == EEXIST ? Result::NameTaken : Result::Failed;
}
