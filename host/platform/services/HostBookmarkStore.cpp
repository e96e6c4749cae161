#include "host/platform/services/HostBookmarkStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSet>

#include <algorithm>
#include <climits>

#include "host/platform/HostDataDir.h"
#include "host/platform/services/HostNewFile.h"

namespace {

const QByteArray kTitleKey = "TITLE=";
const QByteArray kUrlKey = "URL=";

QByteArray oneLine(const QString& text)
{
    // A line break in a title would start a line of its own when read back.
    QString line = text;
    line.replace(QLatin1Char('\n'), QLatin1Char(' ')).replace(QLatin1Char('\r'), QLatin1Char(' '));
    return line.toUtf8();
}

} // namespace

QString HostBookmarkStore::folder()
{
    return HostDataDir::file(QStringLiteral("bookmarks"));
}

int HostBookmarkStore::numberOf(const QString& fileName)
{
    if (!fileName.startsWith(QLatin1String("bookmark-")) || !fileName.endsWith(QLatin1String(".url")))
        return 0;
    bool isNumber = false;
    const int number = fileName.mid(9, fileName.size() - 13).toInt(&isNumber);
    return isNumber && number > 0 ? number : 0;
}

QString HostBookmarkStore::add(const QString& title, const QString& url)
{
    const QByteArray bytes = format(title, url);
    // Refused rather than stored unreadable.
    if (url.isEmpty() || bytes.size() > kMaxFileBytes)
        return QString();
    const QString dir = folder();
    if (!QDir().mkpath(dir) || !HostDataDir::isWritable(dir)) {
        HostDataDir::reportReadOnly(dir);
        return QString();
    }
    // Another program may add a bookmark at the same time: a name taken
    // meanwhile is never replaced, the next free one is tried.
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
        const QString identity = dir + QStringLiteral("/bookmark-%1.url").arg(nextNumber(dir));
        switch (HostNewFile::write(bytes, identity)) {
        case HostNewFile::Result::Made:
            return identity;
        case HostNewFile::Result::NameTaken:
            continue;
        case HostNewFile::Result::Failed:
            return QString();
        }
    }
    return QString();
}

int HostBookmarkStore::nextNumber(const QString& dir)
{
    QSet<int> taken;
    int last = 0;
    for (const QString& name : QDir(dir).entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot)) {
        const int number = numberOf(name);
        taken.insert(number);
        last = std::max(last, number);
    }
    if (last < INT_MAX)
        return last + 1;
    // A file numbered as high as a number goes (put there by hand): counting
    // on would overflow, so the lowest free number is taken instead, and the
    // new bookmark is listed before the older ones.
    int free = 1;
    while (taken.contains(free))
        ++free;
    return free;
}

std::optional<HostBookmark> HostBookmarkStore::read(const QString& identity)
{
    QFile file(identity);
    if (!file.open(QIODevice::ReadOnly) || file.size() > kMaxFileBytes)
        return std::nullopt;
    std::optional<HostBookmark> bookmark = parse(file.read(kMaxFileBytes + 1));
    if (bookmark)
        bookmark->identity = identity;
    return bookmark;
}

bool HostBookmarkStore::isStoredHere(const QString& identity)
{
    // An identity is handed in from outside: only this store's own files are
    // ever rewritten, never a file elsewhere that happens to parse, and never
    // through a link to one.
    const QFileInfo file(identity);
    return file.isFile() && !file.isSymLink() && numberOf(file.fileName()) > 0
        && file.canonicalPath() == QFileInfo(folder()).canonicalFilePath();
}

HostBookmarkStore::UpdateResult HostBookmarkStore::update(const QString& identity, const QString& title,
                                                          const QString& url)
{
    if (!isStoredHere(identity) || !read(identity))
        return UpdateResult::NotABookmark;
    // A blank address would be stored but never open anything.
    if (url.trimmed().isEmpty())
        return UpdateResult::NoAddress;
    const QByteArray bytes = format(title, url);
    if (bytes.size() > kMaxFileBytes)
        return UpdateResult::TooLong;
    const QString dir = QFileInfo(identity).path();
    if (!HostDataDir::isWritable(dir)) {
        HostDataDir::reportReadOnly(dir);
        return UpdateResult::NotWritten;
    }
    // QSaveFile writes a new file beside the old one, flushes it to the disk
    // and renames it over the old one; until commit() succeeds the old file is
    // untouched, and a failed write removes the new one.
    QSaveFile file(identity);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        return UpdateResult::NotWritten;
    return UpdateResult::Stored;
}

QList<HostBookmark> HostBookmarkStore::all()
{
    QList<std::pair<int, QString>> files;
    const QDir dir(folder());
    for (const QString& name : dir.entryList(QDir::Files))
        if (const int number = numberOf(name))
            files.append({number, dir.filePath(name)});
    std::sort(files.begin(), files.end());
    QList<HostBookmark> bookmarks;
    for (const auto& file : files)
        if (std::optional<HostBookmark> bookmark = read(file.second))
            bookmarks.append(*bookmark);
    return bookmarks;
}

std::optional<HostBookmark> HostBookmarkStore::parse(const QByteArray& bytes)
{
    if (bytes.size() > kMaxFileBytes)
        return std::nullopt;
    HostBookmark bookmark;
    QByteArray text = bytes;
    // Files edited on other systems end lines with CR LF.
    text.replace('\r', QByteArray());
    for (const QByteArray& line : text.split('\n')) {
        if (line.startsWith(kTitleKey))
            bookmark.title = QString::fromUtf8(line.mid(kTitleKey.size()));
        else if (line.startsWith(kUrlKey))
            bookmark.url = QString::fromUtf8(line.mid(kUrlKey.size()));
    }
    if (bookmark.url.isEmpty())
        return std::nullopt;
    return bookmark;
}

QByteArray HostBookmarkStore::format(const QString& title, const QString& url)
{
    return kTitleKey + oneLine(title.isEmpty() ? url : title) + '\n' + kUrlKey + oneLine(url) + '\n';
}
