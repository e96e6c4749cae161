// The engine library's factory: the only way the library makes and releases
// an engine.

#include "platform/MP_CommonPlayer.h"

#include <QJsonArray>

#include "host/engine/HostEngine.h"
#include "host/platform/HostJournal.h"

MP_CommonPlayer* MP_CreateCommonPlayer(bool playerFlag, MP_LAUNCH_TYPE type)
{
    HostJournal::call(QStringLiteral("engine"), QStringLiteral("MP_CreateCommonPlayer"),
                      {playerFlag, int(type)});
    return new HostEngine(playerFlag, type);
}

void MP_DestroyCommonPlayer(MP_CommonPlayer* player)
{
    if (!player)
        return;
    HostJournal::call(QStringLiteral("engine"), QStringLiteral("MP_DestroyCommonPlayer"));
    delete player;
}
