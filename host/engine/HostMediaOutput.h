#pragma once
// The output that really plays: the current item is loaded into a
// QMediaPlayer (Qt Multimedia, on the GStreamer back end) with a
// QAudioOutput, and a video is drawn (HostVideoView) into the player screen's
// content area, or over the whole screen when it is not at normal size. The decoder's position,
// duration, end and errors go to the engine's listener. Without an audio
// device the decoder plays into nothing at real speed, and the trace says so
// once. Under a platform without a screen (offscreen, minimal) no video
// surface is made: the picture is decoded into nothing.
//
// While an item opens, a new item, an unload or a seek waits until the
// player says the item opened, failed or never came (see load()): the newest
// request is carried out then, and those it replaced never reach the player.

#include <QAudioOutput>
#include <QMediaPlayer>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <optional>

#include "host/engine/HostEngineOutput.h"
#include "host/engine/HostVideoView.h"

class HostEngineOutputListener;
class QWidget;

class HostMediaOutput final : public QObject, public HostEngineOutput {
    Q_OBJECT
public:
    /**
     * Tells @p listener (not owned; it outlives the output) what the decoder
     * does; draws videos into @p videoArea (not owned), whose layout, when it
     * is a box layout, takes the picture.
     */
    HostMediaOutput(HostEngineOutputListener& listener, QWidget& videoArea);
    ~HostMediaOutput() override;

    /** Keeps playing or holding: a new item continues as the last one did. */
    void load(const QString& path, MP_CONTENT_TYPE type) override;
    void unload() override;
    void setPlaying(bool playing) override;
    void setPosition(int position) override;
    void setVolume(int level, bool muted) override;
    void setNormalSize(bool normal) override;
    /** The decoder keeps its own time. */
    void manualTimePassed(int milliseconds) override;
    void clockModeChanged() override;
    const char* name() const override { return "media"; }

    /** Where videos are drawn; null before the first video. */
    const HostVideoView* videoView() const { return m_video.data(); }

private:
    // What the engine asked for while an item was opening.
    struct WaitingItem {
        QString path;  // empty: unload
        MP_CONTENT_TYPE type;
    };

    void open(const QString& path, MP_CONTENT_TYPE type);
    void close();
    /** The item being opened has opened, failed, or is given up: the waiting requests go ahead. */
    void openingEnded();
    void positionChanged(qint64 position);
    void mediaStatusChanged(QMediaPlayer::MediaStatus status);
    /** Whether the player says the current item ended, and it never began. */
    bool endedBeforeBeginning() const;
    void errorOccurred(QMediaPlayer::Error error, const QString& message);
    void showPicture(bool shown);
    void placePicture();
    static bool hasScreen();
    static void reportMissingAudioDevice();
    /** Says once in the trace how pictures reach the screen, and why (HostPicturePath). */
    static void reportPicturePath();

    HostEngineOutputListener& m_listener;
    QWidget& m_videoArea; // not owned: the player screen's content area
    // Made for the first video; a child of m_videoArea, or a window of its
    // own while full screen.
    QPointer<HostVideoView> m_video;
    // Before the audio output, whose making already looks for a sound server.
    const bool m_messagesRouted;
    // Before the audio output too, which puts its sink into its bin at once.
    const bool m_audioSinksSetUp;
    QAudioOutput m_audio;
    QMediaPlayer m_player;
    bool m_playing = false;
    bool m_normalSize = true;
    // Set by load() until the player says it has the new source: the end and
    // positions it still reports meanwhile belong to the item before.
    bool m_opening = false;
    // The current item was started again once after an end before it began
    // (see mediaStatusChanged()).
    bool m_restartedAfterEarlyEnd = false;
    std::optional<WaitingItem> m_waitingItem;
    // A seek for the item that opens, or for the waiting item once it has opened.
    std::optional<int> m_waitingPosition;
    // Gives up waiting for an item that never finishes opening (a stream
    // that does not answer), so that the next request is not held forever.
    QTimer m_openingWatch;
};
