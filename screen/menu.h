#pragma once
// The player screen's menu parser: the item trees (ids, parents, default
// texts) of the eight named options menus, as the toolkit asks for them when
// the screen client sets a menu.

#include <QList>
#include <QString>

#include "platform/VmOptMenuParser.h"

class menu : public VmOptMenuParser {
public:
    menu() = default;
    ~menu() override = default;

    /** Appends one new item per row of the menu called exactly @p name (the
     *  names compare case-sensitively) in row order; the items pass to the
     *  owner of @p list. An unknown, empty or null name appends nothing.
     *  @p list is never cleared first. */
    void getList(QList<MenuItem*>& list, QString name) override;
};
