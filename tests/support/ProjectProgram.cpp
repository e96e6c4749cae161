#include "tests/support/ProjectProgram.h"

#include <QDeadlineTimer>

#include <gtest/gtest.h>

namespace {

/** The emulator and its options, empty for a build for this processor. */
QStringList emulator()
{
    // The build hands its emulator's words over joined by '|'.
    return QStringLiteral(MP_EMULATOR).split(QLatin1Char('|'), Qt::SkipEmptyParts);
}

/** @p words as one command line that QProcess::splitCommand splits back. */
QString commandLine(QStringList words)
{
    for (QString& word : words)
        word = QLatin1Char('"') + word.replace(QLatin1Char('"'), QStringLiteral("\"\"\"")) + QLatin1Char('"');
    return words.join(QLatin1Char(' '));
}

/** Under an emulator, what the program starts of the project (the player's
 *  mp-mpris) must run through the emulator as well: MP_EMULATOR tells it how,
 *  unless the test names a command of its own. */
void handOnTheEmulator(QProcess& process)
{
    if (emulator().isEmpty())
        return;
    QProcessEnvironment environment = process.processEnvironment();
    if (environment.isEmpty())  // an empty one means the test's own
        environment = QProcessEnvironment::systemEnvironment();
    if (!environment.contains(QStringLiteral("MP_EMULATOR")))
        environment.insert(QStringLiteral("MP_EMULATOR"), commandLine(emulator()));
    process.setProcessEnvironment(environment);
}

} // namespace

bool ProjectProgram::emulated()
{
    return !emulator().isEmpty();
}

QString ProjectProgram::path(const QString& name)
{
    return QStringLiteral(MP_BIN_DIR "/") + name;
}

QString ProjectProgram::sourcePath(const QString& relative)
{
    return QStringLiteral(MP_SOURCE_DIR "/") + relative;
}

bool ProjectProgram::start(QProcess& process, const QString& name, const QStringList& arguments)
{
    QStringList command = emulator();
    command << path(name) << arguments;
    const QString program = command.takeFirst();
    handOnTheEmulator(process);
    process.start(program, command);
    // A start that fails leaves exit code 0 behind: never let that read as success.
    if (process.waitForStarted(30000))
        return true;
    ADD_FAILURE() << "cannot start " << qPrintable(program) << ' ' << qPrintable(command.join(' ')) << ": "
                  << qPrintable(process.errorString());
    return false;
}

QString ProjectProgram::readUntil(QProcess& process, QProcess::ProcessChannel channel, const QString& last, int timeoutMs)
{
    process.setReadChannel(channel);
    QStringList lines;
    const QDeadlineTimer deadline(emulated() ? 4 * timeoutMs : timeoutMs);
    while (lines.isEmpty() || lines.last() != last) {
        if (process.canReadLine())
            lines.append(QString::fromUtf8(process.readLine()).chopped(1));
        else if (!process.waitForReadyRead(int(deadline.remainingTime())))
            break;
    }
    return lines.join(QLatin1Char('\n'));
}
