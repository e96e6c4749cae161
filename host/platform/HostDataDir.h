#pragma once
// The folder under which the host platform keeps everything: settings,
// media database, profile, the memory-card folder. MP_DATA_DIR when set,
// else $XDG_DATA_HOME/mediaplayer-host (~/.local/share/mediaplayer-host).
//
// A data folder the host may not write (a read-only mount, another user's
// folder, or MP_DATA_READ_ONLY set) is used read-only: the player plays what
// is stored, and every write fails softly.

#include <QString>

class HostDataDir {
public:
    /** The data folder, created when missing. Read anew at every call, so a test
     *  that sets MP_DATA_DIR gets a fresh folder. */
    static QString path();
    /** A path inside the data folder. */
    static QString file(const QString& name);
    /** Whether the host may write @p path (a file or a folder): false when the
     *  system says no, and always when MP_DATA_READ_ONLY is set to anything but
     *  "0", which asks for the read-only behaviour where permissions would not
     *  give it (the superuser writes everywhere). */
    static bool isWritable(const QString& path);
    /** Says that nothing will be saved in @p folder, on standard error and in
     *  the trace; once per folder and process, as every service finds it out. */
    static void reportReadOnly(const QString& folder);
};
