#pragma once
// The key by which texts sort as a reader expects: accents and case folded
// away ("Árós" sorts beside "Aurora", not after "Zenith"). Keys are stored
// beside the texts at write time, so an ordered search still uses an index.

#include <QByteArray>
#include <QString>

class MediaSortKey {
public:
    /** The folded form of @p text as UTF-8: compatibility-decomposed, combining marks
     *  dropped, case folded. Keys compare bytewise. */
    static QByteArray of(const QString& text);
};
