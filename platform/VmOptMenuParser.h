#pragma once
// The toolkit's options-menu description: the items of a named menu as a
// parser lists them for VmOptionsMenu::setMenu.

#include <QList>
#include <QString>

/** One item of an options menu. */
struct MenuItem {
    QString text;      // shown until the owner replaces it
    int id = 0;        // unique within one menu
    int parentId = 0;  // the item whose submenu holds this one; 0 at the top
    int flag = 0;
};

/**
 * Lists the items of a named menu. The base lists nothing; a derived parser
 * appends one heap item per row, which passes to the owner of @p list
 * (VmOptionsMenu::setMenu deletes them once it has built the menu).
 */
class VmOptMenuParser {
public:
    virtual ~VmOptMenuParser() = default;
    virtual void getList(QList<MenuItem*>& list, QString name);
};
