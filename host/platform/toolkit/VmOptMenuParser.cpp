#include "platform/VmOptMenuParser.h"

void VmOptMenuParser::getList(QList<MenuItem*>& list, QString name)
{
    // The toolkit's own parser knows no menus; applications derive their own.
    Q_UNUSED(list);
    Q_UNUSED(name);
}
