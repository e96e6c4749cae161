#include "host/words/PayloadBuilder.h"

#include <QDataStream>
#include <QIODevice>

#include "host/words/ScriptWords.h"
#include "platform/StreamEncoding.h"

namespace {
// ASCII only: QChar::isDigit() also takes other scripts' digits, which the
// hex decoder would drop, leaving fewer bytes than the text promised.
bool isHex(const QString& text)
{
    if (text.size() % 2 != 0)
        return false;
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        if (!((u >= '0' && u <= '9') || (u >= 'a' && u <= 'f') || (u >= 'A' && u <= 'F')))
            return false;
    }
    return true;
}
} // namespace

bool PayloadBuilder::build(const QStringList& arguments, QByteArray* payload, QString* error)
{
    payload->clear();
    QDataStream stream(payload, QIODevice::WriteOnly);
    MP_SetPayloadFormat(stream);
    for (const QString& argument : arguments) {
        const int colon = argument.indexOf(QLatin1Char(':'));
        const QString type = colon < 0 ? QString() : argument.left(colon);
        const QString value = colon < 0 ? QString() : argument.mid(colon + 1);
        bool ok = true;
        if (type == QLatin1String("int")) {
            const int number = value.toInt(&ok);
            if (ok)
                stream << qint32(number);
        } else if (type == QLatin1String("i8")) {
            const int number = value.toInt(&ok);
            ok = ok && number >= -128 && number <= 127;
            if (ok)
                stream << qint8(number);
        } else if (type == QLatin1String("str")) {
            stream << value;
        } else if (type == QLatin1String("bytes") || type == QLatin1String("raw")) {
            ok = isHex(value);
            const QByteArray bytes = ok ? QByteArray::fromHex(value.toLatin1()) : QByteArray();
            if (ok && type == QLatin1String("bytes"))
                stream << bytes;
            else if (ok)
                stream.writeRawData(bytes.constData(), int(bytes.size()));
        } else {
            ok = false;
        }
        if (!ok) {
            *error = QStringLiteral("bad argument %1 (expected int:N, i8:N, str:TEXT, bytes:HEX or raw:HEX)")
                         .arg(ScriptWords::excerpt(argument));
            return false;
        }
    }
    return true;
}
