#pragma once
// A dynamic menu action that is also a Qt object: choosing its item calls
// its onExecute() slot. The QObject part comes first, so a pointer to the
// MP_ActionBase part differs from one to the whole action; the screen
// client's registry keeps the MP_ActionBase part and casts back when it
// connects the item.

#include <QObject>
#include <QString>

#include "screen/MP_ActionBase.h"

class MP_SlotAction : public QObject, public MP_ActionBase {
    Q_OBJECT
public:
    /** An action for item @p index with the translated @p text, without a parent. */
    MP_SlotAction(int index, QString text);
    ~MP_SlotAction() override;

public Q_SLOTS:
    /** The item's command. */
    virtual void onExecute() = 0;

private:
    Q_DISABLE_COPY(MP_SlotAction)
};
