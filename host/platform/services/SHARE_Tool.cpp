#include "platform/SHARE_Tool.h"

#include <QJsonArray>
#include <QJsonObject>

#include "host/platform/HostJournal.h"

void SHARE_Tool::shareByBt(const QValueList<SHARE_OBJECT>& objects)
{
    // The host pushes nothing over the air: the journal shows what would go.
    QJsonArray list;
    for (const SHARE_OBJECT& object : objects) {
        const QJsonObject info{{"name", object.info.name}, {"description", object.info.description}};
        list.append(QJsonObject{{"info", info}, {"path", object.path}, {"flag", object.flag}});
    }
    HostJournal::call(QStringLiteral("service"), QStringLiteral("shareByBt"), QJsonArray{list});
}
