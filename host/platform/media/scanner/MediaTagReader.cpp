#include "host/platform/media/scanner/MediaTagReader.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <climits>

#include <taglib/audioproperties.h>
#include <taglib/fileref.h>
#include <taglib/mpegfile.h>
#include <taglib/tag.h>
#include <taglib/tpropertymap.h>

namespace {

QString toQString(const TagLib::String& text)
{
    return QString::fromUtf8(text.toCString(true)).trimmed();
}

QString firstValue(const TagLib::PropertyMap& properties, const char* key)
{
    const auto found = properties.find(key);
    if (found == properties.end() || found->second.isEmpty())
        return QString();
    return toQString(found->second.front());
}

// Every audio and video format begins with binary bytes (sizes, frame headers) within
// its first 128: a file with none there, or with nothing at all, is text or is still
// being written, whatever its name says. (TagLib's WAV reader, for one, takes text.)
bool isTextOrEmpty(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;   // the scanner reports what it cannot read
    const QByteArray start = file.read(128);
    return std::none_of(start.cbegin(), start.cend(), [](char byte) {
        const auto value = static_cast<unsigned char>(byte);
        return value < 32 && value != '\t' && value != '\n' && value != '\r';
    });
}

} // namespace

std::optional<MediaTags> MediaTagReader::read(const QString& path)
{
    if (isTextOrEmpty(path))
        return std::nullopt;
    MediaTags tags;
    const TagLib::FileRef file(QFile::encodeName(path).constData(), true, TagLib::AudioProperties::Fast);
    if (file.isNull()) {
        // TagLib has a reader for the name's kind (and has looked at the content for
        // another): none took the content.
        const TagLib::String extension(QFileInfo(path).suffix().toLower().toStdString());
        if (TagLib::FileRef::defaultFileExtensions().contains(extension))
            return std::nullopt;
        return tags;
    }
    // MP3's reader takes any bytes, and then finds no frame of sound in them. Other readers
    // may not know a playable file's sample rate (a mu-law WAV, Opus in MP4): the rate is no
    // test for them.
    const bool isMpeg = dynamic_cast<const TagLib::MPEG::File*>(file.file()) != nullptr;
    if (isMpeg && (!file.audioProperties() || file.audioProperties()->sampleRate() <= 0))
        return std::nullopt;
    if (!file.tag())
        return tags;
    const TagLib::Tag* tag = file.tag();
    tags.title = toQString(tag->title());
    tags.artist = toQString(tag->artist());
    tags.album = toQString(tag->album());
    tags.genre = toQString(tag->genre());
    // TagLib hands a track tag's number over unsigned: "-5" or a number past int's
    // range would come out negative, and sort before every real track. None is none.
    tags.track = tag->track() <= unsigned(INT_MAX) ? int(tag->track()) : 0;
    // The composer and a full date are only reachable through the property map.
    const TagLib::PropertyMap properties = file.file()->properties();
    tags.composer = firstValue(properties, "COMPOSER");
    tags.date = normalizedDate(firstValue(properties, "DATE"));
    if (tags.date.isEmpty() && tag->year() > 0)
        tags.date = normalizedDate(QString::number(tag->year()));
    return tags;
}

QString MediaTagReader::normalizedDate(const QString& tagDate)
{
    static const QRegularExpression pattern(QStringLiteral("^(\\d{4})(?:-(\\d{2})(?:-(\\d{2}))?)?"));
    const QRegularExpressionMatch match = pattern.match(tagDate.trimmed());
    return match.hasMatch() ? match.captured(0) : QString();
}
