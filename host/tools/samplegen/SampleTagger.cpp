#include "SampleTagger.h"

#include "SampleCatalogue.h"

#include <QString>

#include <taglib/id3v2tag.h>
#include <taglib/tbytevectorstream.h>
#include <taglib/tpropertymap.h>
#include <taglib/wavfile.h>

namespace {

TagLib::String toTagLib(const QString& text)
{
    return TagLib::String(text.toUtf8().constData(), TagLib::String::UTF8);
}

TagLib::PropertyMap propertiesOf(const SampleSong& song)
{
    // The property map rather than the Tag setters: it is the one interface
    // that also reaches the composer and a full date, and TagLib maps each key
    // to its standard frame (TIT2, TPE1, TALB, TCON, TCOM, TRCK, TDRC).
    TagLib::PropertyMap properties;
    properties.insert("TITLE", toTagLib(song.title));
    properties.insert("ARTIST", toTagLib(song.artist));
    properties.insert("ALBUM", toTagLib(song.album));
    properties.insert("GENRE", toTagLib(song.genre));
    properties.insert("COMPOSER", toTagLib(song.composer));
    properties.insert("TRACKNUMBER", TagLib::String::number(song.track));
    properties.insert("DATE", toTagLib(song.date));
    return properties;
}

}  // namespace

QByteArray SampleTagger::tagged(const QByteArray& wav, const SampleSong& song)
{
    TagLib::ByteVectorStream stream(TagLib::ByteVector(wav.constData(), uint(wav.size())));
    TagLib::RIFF::WAV::File file(&stream, false);
    if (!file.isValid())
        return QByteArray();
    file.ID3v2Tag()->setProperties(propertiesOf(song));
    // Only the ID3v2 tag: a second (RIFF INFO) tag would give readers two
    // sources to disagree about.
    if (!file.save(TagLib::RIFF::WAV::File::ID3v2, TagLib::File::StripOthers, TagLib::ID3v2::v4))
        return QByteArray();
    const TagLib::ByteVector* bytes = stream.data();
    return QByteArray(bytes->data(), int(bytes->size()));
}
