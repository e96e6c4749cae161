#pragma once
// Checks shared by the script commands: the arguments they expect and the
// running player they act on. Each returns false (or null) with a reason.

#include <QList>
#include <QStringList>

class HostEngine;
class MP_PlayerControl;

class ScriptArguments {
public:
    static bool none(const QStringList& arguments, QString* error);
    /** Exactly @p count whole numbers into @p numbers; the reason names @p usage. */
    static bool numbers(const QStringList& arguments, int count, QList<int>* numbers, const char* usage, QString* error);
    /** One number of milliseconds, not negative. */
    static bool milliseconds(const QStringList& arguments, int* milliseconds, QString* error);
    /** @p arguments is exactly one of @p choices: its index, else -1 with a reason. */
    static int choice(const QStringList& arguments, const QStringList& choices, QString* error);

    /** The engine of the running player. */
    static HostEngine* runningEngine(QString* error);
    /** The playback control of the running player. */
    static MP_PlayerControl* playerControl(QString* error);
};
