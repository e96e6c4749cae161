#include "host/platform/media/scanner/MediaTagReader.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <taglib/audioproperties.h>
#include <taglib/fileref.h>
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

} // namespace

std::optional<MediaTags> MediaTagReader::read(const QString& path, MediaKind kind)
{
    MediaTags tags;
    const TagLib::FileRef file(QFile::encodeName(path).constData(), true, TagLib::AudioProperties::Fast);
    if (file.isNull()) {
        // TagLib chooses its parser by the name's extension: a parser it has, refusing the
        // content, means a file that only carries a media name (an empty file being written).
        const TagLib::String extension(QFileInfo(path).suffix().toLower().toStdString());
        if (TagLib::FileRef::defaultFileExtensions().contains(extension))
            return std::nullopt;
        return tags;
    }
    // Some parsers (MP3's) take any bytes and find no sound in them: a text file called .mp3.
    // A video may hold no sound at all, so only songs are judged by it.
    if (kind == MediaKind::Audio && (!file.audioProperties() || file.audioProperties()->sampleRate() <= 0))
        return std::nullopt;
    if (!file.tag())
        return tags;
    const TagLib::Tag* tag = file.tag();
    tags.title = toQString(tag->title());
    tags.artist = toQString(tag->artist());
    tags.album = toQString(tag->album());
    tags.genre = toQString(tag->genre());
    tags.track = int(tag->track());
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
