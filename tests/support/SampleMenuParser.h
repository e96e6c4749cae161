#pragma once
// A small options menu for toolkit tests: three top items, the second a
// submenu head with two items, and an item whose parent does not exist.

#include <QList>
#include <QString>

#include "platform/VmOptMenuParser.h"

class SampleMenuParser : public VmOptMenuParser {
public:
    void getList(QList<MenuItem*>& list, QString name) override
    {
        if (name != QLatin1String("sample"))
            return;
        add(list, 10, 0, "Hide");
        add(list, 20, 0, "Send to");
        add(list, 21, 20, "Message");
        add(list, 30, 0, "Setup");
        add(list, 22, 20, "Memory Card");
        add(list, 40, 99, "Orphan");
    }

private:
    static void add(QList<MenuItem*>& list, int id, int parentId, const char* text)
    {
        auto* item = new MenuItem;
        item->text = QString::fromLatin1(text);
        item->id = id;
        item->parentId = parentId;
        list.append(item);
    }
};
