#pragma once
// The download manager's transfer session: an application that transfers
// content reports its transfer objects, their progress and their end, and
// the download manager may ask it to cancel.

#include <QObject>
#include <QString>

using UINT16 = quint16;
/** End status of a transfer object or session (1: ended by the application). */
using DLM_STATUS_T = int;
/** Why a transfer ended (0: no particular cause). */
using DLM_CAUSE_T = int;

/** One transfer object, registered when the session starts. */
struct DLM_TRANS_OBJ_T {
    quint16 kind = 0;
    quint8 mode = 0;
    QString source;
    QString destination;
    QString name;
    quint32 reserved[2] = {0, 0};
    qint32 size = 0;
};

/** The end report of a transfer object. */
struct DLM_TRANS_INFO_T {
    QString source;
    QString destination;
    DLM_STATUS_T status = 0;
    DLM_CAUSE_T cause = 0;
    QString message;
    quint8 flag = 1;
};

class DLM_TransSession : public QObject {
    Q_OBJECT
public:
    /** Opens a session of @p sessionType for application @p application. */
    DLM_TransSession(int sessionType, int application, QObject* parent = nullptr);
    ~DLM_TransSession() override;

    /** Registers @p count transfer objects (copied). */
    void registerTransObjs(const DLM_TRANS_OBJ_T* objects, int count);
    /** Starts the session; @p flags is the download manager's (0). */
    void startSession(int flags);
    /** Progress of the transfer object, three values as the application has them. */
    void transObjProgress(int progress, unsigned int value, unsigned short objectIndex);
    /** The transfer object ended as @p info says. */
    void transObjDone(const DLM_TRANS_INFO_T* info, int objectIndex);
    /** The whole session ended. */
    void sessionDone(DLM_STATUS_T status, int flags);

Q_SIGNALS:
    /** The download manager asks to cancel transfer @p id. */
    void signalCancelTransfer(UINT16 id);

private:
    Q_DISABLE_COPY(DLM_TransSession)
};
