#pragma once
// Starts a program of the project (mediaplayer, mp-scan, qcop, mp-mpris) from
// the build's bin folder. A build for another processor names the emulator
// that runs its programs (CMAKE_CROSSCOMPILING_EMULATOR); the tests then run
// under it, and so does every program they start, also those that a program
// of the project starts in turn (MP_EMULATOR hands the emulator on).

#include <QProcess>
#include <QString>
#include <QStringList>

namespace ProjectProgram {

/** True when the build's programs run under an emulator (a build for another processor). */
bool emulated();

QString path(const QString& name);

/** The path of @p relative in the project's source tree (test data, scripts). */
QString sourcePath(const QString& relative);

/** Starts @p name with @p arguments in @p process (through the emulator when
 *  the build names one) and waits until it runs. When it cannot start, adds a
 *  test failure that names the program and the reason, and returns false. */
bool start(QProcess& process, const QString& name, const QStringList& arguments);

/** Reads @p process's @p channel line by line until a line equals @p last or
 *  @p timeoutMs pass (four times as many under an emulator); the lines read,
 *  joined by newlines. */
QString readUntil(QProcess& process, QProcess::ProcessChannel channel, const QString& last, int timeoutMs = 15000);

} // namespace ProjectProgram
