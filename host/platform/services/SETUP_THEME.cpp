#include "platform/SETUP_THEME.h"

#include <QJsonArray>

#include "host/platform/HostJournal.h"

// The host has no theme to change: the journal is the setting.

bool SETUP_THEME::applyRingTone(const QString& path)
{
    HostJournal::call(QStringLiteral("service"), QStringLiteral("applyRingTone"), QJsonArray{path});
    return true;
}

bool SETUP_THEME::applyElement(THEME_ELEMENT element, const QString& path, ELEMENT_TYPE type)
{
    HostJournal::call(QStringLiteral("service"), QStringLiteral("applyElement"),
                      QJsonArray{int(element), path, int(type)});
    return true;
}
