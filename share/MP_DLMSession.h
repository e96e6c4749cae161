#pragma once
// The player's side of a download that the platform's download manager
// lists: one transfer session with one transfer object (the playing content
// and its file), its progress and its end, and the manager's cancel request
// turned into a signal for the player screen.
//
// Nothing is reported before sessionStart(); after it, every report is
// forwarded, also after sessionDone() (the owner deletes the session when it
// closes it).

#include <QObject>
#include <QString>

#include <memory>

#include "platform/DLM_TransSession.h"

class MP_DLMSession : public QObject {
    Q_OBJECT
public:
    MP_DLMSession(const QString& source, const QString& destination, QObject* parent, const char* name);
    ~MP_DLMSession() override;

    /** Opens a transfer session, registers the object @p source → @p
     *  destination and starts it. A second call opens a new session in place
     *  of the first. */
    void sessionStart(const QString& source, const QString& destination);
    /** Forwards a progress report unchanged; ignored before sessionStart(). */
    void transObjProgress(int progress, unsigned int value, unsigned short objectIndex);
    /** Reports the object ended with @p status and @p cause; ignored before sessionStart(). */
    void transObjDone(DLM_STATUS_T status, DLM_CAUSE_T cause);
    /** Reports the object (with @p cause) and then the session (without a
     *  cause) ended; ignored before sessionStart(). */
    void sessionDone(DLM_STATUS_T status, DLM_CAUSE_T cause);

    bool isStarted() const { return m_started; }

Q_SIGNALS:
    /** The download manager asked to cancel the download. */
    void signalCancelFromDLM();

private Q_SLOTS:
    /** The download manager's cancel: tell the player first, then end the session. */
    void slotCancel(UINT16 id);

private:
    void initTransSession();

    std::unique_ptr<DLM_TransSession> m_transSession;  // null until sessionStart()
    QString m_source;       // the playing content's name
    QString m_destination;  // the file being downloaded
    bool m_started;

    Q_DISABLE_COPY(MP_DLMSession)
};
