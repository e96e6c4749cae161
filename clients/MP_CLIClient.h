#pragma once
// The player on the external display of a flip phone. The main window makes
// the client while the flip is closed and deletes it when the flip opens.
// It holds the display's session for its whole life, tells the display what
// the engine reports, and turns the display's commands into engine commands.
// The volume level lives in the settings store ("MediaControlItem" /
// "VolumeLevel", 0 meaning muted), where the display's volume and mute
// commands leave it for the next session.

#include <memory>

#include "clients/MP_AbstractClient.h"
#include "platform/CLI_MediaPlayerClient.h"

class MP_CLIClient : public MP_AbstractClient {
    Q_OBJECT
public:
    /** Opens the display's session and shows the stored volume; when the
     *  engine plays a list with a current entry, also its file name, and asks
     *  the engine to report state, time and meta information again at once. */
    explicit MP_CLIClient(MP_CommonPlayer* player);
    /** Ends the display's session. */
    ~MP_CLIClient() override;

    // MP_PlayerListener
    void updateState(MP_PLAYER_STATE state) override;
    void updateTime(int elapsed, int total) override;
    void updateBuffering(int percent) override;
    void updateDownloadProgress(int progress, int value) override;
    void updateDownloadComplete() override;
    void updateMetaInfo(const QString& title, const QString& artist, const QString& album, QByteArray data,
                        bool canSeek) override;
    void updateConnectionStatus(int status) override;
    // MP_ListListener
    /** Shows the file name and medium of @p list's current entry; a null list is ignored. */
    void updateListInfo(MP_ListInterface* list) override;

Q_SIGNALS:
    /** The user left the player from the display. */
    void quitApp();

private Q_SLOTS:
    void onSetMuteSignal(bool mute);
    void onSetVolumeSignal(UINT8 level);

private:
    void connectDisplayCommands();
    void showStoredVolume();
    void refreshFromEngine();
    void storeVolumeLevel(int level);

    std::unique_ptr<CLI::MediaPlayerClient> m_display;
    /** The level that switching mute off stores again: the last nonzero
     *  level seen, the default until there is one. */
    int m_unmutedLevel;

    Q_DISABLE_COPY(MP_CLIClient)
};
