#pragma once
// The file manager's view of the phone's storage.

#include <QString>

class STUFF_Global {
public:
    static STUFF_Global* instance();
    /** Whether a memory card is in; @p refresh asks the storage again rather than a cached answer. */
    static bool hasMMCSDCard(bool refresh);
    /** Whether @p path may be set as a ringtone (a sound file small enough, not protected). */
    bool canAsRingTone(const QString& path) const;
};

/** The phone's fixed folders. */
class MYSTUFF_FixedFolder {
public:
    /** Whether @p folder is a folder of preloaded content, which the user may not change. */
    static bool isPreloadFolder(const QString& folder);
};
