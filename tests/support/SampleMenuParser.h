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
        // Each item's text, id and parent's id; the list's owner deletes them.
        list << new MenuItem{QStringLiteral("Hide"), 10, 0} << new MenuItem{QStringLiteral("Send to"), 20, 0}
             << new MenuItem{QStringLiteral("Message"), 21, 20} << new MenuItem{QStringLiteral("Setup"), 30, 0}
             << new MenuItem{QStringLiteral("Memory Card"), 22, 20} << new MenuItem{QStringLiteral("Orphan"), 40, 99};
    }
};
