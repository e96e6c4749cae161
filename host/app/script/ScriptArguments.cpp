#include "host/app/script/ScriptArguments.h"

#include "host/engine/HostEngine.h"
#include "platform/MP_CommonPlayer.h"

bool ScriptArguments::none(const QStringList& arguments, QString* error)
{
    if (arguments.isEmpty())
        return true;
    *error = QStringLiteral("takes no arguments");
    return false;
}

bool ScriptArguments::numbers(const QStringList& arguments, int count, QList<int>* numbers, const char* usage,
                              QString* error)
{
    bool ok = arguments.size() == count;
    for (int i = 0; ok && i < count; ++i)
        numbers->append(arguments.at(i).toInt(&ok));
    if (!ok)
        *error = QStringLiteral("expects %1").arg(QLatin1String(usage));
    return ok;
}

bool ScriptArguments::milliseconds(const QStringList& arguments, int* milliseconds, QString* error)
{
    bool ok = arguments.size() == 1;
    *milliseconds = ok ? arguments.first().toInt(&ok) : 0;
    if (!ok || *milliseconds < 0) {
        *error = QStringLiteral("expects one number of milliseconds");
        return false;
    }
    return true;
}

int ScriptArguments::choice(const QStringList& arguments, const QStringList& choices, QString* error)
{
    const int index = arguments.size() == 1 ? int(choices.indexOf(arguments.first())) : -1;
    if (index < 0)
        *error = QStringLiteral("expects %1").arg(choices.join(QLatin1String(" or ")));
    return index;
}

HostEngine* ScriptArguments::runningEngine(QString* error)
{
    HostEngine* engine = HostEngine::liveEngine();
    if (!engine)
        *error = QStringLiteral("no player is running");
    return engine;
}

MP_PlayerControl* ScriptArguments::playerControl(QString* error)
{
    HostEngine* engine = runningEngine(error);
    MP_PlayerControl* control = engine ? engine->getPlayerControl() : nullptr;
    if (engine && !control)
        *error = QStringLiteral("no player is running");
    return control;
}
