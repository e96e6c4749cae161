#include "host/app/script/ScreenScriptCommands.h"

#include <QJsonArray>
#include <QJsonObject>

#include "host/app/script/ScriptArguments.h"
#include "host/engine/HostEngine.h"
#include "host/platform/HostJournal.h"
#include "host/platform/services/HostDownloadManager.h"
#include "host/words/ScriptWords.h"
#include "platform/MP_CommonPlayer.h"
#include "platform/VmKbMainWidget.h"
#include "platform/VmOptionsMenu.h"
#include "platform/VmSoftKey.h"

namespace {

// The options menu behind the player's left soft key, or null with a reason.
VmOptionsMenu* optionsMenu(QString* error)
{
    HostEngine* engine = HostEngine::liveEngine();
    VmKbMainWidget* widget = engine ? engine->getMainWidget() : nullptr;
    VmSoftKey* keys = widget ? widget->getSoftKey(false) : nullptr;
    VmOptionsMenu* menu = keys ? keys->optMenu(0) : nullptr;
    if (!menu)
        *error = QStringLiteral("the player has no options menu");
    return menu;
}

// {"kind":"menu","menu":NAME,"items":[...]} with every item in menu order,
// hidden ones included.
void journalMenu(const VmOptionsMenu& menu)
{
    QJsonArray items;
    for (int id : menu.itemIds()) {
        items.append(QJsonObject{{"id", id},
                                 {"parentId", menu.itemParent(id)},
                                 {"text", menu.itemText(id)},
                                 {"visible", menu.isItemVisible(id)},
                                 {"enabled", menu.isItemEnabled(id)}});
    }
    HostJournal::write({{"kind", "menu"}, {"menu", menu.menuName()}, {"items", items}});
}

bool chooseMenuItem(VmOptionsMenu* menu, const QString& word, QString* error)
{
    bool ok = false;
    const int id = word.toInt(&ok);
    // The player screen fills its menu when the menu is opened.
    if (menu->itemIds().isEmpty())
        *error = QStringLiteral("the options menu has no items before it is opened (menu open)");
    else if (!ok || !menu->hasItem(id))
        *error = QStringLiteral("no item %1 in the menu").arg(ScriptWords::excerpt(word));
    else if (!menu->isItemVisible(id))
        *error = QStringLiteral("item %1 is hidden").arg(id);
    else if (!menu->isItemEnabled(id))
        *error = QStringLiteral("item %1 is disabled").arg(id);
    else if (!menu->chooseItem(id))
        *error = QStringLiteral("item %1 opens a submenu").arg(id);
    else
        return true;
    return false;
}

} // namespace

void ScreenScriptCommands::addTo(ScriptCommandTable& table)
{
    table.insert(QStringLiteral("softkey"), &ScreenScriptCommands::softKey);
    table.insert(QStringLiteral("engine"), &ScreenScriptCommands::engine);
    table.insert(QStringLiteral("menu"), &ScreenScriptCommands::menu);
    table.insert(QStringLiteral("dlm"), &ScreenScriptCommands::dlm);
}

bool ScreenScriptCommands::softKey(const QStringList& arguments, QString* error)
{
    const QStringList keys = {QStringLiteral("left"), QStringLiteral("right")};
    const int key = arguments.size() == 1 ? int(keys.indexOf(arguments.first())) : -1;
    if (key < 0) {
        *error = QStringLiteral("expects left or right");
        return false;
    }
    HostEngine* engine = ScriptArguments::runningEngine(error);
    VmSoftKey* softKey = engine ? engine->getMainWidget()->getSoftKey(false) : nullptr;
    if (engine && !softKey)
        *error = QStringLiteral("the player screen has no soft keys");
    if (softKey)
        softKey->click(key);
    return softKey != nullptr;
}

bool ScreenScriptCommands::engine(const QStringList& arguments, QString* error)
{
    using Report = bool (*)(HostEngine&, const QStringList&, QString*);
    static const QHash<QString, Report> reports = {
        {QStringLiteral("medium"), &ScreenScriptCommands::engineMedium},
        {QStringLiteral("progress"), &ScreenScriptCommands::engineProgress},
        {QStringLiteral("complete"), &ScreenScriptCommands::engineComplete},
        {QStringLiteral("state"), &ScreenScriptCommands::engineState},
    };
    const Report report = reports.value(arguments.value(0));
    if (!report) {
        *error = QStringLiteral("expects medium N, progress A B, complete or state N");
        return false;
    }
    HostEngine* engine = ScriptArguments::runningEngine(error);
    return engine && report(*engine, arguments.mid(1), error);
}

bool ScreenScriptCommands::engineMedium(HostEngine& engine, const QStringList& arguments, QString* error)
{
    QList<int> numbers;
    if (!ScriptArguments::numbers(arguments, 1, &numbers, "medium N (0 local, 1 stream, 2 download, 3 transfer)", error))
        return false;
    if (numbers.first() < 0 || numbers.first() > 3) {
        *error = QStringLiteral("medium %1 is none of 0 to 3").arg(numbers.first());
        return false;
    }
    engine.setMediumType(numbers.first());
    return true;
}

bool ScreenScriptCommands::engineProgress(HostEngine& engine, const QStringList& arguments, QString* error)
{
    QList<int> numbers;
    if (!ScriptArguments::numbers(arguments, 2, &numbers, "progress A B", error))
        return false;
    engine.reportDownloadProgress(numbers.at(0), numbers.at(1));
    return true;
}

bool ScreenScriptCommands::engineComplete(HostEngine& engine, const QStringList& arguments, QString* error)
{
    if (!ScriptArguments::none(arguments, error))
        return false;
    engine.reportDownloadComplete();
    return true;
}

bool ScreenScriptCommands::engineState(HostEngine& engine, const QStringList& arguments, QString* error)
{
    QList<int> numbers;
    if (!ScriptArguments::numbers(arguments, 1, &numbers, "state N", error))
        return false;
    engine.reportState(MP_PLAYER_STATE(numbers.first()));
    return true;
}

bool ScreenScriptCommands::menu(const QStringList& arguments, QString* error)
{
    const QString verb = arguments.value(0);
    const bool open = verb == QLatin1String("open") && arguments.size() == 1;
    const bool choose = verb == QLatin1String("choose") && arguments.size() == 2;
    if (!open && !choose) {
        *error = QStringLiteral("expects open or choose ID");
        return false;
    }
    VmOptionsMenu* menu = optionsMenu(error);
    if (!menu)
        return false;
    if (choose)
        return chooseMenuItem(menu, arguments.at(1), error);
    menu->popup();
    journalMenu(*menu);
    return true;
}

bool ScreenScriptCommands::dlm(const QStringList& arguments, QString* error)
{
    if (arguments.size() != 1 || arguments.first() != QLatin1String("cancel")) {
        *error = QStringLiteral("expects cancel");
        return false;
    }
    if (!HostDownloadManager::cancelNewest()) {
        *error = QStringLiteral("no transfer session is open");
        return false;
    }
    return true;
}
