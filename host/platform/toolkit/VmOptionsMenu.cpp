#include "platform/VmOptionsMenu.h"

#include <QAction>
#include <QIcon>
#include <QHash>
#include <QLoggingCategory>
#include <QMenu>
#include <QPointer>
#include <QSet>

#include "platform/VmOptMenuParser.h"

#include <algorithm>

Q_LOGGING_CATEGORY(lcOptionsMenu, "mp.host.toolkit.menu")

namespace {

struct Entry {
    QAction* action = nullptr; // owned by the menu that shows it
    QMenu* submenu = nullptr;  // set for a submenu head; owned by the top menu
    int parentId = 0;
    QMetaObject::Connection connection;
};

} // namespace

struct VmOptionsMenu::Private {
    QRect rect;
    QPointer<QMenu> menu; // a child of the options menu; Qt deletes it
    QString name;
    QHash<int, Entry> entries;
    QList<int> order;

    const Entry* find(int id) const
    {
        const auto it = entries.constFind(id);
        return it == entries.constEnd() ? nullptr : &*it;
    }

    void addChildren(const QList<MenuItem*>& items, int parentId, QMenu& target, QSet<int>& placed)
    {
        for (const MenuItem* item : items) {
            if (item->parentId != parentId || placed.contains(item->id))
                continue;
            placed.insert(item->id);
            Entry entry;
            entry.parentId = parentId;
            if (hasChildren(items, item->id)) {
                entry.submenu = target.addMenu(item->text);
                entry.action = entry.submenu->menuAction();
            } else {
                entry.action = target.addAction(item->text);
            }
            entries.insert(item->id, entry);
            order.append(item->id);
            if (entry.submenu)
                addChildren(items, item->id, *entry.submenu, placed);
        }
    }

    static bool hasChildren(const QList<MenuItem*>& items, int id)
    {
        return std::any_of(items.cbegin(), items.cend(), [id](const MenuItem* item) { return item->parentId == id; });
    }

    // A click can reach an item only through visible, enabled submenu heads.
    bool isReachable(int id) const
    {
        for (const Entry* entry = find(id); entry; entry = find(entry->parentId)) {
            if (!entry->action->isVisible() || !entry->action->isEnabled())
                return false;
            if (entry->parentId == 0)
                return true;
        }
        return false;
    }
};

VmOptionsMenu::VmOptionsMenu(const QRect& rect, QWidget* parent, const char* name, int flags, int skinClass)
    : QWidget(parent), d(std::make_unique<Private>())
{
    Q_UNUSED(flags);
    Q_UNUSED(skinClass);
    if (name)
        setObjectName(QString::fromLatin1(name));
    d->rect = rect;
    d->menu = new QMenu(this);
    d->menu->setObjectName(QStringLiteral("optionsMenu"));
    connect(d->menu, &QMenu::aboutToShow, this, &VmOptionsMenu::aboutToShow);
    connect(d->menu, &QMenu::aboutToHide, this, &VmOptionsMenu::aboutToHide);
    // The widget itself only carries the menu; it never covers the screen.
    hide();
}

VmOptionsMenu::~VmOptionsMenu() = default;

void VmOptionsMenu::setMenu(VmOptMenuParser* parser, QString name)
{
    clear();
    d->name = name;
    if (!parser)
        return;
    QList<MenuItem*> items;
    parser->getList(items, name);
    QSet<int> placed;
    d->addChildren(items, 0, *d->menu, placed);
    // An item whose parent is not in the list (or that repeats an id) has
    // nowhere to show; it is dropped rather than shown in the wrong place.
    if (placed.size() != items.size())
        qCWarning(lcOptionsMenu) << "VmOptionsMenu::setMenu:" << items.size() - placed.size()
                                 << "items of" << name << "without a place dropped";
    qDeleteAll(items);
}

QString VmOptionsMenu::menuName() const
{
    return d->name;
}

bool VmOptionsMenu::changeItem(int id, const QString& text, const QPixmap* pixmap)
{
    const Entry* entry = d->find(id);
    if (!entry)
        return false;
    entry->action->setText(text);
    if (pixmap && !pixmap->isNull())
        entry->action->setIcon(QIcon(*pixmap));
    return true;
}

bool VmOptionsMenu::connectItem(int id, QObject* receiver, const char* member)
{
    const auto it = d->entries.find(id);
    if (it == d->entries.end() || !receiver || !member) {
        qCWarning(lcOptionsMenu) << "VmOptionsMenu::connectItem: no item" << id << "or no receiver";
        return false;
    }
    QObject::disconnect(it->connection);
    // The member is in the string form SLOT() writes, so the string form of
    // connect carries it; triggered(bool) also answers to "triggered()".
    it->connection = QObject::connect(it->action, SIGNAL(triggered()), receiver, member);
    return bool(it->connection);
}

bool VmOptionsMenu::setItemVisible(int id, bool visible)
{
    const Entry* entry = d->find(id);
    if (!entry)
        return false;
    entry->action->setVisible(visible);
    return true;
}

bool VmOptionsMenu::setItemEnabled(int id, bool enabled)
{
    const Entry* entry = d->find(id);
    if (!entry)
        return false;
    entry->action->setEnabled(enabled);
    return true;
}

void VmOptionsMenu::clear()
{
    // QMenu::clear deletes the actions it owns, submenus' menu actions
    // included, but not the submenus themselves.
    for (const Entry& entry : std::as_const(d->entries))
        delete entry.submenu;
    d->menu->clear();
    d->entries.clear();
    d->order.clear();
    d->name.clear();
}

bool VmOptionsMenu::hasItem(int id) const
{
    return d->find(id) != nullptr;
}

QString VmOptionsMenu::itemText(int id) const
{
    const Entry* entry = d->find(id);
    return entry ? entry->action->text() : QString();
}

bool VmOptionsMenu::isItemVisible(int id) const
{
    const Entry* entry = d->find(id);
    return entry && entry->action->isVisible();
}

bool VmOptionsMenu::isItemEnabled(int id) const
{
    const Entry* entry = d->find(id);
    return entry && entry->action->isEnabled();
}

int VmOptionsMenu::itemParent(int id) const
{
    const Entry* entry = d->find(id);
    return entry ? entry->parentId : -1;
}

QList<int> VmOptionsMenu::itemIds() const
{
    return d->order;
}

void VmOptionsMenu::popup()
{
    // Items hidden in aboutToShow change the menu's size, so the owner is
    // asked first and the menu placed afterwards: its bottom-left corner on
    // the bottom-left corner of the content area, just above the soft keys.
    Q_EMIT d->menu->aboutToShow();
    QWidget* const area = parentWidget();
    const QSize size = d->menu->sizeHint();
    QPoint bottomLeft = d->rect.bottomLeft() + QPoint(0, 1);
    QPoint topLeft(bottomLeft.x(), std::max(d->rect.top(), bottomLeft.y() - size.height()));
    if (area)
        topLeft = area->mapToGlobal(topLeft);
    // popup() emits aboutToShow itself; the owner has been asked already.
    const QSignalBlocker quiet(d->menu);
    d->menu->popup(topLeft);
}

void VmOptionsMenu::hideMenu()
{
    if (d->menu->isVisible())
        d->menu->hide();
}

bool VmOptionsMenu::chooseItem(int id)
{
    const Entry* entry = d->find(id);
    if (!entry || entry->submenu || !d->isReachable(id))
        return false;
    // A click closes the menu before the command runs, as the command may
    // open a dialog of its own.
    hideMenu();
    entry->action->trigger();
    return true;
}

QMenu* VmOptionsMenu::qmenu() const
{
    return d->menu;
}
