#pragma once
// The folder under which the host platform keeps everything: settings,
// media database, profile, the memory-card folder. MP_DATA_DIR when set,
// else $XDG_DATA_HOME/mediaplayer-host (~/.local/share/mediaplayer-host).

#include <QString>

class HostDataDir {
public:
    /** The data folder, created when missing. Read anew at every call, so a test
     *  that sets MP_DATA_DIR gets a fresh folder. */
    static QString path();
    /** A path inside the data folder. */
    static QString file(const QString& name);
};
