#pragma once
// The e-mail application's composer: a new mail with files attached.

#include "platform/Qt2Compat.h"

/** One file to attach. */
struct EMAIL_SendMail_File_S {
    QString path;       ///< full path of the file
    QString name;       ///< the name the mail shows for it
    bool flag = false;  ///< the composer's own option; false for a plain attachment
};

class EMAIL_SendMail {
public:
    /** Opens the composer with @p files attached. */
    static void sendMail(const QValueList<EMAIL_SendMail_File_S>& files);
};
