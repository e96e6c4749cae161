#include "host/app/script/PhoneScriptCommands.h"

#include <QDataStream>

#include "host/app/PlayerSession.h"
#include "host/app/script/ScriptArguments.h"
#include "host/contracts/KeyEventChannel.h"
#include "host/contracts/SystemChannel.h"
#include "host/engine/HostEngine.h"
#include "host/platform/phone/HostMemoryCard.h"
#include "host/words/ScriptWords.h"
#include "platform/QCopChannel.h"
#include "platform/StreamEncoding.h"

namespace {

// A key code as a person writes it: decimal, or hexadecimal after "0x".
// (A leading 0 is not octal: "010" is ten.)
bool parseKeyCode(const QString& word, int* code)
{
    bool ok = false;
    const bool hex = word.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    *code = hex ? word.mid(2).toInt(&ok, 16) : word.toInt(&ok, 10);
    return ok;
}

} // namespace

PhoneScriptCommands::PhoneScriptCommands(PlayerSession& session)
    : m_session(session)
{
}

void PhoneScriptCommands::addTo(ScriptCommandTable& table)
{
    const auto onSession = [this](bool (PhoneScriptCommands::*command)(const QStringList&, QString*)) {
        return [this, command](const QStringList& arguments, QString* error) { return (this->*command)(arguments, error); };
    };
    table.insert(QStringLiteral("returntoidle"), onSession(&PhoneScriptCommands::returnToIdle));
    // Its name before every command was one lower-case word: older scripts still run.
    table.insert(QStringLiteral("returnToIdle"), onSession(&PhoneScriptCommands::returnToIdle));
    table.insert(QStringLiteral("endkey"), onSession(&PhoneScriptCommands::endKey));
    table.insert(QStringLiteral("appicon"), onSession(&PhoneScriptCommands::appIcon));
    table.insert(QStringLiteral("key"), &PhoneScriptCommands::key);
    table.insert(QStringLiteral("setupkey"), &PhoneScriptCommands::setupKey);
    table.insert(QStringLiteral("card"), &PhoneScriptCommands::card);
    table.insert(QStringLiteral("theme"), &PhoneScriptCommands::theme);
}

bool PhoneScriptCommands::returnToIdle(const QStringList& arguments, QString* error)
{
    QList<int> numbers;
    if (!ScriptArguments::numbers(arguments, 1, &numbers, "a reason (-5000 end key, -5001 or -5003 flip closed)", error))
        return false;
    m_session.askReturnToIdle(numbers.first());
    return true;
}

bool PhoneScriptCommands::endKey(const QStringList& arguments, QString* error)
{
    if (!ScriptArguments::none(arguments, error))
        return false;
    m_session.pressEndKey();
    return true;
}

bool PhoneScriptCommands::appIcon(const QStringList& arguments, QString* error)
{
    if (!ScriptArguments::none(arguments, error))
        return false;
    m_session.clickAppIcon();
    return true;
}

bool PhoneScriptCommands::key(const QStringList& arguments, QString* error)
{
    int code = 0;
    bool ok = arguments.size() == 2 && parseKeyCode(arguments.at(0), &code);
    const int type = ok ? arguments.at(1).toInt(&ok, 10) : 0;
    if (!ok) {
        *error = QStringLiteral("expects a key code (decimal or 0x hex) and a key type");
        return false;
    }
    QByteArray payload;
    QDataStream out(&payload, QIODevice::WriteOnly);
    MP_SetPayloadFormat(out);
    out << qint32(code) << qint32(type);
    QCopChannel::send(KeyEventChannel::kChannel, KeyEventChannel::kKey, payload);
    return true;
}

bool PhoneScriptCommands::setupKey(const QStringList& arguments, QString* error)
{
    int code = 0;
    const QStringList states = {QStringLiteral("pressed"), QStringLiteral("released")};
    const int state = arguments.size() == 2 ? int(states.indexOf(arguments.at(1))) : -1;
    if (state < 0 || !parseKeyCode(arguments.at(0), &code)) {
        *error = QStringLiteral("expects a key code (decimal or 0x hex) and pressed or released");
        return false;
    }
    HostEngine* engine = ScriptArguments::runningEngine(error);
    if (engine)
        engine->pressSetupKey(code, state == 0);
    return engine != nullptr;
}

bool PhoneScriptCommands::card(const QStringList& arguments, QString* error)
{
    const int choice = ScriptArguments::choice(arguments, {QStringLiteral("insert"), QStringLiteral("remove")}, error);
    if (choice < 0)
        return false;
    return choice == 0 ? HostMemoryCard::insert(error) : HostMemoryCard::remove(error);
}

bool PhoneScriptCommands::theme(const QStringList& arguments, QString* error)
{
    if (!ScriptArguments::none(arguments, error))
        return false;
    QCopChannel::send(SystemChannel::kChannel, SystemChannel::kApplyStyle);
    return true;
}
