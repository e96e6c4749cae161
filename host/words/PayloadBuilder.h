#pragma once
// Builds a channel message's payload from typed script arguments, in the
// phone's stream encoding:
//   int:N     a 32-bit int          i8:N     one signed byte
//   str:TEXT  a QString             bytes:HEX  a QByteArray (length + bytes)
//   raw:HEX   bytes appended as they are

#include <QByteArray>
#include <QStringList>

class PayloadBuilder {
public:
    /** Returns false with a reason naming the bad argument in @p error. */
    static bool build(const QStringList& arguments, QByteArray* payload, QString* error);
};
