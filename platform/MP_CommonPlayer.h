#pragma once
// The playback engine as the library sees it. The engine lives in its own
// shared library (libmp_commonplayer.so) and is made and released only
// through MP_CreateCommonPlayer / MP_DestroyCommonPlayer.

#include <QByteArray>
#include <QObject>
#include <QString>

#include <memory>

#include "platform/MP_PlayerTypes.h"

class MP_ListInterface;
class MP_ListListener;
class MP_PlayerListener;
class VmKbMainWidget;

/**
 * Control of the current playback, returned by MP_CommonPlayer::getPlayerControl().
 * The engine owns it; nobody deletes it through this interface.
 */
class MP_PlayerControl {
public:
    /** Toggles between playing and paused. */
    virtual void playPause() = 0;
    /** Goes to the next item of the list. */
    virtual void next() = 0;
    /** Goes to the previous item of the list. */
    virtual void previous() = 0;
    /** Starts playing the list's current item (or the single file). */
    virtual void play() = 0;
    /** Pauses; does nothing unless playing. */
    virtual void pause() = 0;
    /** Stops and rewinds to the start of the current item. */
    virtual void stop() = 0;
    /** Moves the position by a signed offset (milliseconds) from the current one. */
    virtual void seek(int offset) = 0;
    /** A seek gesture ended (key released). */
    virtual void seekFinished() = 0;
    /** The current state. */
    virtual MP_PLAYER_STATE getState() = 0;
    /** Display name of the playing content (title, else clean file name). */
    virtual QString getContentName() = 0;
    /** Fills a technical description and the message shown to the user of the last error. */
    virtual void getErrorInfo(QString& detail, QString& message) = 0;
    virtual void setMute(bool mute) = 0;
    virtual void setVolume(int level) = 0;
    /** Makes the engine report its state, time and meta information again to @p listener. */
    virtual void requestUpdate(MP_PlayerListener* listener) = 0;

protected:
    ~MP_PlayerControl() = default;
};

/**
 * The playback engine. Reports to every registered listener, in registration
 * order, on the event-loop thread.
 */
class MP_CommonPlayer : public QObject {
    Q_OBJECT
public:
    /** Plays a single file without a list. */
    virtual void setFile(const QString& path) = 0;
    /** Gives the engine a list to walk (not owned); null clears it. */
    virtual void setPlayList(MP_ListInterface* list) = 0;
    /** Brings the player screen to the front. */
    virtual void showPlayer() = 0;
    /** Closes (hides) the player screen; playback goes on. */
    virtual void closePlayerWindow() = 0;
    /** The flip was closed; nonzero means the engine dealt with it. */
    virtual int flipClosed() = 0;
    /** Starts playing; true asks for slide-show playback. */
    virtual void autoPlay(bool slideShow) = 0;
    /** The list's current item changed: play the new current item. */
    virtual void notifyCurrentChanged() = 0;
    /** The player's main widget (soft keys and menus hang on it). */
    virtual VmKbMainWidget* getMainWidget() = 0;
    virtual void setShuffleRepeat(bool shuffle, bool repeat) = 0;
    virtual MP_CONTENT_TYPE getContentType() = 0;
    /** Whether the player screen is shown at present. */
    virtual bool isPlayerShown() = 0;
    /** true = fitted video size, false = original size. */
    virtual void setNormalSize(bool normal) = 0;
    /** Full path of the media being played; a null string when there is none. */
    virtual QString getCurrentPath() = 0;
    /** The control of the current playback; null when there is none. */
    virtual MP_PlayerControl* getPlayerControl() = 0;
    /** The list being played; null when there is none. */
    virtual MP_ListInterface* getCurrentList() = 0;
    /** Medium of the current media (MP_MEDIUM_TYPE values). */
    virtual int getMediumType() = 0;
    virtual void addListListener(MP_ListListener* listener) = 0;
    virtual void removeListListener(MP_ListListener* listener) = 0;
    virtual void addPlayerListener(MP_PlayerListener* listener) = 0;
    virtual void removePlayerListener(MP_PlayerListener* listener) = 0;

Q_SIGNALS:
    /** The content type of the current media became known or changed. */
    void signalContentTypeChanged(MP_CONTENT_TYPE type);
    /** The clear key was pressed on the player screen. */
    void clearKeyClicked();
    /** A setup key (shuffle, repeat, ...) was pressed or released on the player screen. */
    void SetupKeyEvent(int key, bool pressed);

protected:
    MP_CommonPlayer() = default;
    ~MP_CommonPlayer() override = default;
    friend void MP_DestroyCommonPlayer(MP_CommonPlayer*);
};

/** Creates an engine. @p playerFlag is the engine's own business (slide show / captured video). */
MP_CommonPlayer* MP_CreateCommonPlayer(bool playerFlag, MP_LAUNCH_TYPE type);
/** Releases an engine made by MP_CreateCommonPlayer; null is ignored. */
void MP_DestroyCommonPlayer(MP_CommonPlayer* player);

/** The deleter of an owning pointer to an engine: the library that made it frees it. */
struct MP_CommonPlayerRelease {
    void operator()(MP_CommonPlayer* player) const { MP_DestroyCommonPlayer(player); }
};
using MP_CommonPlayerPtr = std::unique_ptr<MP_CommonPlayer, MP_CommonPlayerRelease>;
