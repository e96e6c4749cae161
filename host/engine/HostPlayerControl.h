#pragma once
// The playback control of the host engine. Every call is written to the
// journal as {"kind":"control","call":<operation>,"args":[...]} and handed
// to the engine; the queries getState, getContentName and getErrorInfo only
// answer and are not journaled. requestUpdate journals its listener as
// "listener" (or null).

#include "platform/MP_CommonPlayer.h"

class HostEngine;

class HostPlayerControl final : public MP_PlayerControl {
public:
    /** The control of @p engine, which owns it. */
    explicit HostPlayerControl(HostEngine& engine);
    HostPlayerControl(const HostPlayerControl&) = delete;
    HostPlayerControl& operator=(const HostPlayerControl&) = delete;
    ~HostPlayerControl() = default;

    /** Pauses when playing, otherwise plays. */
    void playPause() override;
    /** With a list that has a next item: steps to it, keeping on playing if it was. */
    void next() override;
    /** From 3 s into the item restarts it; before that steps back when the list can. */
    void previous() override;
    /** Resumes, or starts the list's current item (or the file) from its beginning. */
    void play() override;
    void pause() override;
    /** State 5 at position 0. */
    void stop() override;
    /** Moves the position by @p offset ms, kept within 0..duration; streams cannot seek. */
    void seek(int offset) override;
    void seekFinished() override;
    MP_PLAYER_STATE getState() override;
    /** The title of the current media (its file name when it has none); empty when none. */
    QString getContentName() override;
    /** After a failed load: ("file not found", "<name> cannot be played."); else empty. */
    void getErrorInfo(QString& detail, QString& message) override;
    /** Mutes or unmutes what the engine's output plays. */
    void setMute(bool mute) override;
    /** The output's volume: 0 silent, HostEngineOutput::kFullVolumeLevel (10) and above full. */
    void setVolume(int level) override;
    /** Reports meta information, time and state again, to @p listener alone. */
    void requestUpdate(MP_PlayerListener* listener) override;

    bool isMuted() const { return m_muted; }
    /** The last level set; 0 before any. */
    int volume() const { return m_volume; }
    /** Whether a level was set; until then the output plays at full volume. */
    bool volumeSet() const { return m_volumeSet; }

private:
    HostEngine& m_engine;
    bool m_muted = false;
    int m_volume = 0;
    bool m_volumeSet = false;
};
