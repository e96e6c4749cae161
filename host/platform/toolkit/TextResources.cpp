#include "platform/TextResources.h"

#include <QCoreApplication>

QString MP_tr(const char* resourceId, const char* english)
{
    // Translations are keyed by resource id alone; without an installed
    // translation that has the id, the lookup answers the id itself.
    const QString translated = QCoreApplication::translate(nullptr, resourceId);
    if (translated == QLatin1String(resourceId))
        return QString::fromUtf8(english);
    return translated;
}
