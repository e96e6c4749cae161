#pragma once
// A Bluetooth headset's remote-control keys and the audio route. The keys
// reach the phone's key-event channel as "keyMsg(int,int)" (key code, event
// type: 1 press, 2 release, 4 press-and-hold; other types are ignored); the
// client turns their releases into play/pause, next and previous, and a held
// seek key into one seek of 5000 per key-repeat interval, ended by one
// seek-finished at the release. While the phone is locked every key message
// is dropped unread and a running seek stops.
//
// The client also lends the player's options menu its two audio-route
// entries, "Use Bluetooth" (1016) and "Use Handset" (1017), registered with
// the window client for the client's whole life. It reports nothing: no
// listener operation is overridden.

#include <QByteArray>

#include <memory>

#include "clients/MP_AbstractClient.h"
#include "platform/Qt2Compat.h"

class MP_MainWindow;
class MP_UseBluetoothAction;
class MP_UseHandsetAction;
class MP_WindowClient;
class QCopChannel;
class UTIL_RepeatTimer;

class MP_BluetoothClient : public MP_AbstractClient {
    Q_OBJECT
public:
    // The headset keys' codes.
    static const int kPlayKey = 0x1050;
    static const int kStopKey = 0x1051;
    static const int kPauseKey = 0x1052;
    static const int kRewindKey = 0x1053;
    static const int kForwardKey = 0x1054;
    static const int kNextKey = 0x1055;
    static const int kPreviousKey = 0x1056;
    static const int kSeekStep = 5000;

    /**
     * Registers with @p player, listens on the key-event channel and registers
     * both audio-route entries with @p windowClient, "Use Bluetooth" first.
     * None of the pointers is owned; @p windowClient must outlive the client.
     * With @p launchedByKey (the player was started by a headset key) the
     * client answers only the first play or pause release, with play/pause.
     */
    MP_BluetoothClient(MP_CommonPlayer* player, MP_MainWindow* mainWindow, MP_WindowClient* windowClient,
                       bool launchedByKey);
    /** Unregisters the entries ("Use Bluetooth" first) from the window client. */
    ~MP_BluetoothClient() override;

    bool isLaunchedByKey() const { return m_launchedByKey; }
    /** A seek key is held and its timer runs. */
    bool isSeeking() const;

private Q_SLOTS:
    void handleBtKeyEvent(const QCString& msg, const QByteArray& data);
    void onBtNextKeyTimeOut();
    void onBtPrevKeyTimeOut();

private:
    void handleKeyPressEvent(int key);
    void handleKeyReleaseEvent(int key);
    void handleKeyPressAndHoldEvent(int key);
    void releaseInNormalMode(int key);
    void startSeeking(const char* tickSlot);
    /** Stops the timer and disconnects every receiver of its timeout(). */
    void stopTimer();

    std::unique_ptr<QCopChannel> m_keyChannel;
    std::unique_ptr<UTIL_RepeatTimer> m_seekTimer;
    /** Set at construction from the launcher; cleared by the first play or pause release. */
    bool m_launchedByKey;
    MP_MainWindow* const m_mainWindow;      // not owned
    MP_WindowClient* const m_windowClient;  // not owned; outlives the client
    std::unique_ptr<MP_UseBluetoothAction> m_useBluetoothAction;
    std::unique_ptr<MP_UseHandsetAction> m_useHandsetAction;
    Q_DISABLE_COPY(MP_BluetoothClient)
};
