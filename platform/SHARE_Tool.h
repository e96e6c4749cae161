#pragma once
// The phone's sharing tool: pushes objects to another device over Bluetooth.

#include "platform/Qt2Compat.h"

class SHARE_Tool {
public:
    /** How an object is presented to the receiving device. */
    struct OBJECT_INFO {
        QString name;         ///< the object's name (a file name)
        QString description;  ///< a description; may be empty
    };
    /** One object to send. */
    struct SHARE_OBJECT {
        OBJECT_INFO info;
        QString path;         ///< full path of the file holding the object
        bool flag = false;    ///< the tool's own option; false for a plain file
    };

    /** Lets the user pick a device and sends @p objects to it. */
    static void shareByBt(const QValueList<SHARE_OBJECT>& objects);
};
