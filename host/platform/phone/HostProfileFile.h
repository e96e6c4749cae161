#pragma once
// The host phone's profile file, <data folder>/profile.ini: feature bits and
// profile items a person can edit. A small INI-like text, UTF-8:
//
//   # a comment (also ';'); blank lines are skipped
//   [FlexBits]
//   149 = on          # a feature bit by number (0..65535): on|off, 1|0, true|false
//   [MF_FlexNumber]
//   StorageNumber = 2 # any other section holds profile items as text
//
// A line that holds nothing of the kind (no '=', a bad bit number or value,
// an item before any section, an over-long line) is skipped with a warning
// naming its line number; the rest of the file still counts.

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

class HostProfileFile {
public:
    /** The most of the file that is read: a profile is a few lines. */
    static constexpr qint64 kMaxBytes = 64 * 1024;
    static constexpr int kMaxLineLength = 1024;

    /** What a file sets: bits by number, items by "section/key". */
    struct Content {
        QHash<int, bool> flexBits;
        QHash<QString, QString> items;
        QStringList warnings; // one per skipped line, "line N: why"
    };

    /** Reads @p text (up to kMaxBytes of it). */
    static Content parse(const QByteArray& text);
    /** Reads the file at @p path; empty content when it cannot be read. */
    static Content read(const QString& path);
    /** The text of a new profile holding @p defaults, with the format explained. */
    static QByteArray defaultText(const Content& defaults);
};
