#include "platform/AM_Action.h"

#include <QJsonObject>

#include "host/platform/HostJournal.h"
#include "host/platform/services/HostLaunchAction.h"

bool AM_ActionData::invoke(bool wait) const
{
    // The host has no other applications to hand the record to: the journal
    // shows what the phone's framework would have started.
    QJsonObject values;
    for (auto it = m_values.cbegin(); it != m_values.cend(); ++it)
        values.insert(it.key(), it.value());
    HostJournal::call(QStringLiteral("action"), QStringLiteral("invoke"),
                      QJsonArray{QJsonObject{{"action", m_action}, {"values", values}}, wait});
    return !m_action.isEmpty();
}

AM_ActionReceiver* AM_ActionReceiver::instance()
{
    static AM_ActionReceiver receiver;
    return &receiver;
}

void AM_ActionReceiver::deliver(const AM_ActionData& action)
{
    Q_EMIT receiveAction(action);
}

AM_ActionParser::AM_ActionParser() : m_action(HostLaunchAction::get()) {}
