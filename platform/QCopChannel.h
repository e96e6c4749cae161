#pragma once
// Named inter-process message channels. A channel object listens on a name;
// send() broadcasts a message to every listener of that name. Delivery goes
// through the event loop: a send never runs a receiver inside the sender's
// call. Payloads are QDataStream encodings in the toolkit's version-2 form
// (see platform/StreamEncoding.h); a message without data arrives with an
// empty payload.

#include <QObject>

#include "platform/Qt2Compat.h"

class QCopChannel : public QObject {
    Q_OBJECT
public:
    /** Starts listening on @p channel. The object stops listening when destroyed. */
    explicit QCopChannel(const QCString& channel, QObject* parent = nullptr);
    ~QCopChannel() override;

    QCString channel() const { return m_channel; }

    /** Whether any channel object listens on @p channel now. */
    static bool isRegistered(const QCString& channel);
    /** Broadcasts @p message without data. Returns false for an empty channel or message name. */
    static bool send(const QCString& channel, const QCString& message);
    /** Broadcasts @p message with the payload @p data. */
    static bool send(const QCString& channel, const QCString& message, const QByteArray& data);

Q_SIGNALS:
    void received(const QCString& message, const QByteArray& data);

private:
    friend class QCopDispatcher;
    QCString m_channel;
    Q_DISABLE_COPY(QCopChannel)
};
