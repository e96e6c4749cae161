#pragma once
// The scenario script's commands by name. The runner keeps the general
// commands itself; each group of commands about one part of the phone (the
// player screen, ...) is a class that adds its commands to the table.

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>

/** Runs one command with the words after its name; false with a reason in
 *  the error on bad arguments or when the command cannot be carried out. */
using ScriptCommand = std::function<bool(const QStringList& arguments, QString* error)>;
using ScriptCommandTable = QHash<QString, ScriptCommand>;
