#pragma once
// The Qt messages (warnings and the like) given while one of these lives,
// in order, instead of on the error stream.

#include <QStringList>
#include <QtGlobal>

class QtMessages {
public:
    QtMessages() : m_previous(qInstallMessageHandler(keep)) { s_messages.clear(); }
    ~QtMessages() { qInstallMessageHandler(m_previous); }
    QtMessages(const QtMessages&) = delete;
    QtMessages& operator=(const QtMessages&) = delete;

    const QStringList& list() const { return s_messages; }

private:
    static void keep(QtMsgType, const QMessageLogContext&, const QString& message) { s_messages.append(message); }

    // A message handler is a plain function: the messages live beside it.
    static inline QStringList s_messages;
    const QtMessageHandler m_previous;
};
