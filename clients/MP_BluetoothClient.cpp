#include "clients/MP_BluetoothClient.h"

#include <QDataStream>

#include "platform/PhoneServices.h"
#include "platform/QCopChannel.h"
#include "platform/StreamEncoding.h"
#include "platform/TextResources.h"
#include "platform/TraceLog.h"
#include "platform/UTIL_RepeatTimer.h"
#include "screen/MP_MenuProperties.h"
#include "screen/MP_UseBluetoothAction.h"
#include "screen/MP_UseHandsetAction.h"
#include "screen/MP_WindowClient.h"

MP_DEFINE_TRACE(BluetoothClientTrace, "MP_BluetoothClient")

namespace {


enum KeyEventType { KeyPress = 1, KeyRelease = 2, KeyPressAndHold = 4 };

} // namespace

MP_BluetoothClient::MP_BluetoothClient(MP_CommonPlayer* player, MP_MainWindow* mainWindow,
                                       MP_WindowClient* windowClient, bool launchedByKey)
    : MP_AbstractClient(player),
      m_keyChannel(std::make_unique<QCopChannel>(UTIL_GetKeyEventChannel().toLatin1())),
      m_seekTimer(std::make_unique<UTIL_RepeatTimer>()),
      m_launchedByKey(launchedByKey),
      m_mainWindow(mainWindow),
      m_windowClient(windowClient),
      m_useBluetoothAction(std::make_unique<MP_UseBluetoothAction>(
          // Both route items have the same id on every screen: one action
          // each serves them all.
          screenTable[0].useBTIndex, MP_tr("TXT_RID_OPTION_USE_BLUETOOTH", "Use Bluetooth"))),
      m_useHandsetAction(std::make_unique<MP_UseHandsetAction>(
          screenTable[0].useHSIndex, MP_tr("TXT_RID_OPTION_USE_HANDSET", "Use Handset")))
{
    connect(m_keyChannel.get(), SIGNAL(received(const QCString&, const QByteArray&)), this,
            SLOT(handleBtKeyEvent(const QCString&, const QByteArray&)));
    m_windowClient->addDynamicMenuItem(m_useBluetoothAction.get());
    m_windowClient->addDynamicMenuItem(m_useHandsetAction.get());
}

MP_BluetoothClient::~MP_BluetoothClient()
{
    m_windowClient->removeDynamicMenuItem(m_useBluetoothAction.get());
    m_windowClient->removeDynamicMenuItem(m_useHandsetAction.get());
    m_useHandsetAction.reset();
    m_useBluetoothAction.reset();
    m_seekTimer.reset();
    m_keyChannel.reset();
}

bool MP_BluetoothClient::isSeeking() const
{
    return m_seekTimer->isActive();
}

void MP_BluetoothClient::handleBtKeyEvent(const QCString& msg, const QByteArray& data)
{
    BluetoothClientTrace(3, "enter MP_BluetoothClient::handleBtKeyEvent\n");
    if (UTIL_GetPhoneLockStatus() != 0) {
        BluetoothClientTrace(3, "phone lock!\n");
        stopTimer();
        return;
    }
    if (msg == "keyMsg(int,int)") {
        QDataStream in(data);
        MP_SetPayloadFormat(in);
        qint32 key = 0;
        qint32 type = 0;
        in >> key >> type;
        // A message cut short names no key event: acting on a guessed key or
        // type could start a seek that no release ever stops.
        if (in.status() != QDataStream::Ok) {
            BluetoothClientTrace(3, "key message of %d bytes without key and type, ignored\n", int(data.size()));
        } else {
            BluetoothClientTrace(3, "key=%d, type=%d\n", key, type);
            if (type == KeyPress)
                handleKeyPressEvent(key);
            else if (type == KeyRelease)
                handleKeyReleaseEvent(key);
            else if (type == KeyPressAndHold)
                handleKeyPressAndHoldEvent(key);
        }
    }
    BluetoothClientTrace(3, "exit MP_BluetoothClient::handleBtKeyEvent\n");
}

void MP_BluetoothClient::handleKeyPressEvent(int key)
{
    // Launched by a key, the client ignores every release but play and pause,
    // so a seek started now would never be stopped by its key: the press is
    // ignored as well.
    if (m_launchedByKey)
        return;
    if (key == kRewindKey)
        startSeeking(SLOT(onBtPrevKeyTimeOut()));
    else if (key == kForwardKey)
        startSeeking(SLOT(onBtNextKeyTimeOut()));
}

void MP_BluetoothClient::startSeeking(const char* tickSlot)
{
    // A second press without its release (a lost message, or both seek keys)
    // would otherwise add a second receiver and seek twice per tick: the
    // latest press wins.
    stopTimer();
    connect(m_seekTimer.get(), SIGNAL(timeout()), this, tickSlot);
    m_seekTimer->start(UTIL_GetTimeBetweenKeyRepeat());
}

void MP_BluetoothClient::handleKeyPressAndHoldEvent(int key)
{
    // The timer started by the press already repeats the seek.
    Q_UNUSED(key);
}

void MP_BluetoothClient::handleKeyReleaseEvent(int key)
{
    BluetoothClientTrace(3, "enter MP_BluetoothClient::handleKeyReleaseEvent, key=%d\n", key);
    if (m_launchedByKey) {
        BluetoothClientTrace(3, "MP is launched by BT avrcp keys.\n");
        if (key == kPlayKey || key == kPauseKey) {
            MP_AbstractClient::onPlayPause();
            m_launchedByKey = false;
        }
        return;
    }
    releaseInNormalMode(key);
    BluetoothClientTrace(3, "exit MP_BluetoothClient::handleKeyReleaseEvent\n");
}

void MP_BluetoothClient::releaseInNormalMode(int key)
{
    switch (key) {
    case kPlayKey:
    case kPauseKey:
        onPlayPause();
        break;
    case kRewindKey:
    case kForwardKey:
        stopTimer();
        onSeekFinished();
        break;
    case kNextKey:
        onNext();
        break;
    case kPreviousKey:
        onPrevious();
        break;
    default:  // the stop key and codes that are no headset key
        break;
    }
}

void MP_BluetoothClient::onBtNextKeyTimeOut()
{
    onSeek(kSeekStep);
}

void MP_BluetoothClient::onBtPrevKeyTimeOut()
{
    onSeek(-kSeekStep);
}

void MP_BluetoothClient::stopTimer()
{
    m_seekTimer->stop();
    disconnect(m_seekTimer.get(), SIGNAL(timeout()), nullptr, nullptr);
}
