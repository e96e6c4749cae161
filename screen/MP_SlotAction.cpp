#include "screen/MP_SlotAction.h"

MP_SlotAction::MP_SlotAction(int index, QString text) : QObject(nullptr), MP_ActionBase(index, text)
{
}

MP_SlotAction::~MP_SlotAction() = default;
