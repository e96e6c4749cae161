#include "host/app/script/ScriptRunner.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTimer>

#include <cstdio>
#include <memory>

#include "host/app/AppOptions.h"
#include "host/app/script/DisplayCommandParser.h"
#include "host/app/PlayerSession.h"
#include "host/app/script/ScriptArguments.h"
#include "host/engine/HostEngine.h"
#include "host/engine/HostEngineClock.h"
#include "host/platform/HostJournal.h"
#include "host/platform/display/HostDisplay.h"
#include "host/platform/phone/HostPhone.h"
#include "host/platform/toolkit/HostDialogs.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/media/scanner/MediaScanner.h"
#include "host/words/PayloadBuilder.h"
#include "host/words/ScriptWords.h"
#include "lists/MP_ListInterface.h"
#include "platform/AM_Action.h"
#include "platform/MP_CommonPlayer.h"
#include "platform/QCopChannel.h"
#include "platform/SETUP_SET_Manager.h"

namespace {

// Long enough for the library's 1 ms deferrals (and a chain of a few) to run.
const int kSettleMilliseconds = 5;

void runEventLoopFor(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

ScriptRunner::ScriptRunner(PlayerSession& session) : m_session(session)
{
    const std::pair<const char*, Command> own[] = {
        {"action", &ScriptRunner::commandAction},
        {"qcop", &ScriptRunner::commandQcop},
        {"wait", &ScriptRunner::commandWait},
        {"clock", &ScriptRunner::commandClock},
        {"advance", &ScriptRunner::commandAdvance},
        {"open", &ScriptRunner::commandOpen},
        {"quit", &ScriptRunner::commandQuit},
        {"capturedvideo", &ScriptRunner::commandCapturedVideo},
        {"setting", &ScriptRunner::commandSetting},
        {"next", &ScriptRunner::commandNext},
        {"previous", &ScriptRunner::commandPrevious},
        {"playpause", &ScriptRunner::commandPlayPause},
        {"remove", &ScriptRunner::commandRemove},
        {"dialog", &ScriptRunner::commandDialog},
        {"db", &ScriptRunner::commandDb},
        {"hide", &ScriptRunner::commandHide},
        {"flip", &ScriptRunner::commandFlip},
        {"display", &ScriptRunner::commandDisplay},
        {"profile", &ScriptRunner::commandProfile},
    };
    for (const auto& [name, command] : own)
        m_commands.insert(QLatin1String(name), [this, command = command](const QStringList& arguments, QString* error) {
            return (this->*command)(arguments, error);
        });
    m_screenCommands.addTo(m_commands);
    m_channelCommands.addTo(m_commands);
    m_bluetoothCommands.addTo(m_commands);
    m_phoneCommands.addTo(m_commands);
}

bool ScriptRunner::load(const QString& path, QString* error)
{
    QFile file;
    const bool opened = path == QLatin1String("-") ? file.open(stdin, QIODevice::ReadOnly | QIODevice::Text)
                                                   : (file.setFileName(path), file.open(QIODevice::ReadOnly | QIODevice::Text));
    if (!opened) {
        *error = QStringLiteral("cannot read script %1: %2").arg(path, file.errorString());
        return false;
    }
    m_name = path == QLatin1String("-") ? QStringLiteral("<stdin>") : path;
    // Read whole and split once: a line of megabytes read through a text
    // stream is scanned again for its end at every chunk.
    const QString text = QString::fromUtf8(file.readAll());
    m_lines = text.split(QLatin1Char('\n'));
    // A final newline ends the last line; it does not start another.
    if (!m_lines.isEmpty() && m_lines.last().isEmpty())
        m_lines.removeLast();
    return true;
}

int ScriptRunner::run()
{
    for (int i = 0; i < m_lines.size() && !m_quit; ++i) {
        QString error;
        if (!runLine(m_lines.at(i), &error)) {
            std::fprintf(stderr, "%s:%d: %s\n", qPrintable(m_name), i + 1, qPrintable(error));
            return ExitBadScript;
        }
        if (m_session.quitRequested() && !m_quit) {
            std::fprintf(stderr, "%s:%d: the player quit; the script ends here\n", qPrintable(m_name), i + 1);
            break;
        }
    }
    return ExitPlayed;
}

bool ScriptRunner::runLine(const QString& line, QString* error)
{
    QStringList words;
    if (!ScriptWords::split(line, &words, error))
        return false;
    if (words.isEmpty())
        return true;
    const QString name = words.takeFirst();
    const ScriptCommand command = m_commands.value(name);
    if (!command) {
        *error = QStringLiteral("unknown command %1").arg(ScriptWords::excerpt(name));
        return false;
    }
    if (!command(words, error)) {
        *error = name + QStringLiteral(": ") + *error;
        return false;
    }
    settle();
    return true;
}

void ScriptRunner::settle()
{
    runEventLoopFor(kSettleMilliseconds);
}

bool ScriptRunner::commandAction(const QStringList& arguments, QString* error)
{
    if (arguments.isEmpty()) {
        *error = QStringLiteral("expects an action name and key=value pairs");
        return false;
    }
    AM_ActionData action(arguments.first());
    for (const QString& pair : arguments.mid(1)) {
        const int equals = pair.indexOf(QLatin1Char('='));
        if (equals <= 0) {
            *error = QStringLiteral("%1 is not key=value").arg(ScriptWords::excerpt(pair));
            return false;
        }
        action.setValue(pair.left(equals), pair.mid(equals + 1));
    }
    AM_ActionReceiver::instance()->deliver(action);
    return true;
}

bool ScriptRunner::commandQcop(const QStringList& arguments, QString* error)
{
    if (arguments.size() < 2) {
        *error = QStringLiteral("expects a channel, a message and typed arguments");
        return false;
    }
    QByteArray payload;
    if (!PayloadBuilder::build(arguments.mid(2), &payload, error))
        return false;
    QCopChannel::send(arguments.at(0).toUtf8(), arguments.at(1).toUtf8(), payload);
    return true;
}

bool ScriptRunner::commandWait(const QStringList& arguments, QString* error)
{
    int milliseconds = 0;
    if (!ScriptArguments::milliseconds(arguments, &milliseconds, error))
        return false;
    runEventLoopFor(milliseconds);
    return true;
}

bool ScriptRunner::commandClock(const QStringList& arguments, QString* error)
{
    if (arguments.size() != 1
        || (arguments.first() != QLatin1String("manual") && arguments.first() != QLatin1String("real"))) {
        *error = QStringLiteral("expects manual or real");
        return false;
    }
    HostEngineClock::setManual(arguments.first() == QLatin1String("manual"));
    return true;
}

bool ScriptRunner::commandAdvance(const QStringList& arguments, QString* error)
{
    int milliseconds = 0;
    if (!ScriptArguments::milliseconds(arguments, &milliseconds, error))
        return false;
    if (!HostEngineClock::isManual()) {
        *error = QStringLiteral("the clock is not manual (say \"clock manual\" first)");
        return false;
    }
    HostEngineClock::advance(milliseconds);
    return true;
}

bool ScriptRunner::commandOpen(const QStringList& arguments, QString* error)
{
    if (arguments.size() != 1) {
        *error = QStringLiteral("expects one file");
        return false;
    }
    m_session.openDocument(arguments.first());
    return true;
}

bool ScriptRunner::commandQuit(const QStringList& arguments, QString* error)
{
    if (!ScriptArguments::none(arguments, error))
        return false;
    m_session.finish();
    m_quit = true;
    return true;
}

bool ScriptRunner::commandHide(const QStringList& arguments, QString* error)
{
    if (!ScriptArguments::none(arguments, error))
        return false;
    if (!m_session.hidePlayer()) {
        *error = QStringLiteral("no player window to hide");
        return false;
    }
    return true;
}

bool ScriptRunner::commandCapturedVideo(const QStringList& arguments, QString* error)
{
    if (!ScriptArguments::none(arguments, error))
        return false;
    m_session.playCapturedVideo();
    return true;
}

bool ScriptRunner::commandSetting(const QStringList& arguments, QString* error)
{
    const int colon = arguments.size() == 3 ? arguments.at(2).indexOf(QLatin1Char(':')) : -1;
    const QString type = arguments.value(2).left(colon);
    const QString value = arguments.value(2).mid(colon + 1);
    SETUP_SET_Manager settings(AM_Global::MediaPlayer, false);
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    const bool isInt = type == QLatin1String("int") && isNumber;
    const bool isBool = type == QLatin1String("bool") && (value == QLatin1String("true") || value == QLatin1String("false"));
    if (!isInt && !isBool) {
        *error = QStringLiteral("expects GROUP KEY int:N or GROUP KEY bool:true|false");
        return false;
    }
    const bool stored = isInt ? settings.setSettingInfo(arguments.at(0), arguments.at(1), number)
                              : settings.setSettingInfo(arguments.at(0), arguments.at(1), value == QLatin1String("true"));
    if (!stored)
        *error = QStringLiteral("the settings store did not take it (a read-only data folder?)");
    return stored;
}

bool ScriptRunner::commandNext(const QStringList& arguments, QString* error)
{
    MP_PlayerControl* control = ScriptArguments::none(arguments, error) ? ScriptArguments::playerControl(error) : nullptr;
    if (control)
        control->next();
    return control != nullptr;
}

bool ScriptRunner::commandPrevious(const QStringList& arguments, QString* error)
{
    MP_PlayerControl* control = ScriptArguments::none(arguments, error) ? ScriptArguments::playerControl(error) : nullptr;
    if (control)
        control->previous();
    return control != nullptr;
}

bool ScriptRunner::commandPlayPause(const QStringList& arguments, QString* error)
{
    MP_PlayerControl* control = ScriptArguments::none(arguments, error) ? ScriptArguments::playerControl(error) : nullptr;
    if (control)
        control->playPause();
    return control != nullptr;
}

bool ScriptRunner::commandRemove(const QStringList& arguments, QString* error)
{
    if (!ScriptArguments::none(arguments, error))
        return false;
    HostEngine* engine = HostEngine::liveEngine();
    MP_ListInterface* list = engine ? engine->getCurrentList() : nullptr;
    if (!list) {
        *error = QStringLiteral("no list is playing");
        return false;
    }
    // As the player screen's remove command does, once the user said yes.
    list->removeItem(list->getCurrentIndex());
    return true;
}

bool ScriptRunner::commandDialog(const QStringList& arguments, QString* error)
{
    const bool hasDelay = arguments.size() == 4 && arguments.at(2) == QLatin1String("after");
    bool ok = (arguments.size() == 2 || hasDelay) && arguments.first() == QLatin1String("answer");
    const int answer = ok ? arguments.at(1).toInt(&ok) : 0;
    if (!ok) {
        *error = QStringLiteral("expects \"answer N\" or \"answer N after MS\"");
        return false;
    }
    if (!hasDelay) {
        HostDialogs::queueAnswer(answer);
        return true;
    }
    int milliseconds = 0;
    if (!ScriptArguments::milliseconds(arguments.mid(3), &milliseconds, error))
        return false;
    if (!HostEngineClock::isManual()) {
        *error = QStringLiteral("the clock is not manual (say \"clock manual\" first)");
        return false;
    }
    // The engine plays on while the question is open, as under a person
    // who takes that long to answer.
    HostDialogs::queueAnswer(answer, [milliseconds] { HostEngineClock::advance(milliseconds); });
    return true;
}

bool ScriptRunner::commandDb(const QStringList& arguments, QString* error)
{
    const QString operation = arguments.value(0);
    if (arguments.size() != 2
        || (operation != QLatin1String("add") && operation != QLatin1String("remove") && operation != QLatin1String("touch"))) {
        *error = QStringLiteral("expects add, remove or touch and a path");
        return false;
    }
    const QString path = QFileInfo(arguments.at(1)).absoluteFilePath();
    std::unique_ptr<MediaDatabase> database = MediaDatabase::open(MediaDatabase::defaultFile());
    if (!database) {
        *error = QStringLiteral("cannot open the media database");
        return false;
    }
    MediaScanner scanner(*database);
    if (operation == QLatin1String("remove")) {
        if (!scanner.removeFile(path)) {
            *error = QStringLiteral("%1 is not in the media database").arg(ScriptWords::excerpt(path));
            return false;
        }
        return true;
    }
    if (operation == QLatin1String("touch")) {
        // A changed file: a new modification time makes the scanner read it again.
        QFile file(path);
        if (!file.open(QIODevice::ReadWrite) || !file.setFileTime(QDateTime::currentDateTime(), QFileDevice::FileModificationTime)) {
            *error = QStringLiteral("cannot touch %1").arg(ScriptWords::excerpt(path));
            return false;
        }
    }
    const MediaScanner::FileOutcome outcome = scanner.scanFile(path);
    if (outcome == MediaScanner::FileOutcome::Skipped || outcome == MediaScanner::FileOutcome::NotMedia) {
        *error = QStringLiteral("%1 is not a readable media file").arg(ScriptWords::excerpt(path));
        return false;
    }
    return true;
}

bool ScriptRunner::commandFlip(const QStringList& arguments, QString* error)
{
    const QString position = arguments.value(0);
    if (arguments.size() != 1 || (position != QLatin1String("open") && position != QLatin1String("closed"))) {
        *error = QStringLiteral("expects open or closed");
        return false;
    }
    m_session.changeFlipStatus(position == QLatin1String("closed") ? 1 : 0);
    return true;
}

bool ScriptRunner::commandDisplay(const QStringList& arguments, QString* error)
{
    DisplayCommand command;
    if (!DisplayCommandParser::parse(arguments, &command, error))
        return false;
    if (!HostDisplay::send(command)) {
        *error = QStringLiteral("the external display shows no player (is the flip closed while playing?)");
        return false;
    }
    return true;
}

bool ScriptRunner::commandProfile(const QStringList& arguments, QString* error)
{
    bool ok = arguments.size() == 2;
    const uint bit = ok ? arguments.at(0).toUInt(&ok) : 0;
    const QString value = arguments.value(1);
    if (!ok || bit > 0xFFFF || (value != QLatin1String("on") && value != QLatin1String("off"))) {
        *error = QStringLiteral("expects a feature bit (0 to 65535) and on or off");
        return false;
    }
    HostPhone::setFlexBit(int(bit), value == QLatin1String("on"));
    return true;
}
