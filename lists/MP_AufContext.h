#pragma once
// The process's one metadata-database client connection and the playing
// modes that every new database-backed list starts with.

class MP_AufList;

class MP_AufContext {
public:
    /** Shuffle mode given to every new list: 0 off, 1 shuffle songs, 2 shuffle albums. */
    static int shuffle;
    /** The shuffle mode as the user set it; differs from shuffle while a launch forces shuffle. */
    static int shuffleSetting;
    /** Repeat mode given to every new list. */
    static bool isRepeat;
    /** The list that holds the connection's change subscription and result
     *  backup: the one built last, since the connection keeps one of each.
     *  Only that list releases them; null when none holds them. Not owned. */
    static const MP_AufList* subscriber;

    /** The shared database client handle. The first call opens the connection
     *  (metadataInitialize, metadataCreateClient); it stays open until the process ends. */
    static unsigned int getHandler();
    /** The profile item "MF_FlexNumber"/"StorageNumber" as a number; 0 when missing or not a number. */
    static int maxStorageLocation();

    ~MP_AufContext();

private:
    MP_AufContext();
    unsigned int m_handle;
    MP_AufContext(const MP_AufContext&) = delete;
    MP_AufContext& operator=(const MP_AufContext&) = delete;
};
