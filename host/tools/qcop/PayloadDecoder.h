#pragma once
// Reads a channel message's payload back into typed words, as a person
// would type them after `qcop CHANNEL MESSAGE`: int:N, i8:N, str:"TEXT",
// bytes:HEX. The types come from the channel contracts (host/contracts) for
// the player's messages, else from the message name's parameter list
// ("keyMsg(int,int)"); a payload that does not hold exactly those types is
// shown as raw:HEX.

#include <QByteArray>
#include <QString>
#include <QStringList>

class PayloadDecoder {
public:
    /** The payload of @p message as words; an empty payload gives none. */
    static QStringList describe(const QByteArray& message, const QByteArray& payload);
    /** The parameter types a message carries, by its name; empty when unknown. */
    static QStringList typesOf(const QByteArray& message);
};
