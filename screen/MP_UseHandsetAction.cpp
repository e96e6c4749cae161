#include "screen/MP_UseHandsetAction.h"

#include "platform/BT_AudioEngine.h"
#include "platform/TraceLog.h"

MP_DEFINE_TRACE(UseHandsetTrace, "MP_UseHandsetAction")

MP_UseHandsetAction::MP_UseHandsetAction(int index, QString text) : MP_SlotAction(index, std::move(text)) {}

MP_UseHandsetAction::~MP_UseHandsetAction() = default;

void MP_UseHandsetAction::onUpdate()
{
    const BT_AudioEngine* audio = BT_AudioEngine::instance();
    const bool linked = audio->isBluetoothStereoConnected() || audio->isBluetoothMonoConnected();
    setHided(!audio->isBluetoothPowerOn() || !linked);
}

void MP_UseHandsetAction::onExecute()
{
    UseHandsetTrace(3, "MP_UseHandsetAction::onExecute\n");
    BT_AudioEngine::instance()->detachAudioAccy(0);
}
