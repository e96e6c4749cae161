#include "platform/TextResources.h"

QString MP_tr(const char*, const char* english)
{
    // The host carries no translations: every text is the English one.
    return QString::fromUtf8(english);
}
