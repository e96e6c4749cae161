// A file the scanner finds under a media name (MediaTagReader): bytes that
// anything may have written, named like a song or a video.
//
// Input: one byte choosing the name's kind, then the file's bytes.
//
// Besides not crashing, the reader must keep its contract, checked here: an
// empty or text file is no media file, a track number is never negative, and
// a date is "yyyy", "yyyy-MM" or "yyyy-MM-dd", or empty.

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <iterator>

#include "fuzz/support/FuzzCheck.h"
#include "host/platform/media/scanner/MediaTagReader.h"

namespace {

const char* const kExtensions[] = {"mp3", "wav", "ogg", "flac", "m4a", "mp4", "wma", "3gp"};

bool isTextOrEmpty(const QByteArray& bytes)
{
    for (const char byte : bytes.left(128)) {
        const auto value = static_cast<unsigned char>(byte);
        if (value < 32 && value != '\t' && value != '\n' && value != '\r')
            return false;
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    static QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file.%1").arg(kExtensions[data[0] % std::size(kExtensions)]));
    const QByteArray bytes(reinterpret_cast<const char*>(data) + 1, qsizetype(size - 1));
    QFile file(path);
    fuzzCheck(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size());
    file.close();

    const std::optional<MediaTags> tags = MediaTagReader::read(path);
    if (isTextOrEmpty(bytes))
        fuzzCheck(!tags.has_value());
    if (!tags)
        return 0;
    fuzzCheck(tags->track >= 0);
    static const QRegularExpression date(QStringLiteral("^(\\d{4}(-\\d{2}(-\\d{2})?)?)?$"));
    fuzzCheck(date.match(tags->date).hasMatch());
    return 0;
}
