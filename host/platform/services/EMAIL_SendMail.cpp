#include "platform/EMAIL_SendMail.h"

#include <QJsonArray>
#include <QJsonObject>

#include "host/platform/HostJournal.h"

void EMAIL_SendMail::sendMail(const QValueList<EMAIL_SendMail_File_S>& files)
{
    // The host has no mail composer: the journal shows the mail it would open.
    QJsonArray list;
    for (const EMAIL_SendMail_File_S& file : files)
        list.append(QJsonObject{{"path", file.path}, {"name", file.name}, {"flag", file.flag}});
    HostJournal::call(QStringLiteral("service"), QStringLiteral("sendMail"), QJsonArray{list});
}
