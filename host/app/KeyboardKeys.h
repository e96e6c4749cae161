#pragma once
// The keyboard as the phone's keys, for a person at a display. The one place
// where keyboard keys become phone keys:
//
//   Escape            the end key (a return-to-idle request, reason -5000)
//   Backspace         the player screen's clear key (the engine's clearKeyClicked)
//   S                 setup key 0x4002, shuffle  (the engine's SetupKeyEvent, down and up)
//   R                 setup key 0x4003, repeat
//   T                 setup key 0x4006, toggle (leave for the video recorder)
//   J                 the jump key 0x1048 on the key-event channel
//   Media Play/Pause, Play, Pause   the headset's play/pause key 0x1050
//   Media Next        the headset's next key 0x1055
//   Media Previous    the headset's previous key 0x1056
//   Left, held        the headset's seek-back key 0x1053
//   Right, held       the headset's seek-forward key 0x1054
//   (F1 and F2, the soft keys, are the player screen's own.)
//
// Keys on the key-event channel go as "keyMsg(int,int)" with type 1 when the
// key goes down and 2 when it comes up. A held key is one press and one
// release: the keyboard's own repeats are dropped, as the phone's clients
// repeat by themselves. Only keys typed into the player screen count, so a
// dialog keeps its Escape.

#include <QObject>

#include <optional>

class PlayerSession;
class QKeyEvent;

class KeyboardKeys : public QObject {
    Q_OBJECT
public:
    /** What a keyboard key stands for on the phone. */
    struct PhoneKey {
        enum class Kind { EndKey, ClearKey, SetupKey, ChannelKey };
        Kind kind;
        int code;  // the setup or channel key code; 0 for the end and clear keys
    };

    /** Listens to the application's keys from now on. */
    explicit KeyboardKeys(PlayerSession& session);
    ~KeyboardKeys() override;

    /** The phone key that the keyboard's @p qtKey stands for, if any. */
    static std::optional<PhoneKey> phoneKeyOf(int qtKey);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /** True when @p watched is the player screen or lies on it. */
    static bool isOnPlayerScreen(QObject* watched);
    void press(const PhoneKey& key, bool down);

    PlayerSession& m_session;
};
