#pragma once
// One builder for the media records that tests store:
//   database->addMedia(song("/m/a.mp3").title("A").album("X"));
// Fields left unset keep MediaRecord's defaults (audio, phone memory, no tags).

#include <QFileInfo>
#include <QString>

#include "host/platform/media/database/MediaRecord.h"

class SongBuilder {
public:
    explicit SongBuilder(const QString& path) { m_record.path = path; }

    SongBuilder& title(const QString& value) { m_record.title = value; return *this; }
    SongBuilder& artist(const QString& value) { m_record.artist = value; return *this; }
    SongBuilder& album(const QString& value) { m_record.album = value; return *this; }
    SongBuilder& genre(const QString& value) { m_record.genre = value; return *this; }
    SongBuilder& composer(const QString& value) { m_record.composer = value; return *this; }
    SongBuilder& track(int value) { m_record.track = value; return *this; }
    SongBuilder& date(const QString& value) { m_record.date = value; return *this; }
    SongBuilder& storage(int value) { m_record.storage = value; return *this; }
    SongBuilder& kind(MediaKind value) { m_record.kind = value; return *this; }
    SongBuilder& video() { return kind(MediaKind::Video); }
    SongBuilder& createdBy(int value) { m_record.createdBy = value; return *this; }
    /** The size and modification time the scanner stores for @p file as it is now. */
    SongBuilder& stampOf(const QFileInfo& file)
    {
        m_record.fileSize = file.size();
        m_record.fileModified = file.lastModified().toMSecsSinceEpoch();
        return *this;
    }

    operator const MediaRecord&() const { return m_record; }   // NOLINT: a builder stands for its record
    const MediaRecord& record() const { return m_record; }

private:
    MediaRecord m_record;
};

inline SongBuilder song(const QString& path) { return SongBuilder(path); }
