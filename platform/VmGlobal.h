#pragma once
// Geometry of the phone's screen as the toolkit lays it out.

#include <QRect>

class VmGlobal {
public:
    /** The content area: the screen without the status bar, and without the
     *  soft-key bar unless @p withSoftKey. */
    static QRect getContentR(bool withSoftKey);
};
