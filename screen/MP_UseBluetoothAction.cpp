#include "screen/MP_UseBluetoothAction.h"

#include "platform/BT_AudioEngine.h"
#include "platform/TraceLog.h"

MP_DEFINE_TRACE(UseBluetoothTrace, "MP_UseBluetoothAction")

MP_UseBluetoothAction::MP_UseBluetoothAction(int index, QString text) : MP_SlotAction(index, std::move(text)) {}

MP_UseBluetoothAction::~MP_UseBluetoothAction() = default;

void MP_UseBluetoothAction::onUpdate()
{
    const BT_AudioEngine* audio = BT_AudioEngine::instance();
    const bool linked = audio->isBluetoothStereoConnected() || audio->isBluetoothMonoConnected();
    setHided(!audio->isBluetoothPowerOn() || linked);
}

void MP_UseBluetoothAction::onExecute()
{
    UseBluetoothTrace(3, "MP_UseBluetoothAction::onExecute\n");
    BT_AudioEngine::instance()->attachAudioAccy(0);
}
