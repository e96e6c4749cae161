#include "bench/SyntheticLibrary.h"

#include <QRandomGenerator>
#include <QString>

#include <memory>

#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/database/SqliteTransaction.h"

namespace {
QString wordAt(quint32 n)
{
    static const char* const words[] = {"Aurora", "Árós", "harbour", "Zenith", "lantern", "Öresund", "night",
                                        "Élan", "river", "glass", "Ünder", "paper", "salt", "çarşı", "light",
                                        "stone", "Ímynd", "wind", "ember", "tide"};
    return QString::fromUtf8(words[n % (sizeof words / sizeof *words)]);
}
} // namespace

bool SyntheticLibrary::build(MediaDatabase& database, int songs)
{
    QRandomGenerator random(2024);
    const std::unique_ptr<SqliteTransaction> transaction = database.beginTransaction();
    for (int i = 0; i < songs; ++i) {
        const int album = i / kSongsPerAlbum;
        MediaRecord song;
        song.path = QStringLiteral("/music/artist%1/album%2/%3.mp3").arg(album % 2000).arg(album).arg(i);
        song.title = wordAt(random.generate()) + ' ' + wordAt(random.generate()) + ' ' + QString::number(i);
        song.artist = QStringLiteral("Artist %1").arg(album % 2000);
        song.album = wordAt(quint32(album)) + QStringLiteral(" %1").arg(album);
        song.genre = wordAt(quint32(album) / 7);
        song.track = i % kSongsPerAlbum + 1;
        song.date = QStringLiteral("%1-01-01").arg(1960 + album % 60);
        if (database.addMedia(song) == 0)
            return false;
    }
    return transaction->commit();
}
