#pragma once
// The file manager's view of the phone's storage.

#include <QString>

class STUFF_Global {
public:
    /** The largest sound file (in bytes) that may become a ringtone: 1 MiB. */
    static constexpr qint64 kMaxRingtoneBytes = 1024 * 1024;

    static STUFF_Global* instance();
    /** Whether a memory card is in; @p refresh asks the storage again rather than a cached answer. */
    static bool hasMMCSDCard(bool refresh);
    /** The memory card's folder, where files sent to the card go. */
    static QString getDefaultMMCSDPartition();
    /** The name the user sees for @p path: the file name after the last "/". */
    QString getShortName(const QString& path) const;
    /** Whether @p path may be set as a ringtone: a sound file of the media
     *  database that exists and holds at most kMaxRingtoneBytes. */
    bool canAsRingTone(const QString& path) const;
    /** The name under which the phone shows the file @p path to the user:
     *  its file name, without the folders. */
    static QString getDisplayPathName(const QString& path);
};

/** The phone's fixed folders. */
class MYSTUFF_FixedFolder {
public:
    /** Whether @p folder is a folder of preloaded content, which the user may
     *  not change: the preload folder itself or a folder below it. */
    static bool isPreloadFolder(const QString& folder);
    /** Where preloaded content lies. */
    static QString preloadPath();
};
