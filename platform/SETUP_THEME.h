#pragma once
// The phone's theme settings: ringtone, wallpaper and the other elements.

#include <QString>

/** The theme's elements (only those this system sets). */
enum THEME_ELEMENT { THEME_ELEMENT_WALLPAPER = 11 };
/** What kind of content an element takes. */
enum ELEMENT_TYPE { ELEMENT_TYPE_FILE = 0 };

class SETUP_THEME {
public:
    /** Makes @p path the phone's ringtone; true when the setting took it. */
    static bool applyRingTone(const QString& path);
    /** Makes @p path the content of @p element; true when the setting took it. */
    static bool applyElement(THEME_ELEMENT element, const QString& path, ELEMENT_TYPE type);
};
