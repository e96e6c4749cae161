#pragma once
// The toolkit's skin: colours and fonts of a widget class.

#include <QColor>
#include <QFont>

class VmSkinService {
public:
    static VmSkinService* instance();
    /** The background colour of skin widget class @p skinClass. */
    QColor backgroundColor(int skinClass) const;
    QColor textColor(int skinClass) const;
    QFont font(int skinClass) const;
};
