#pragma once
// The words of the `display` script command, read as one command of the user
// on the external display:
//   play | pause | stop | next | previous | shiftFinished | exit
//   shift N            (N a signed 32-bit offset in milliseconds)
//   mute true|false
//   volume N           (N a level 0..255)

#include <QString>
#include <QStringList>

#include "host/platform/display/DisplayCommand.h"

class DisplayCommandParser {
public:
    /** Reads @p words into @p command; false with a reason in @p error when
     *  the command is unknown or its argument is missing, extra or bad. */
    static bool parse(const QStringList& words, DisplayCommand* command, QString* error);
};
