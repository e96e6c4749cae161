#pragma once
// User-visible texts: looked up by resource id, with the English text as the
// fallback when the phone's language has none.

#include <QString>

/** The text of @p resourceId in the phone's language, else @p english. */
QString MP_tr(const char* resourceId, const char* english);
