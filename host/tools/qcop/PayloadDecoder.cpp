#include "host/tools/qcop/PayloadDecoder.h"

#include <QDataStream>
#include <QHash>

#include "host/contracts/ChannelContracts.h"
#include "platform/StreamEncoding.h"

namespace {

// Every message of the player's channel protocols, by name, with the types
// its contract declares: those whose names declare none (the idle screen's
// information and seek requests, the setup changes) or less than they carry
// (the home-screen framework's "activePlugIn()" comes with the plug-in's
// name) are decoded as well as those whose names say it all.
const QHash<QByteArray, QStringList>& declaredMessages()
{
    static const QHash<QByteArray, QStringList> messages = [] {
        QHash<QByteArray, QStringList> table;
        for (const ChannelContract& contract : ChannelContracts::kAll) {
            for (const ChannelMessage& message : contract)
                table.insert(message.name, ChannelContracts::payloadTypes(message));
        }
        return table;
    }();
    return messages;
}

QString quoted(const QString& text)
{
    QString escaped = text;
    escaped.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('"'), QLatin1String("\\\""));
    escaped.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}

/** Reads one value of @p type; false when the type is unknown or the bytes run out. */
bool readWord(QDataStream& stream, const QString& type, QString* word)
{
    if (type == QLatin1String("int") || type == QLatin1String("Q_INT32")) {
        qint32 value = 0;
        stream >> value;
        *word = QStringLiteral("int:%1").arg(value);
    } else if (type == QLatin1String("Q_INT8") || type == QLatin1String("bool")) {
        qint8 value = 0;
        stream >> value;
        *word = QStringLiteral("i8:%1").arg(value);
    } else if (type == QLatin1String("QString")) {
        QString value;
        stream >> value;
        *word = value.isNull() ? QStringLiteral("str:null") : QStringLiteral("str:") + quoted(value);
    } else if (type == QLatin1String("QByteArray") || type == QLatin1String("QCString")) {
        QByteArray value;
        stream >> value;
        *word = QStringLiteral("bytes:") + QString::fromLatin1(value.toHex());
    } else {
        return false;
    }
    return stream.status() == QDataStream::Ok;
}

} // namespace

QStringList PayloadDecoder::typesOf(const QByteArray& message)
{
    const auto declared = declaredMessages().constFind(message);
    if (declared != declaredMessages().constEnd())
        return *declared;
    const qsizetype open = message.indexOf('(');
    if (open < 0 || !message.endsWith(')'))
        return {};
    const QByteArray inside = message.mid(open + 1, message.size() - open - 2);
    QStringList types;
    for (const QByteArray& type : inside.split(','))
        types.append(QString::fromLatin1(type.trimmed()));
    if (types == QStringList{QString()})
        return {};
    return types;
}

QStringList PayloadDecoder::describe(const QByteArray& message, const QByteArray& payload)
{
    if (payload.isEmpty())
        return {};
    const QStringList types = typesOf(message);
    QDataStream stream(payload);
    MP_SetPayloadFormat(stream);
    QStringList words;
    for (const QString& type : types) {
        QString word;
        if (!readWord(stream, type, &word))
            return {QStringLiteral("raw:") + QString::fromLatin1(payload.toHex())};
        words.append(word);
    }
    if (types.isEmpty() || !stream.atEnd())
        return {QStringLiteral("raw:") + QString::fromLatin1(payload.toHex())};
    return words;
}
