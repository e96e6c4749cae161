#include "share/MP_DLMSession.h"

#include <QPointer>

#include <cstdio>

#include "platform/TraceLog.h"

MP_DEFINE_TRACE(DLMSessionTrace, "MP_DLMSession")

// Entry lines of the session go to standard error rather than the log
// stream, at the session's own level 5.
#define MP_DLM_ENTER() std::fprintf(stderr, "{%d} %s:%d, %s()\tEnter\n", 5, "MP_DLMSession.cpp", __LINE__, __func__)

MP_DLMSession::MP_DLMSession(const QString& source, const QString& destination, QObject* parent, const char* name)
    : QObject(parent), m_source(source), m_destination(destination), m_started(false)
{
    if (name)
        setObjectName(QString::fromLatin1(name));
}

MP_DLMSession::~MP_DLMSession() = default;

void MP_DLMSession::sessionStart(const QString& source, const QString& destination)
{
    MP_DLM_ENTER();
    m_source = source;
    m_destination = destination;
    initTransSession();

    DLM_TRANS_OBJ_T object;
    object.kind = 0;
    object.mode = 1;
    object.source = m_source;
    object.destination = m_destination;
    object.name = QStringLiteral("");
    object.size = 0;
    m_transSession->registerTransObjs(&object, 1);
    m_transSession->startSession(0);
    m_started = true;
}

void MP_DLMSession::initTransSession()
{
    // A second start replaces the earlier session. Releasing it (rather than
    // leaving it open) is our choice: the download manager then sees one
    // session per download, and nothing leaks.
    m_transSession = std::make_unique<DLM_TransSession>(0, 0);
    connect(m_transSession.get(), SIGNAL(signalCancelTransfer(UINT16)), this, SLOT(slotCancel(UINT16)));
}

void MP_DLMSession::transObjProgress(int progress, unsigned int value, unsigned short objectIndex)
{
    if (!m_started)
        return;
    DLMSessionTrace(5, "transObjProgress: %d, %u, %u\n", progress, value, unsigned(objectIndex));
    m_transSession->transObjProgress(progress, value, objectIndex);
}

void MP_DLMSession::transObjDone(DLM_STATUS_T status, DLM_CAUSE_T cause)
{
    if (!m_started)
        return;
    MP_DLM_ENTER();
    DLM_TRANS_INFO_T info;
    info.source = m_source;
    info.destination = m_destination;
    info.status = status;
    info.cause = cause;
    info.message = QString();
    info.flag = 0;
    m_transSession->transObjDone(&info, 0);
}

void MP_DLMSession::sessionDone(DLM_STATUS_T status, DLM_CAUSE_T cause)
{
    if (!m_started)
        return;
    MP_DLM_ENTER();
    transObjDone(status, cause);
    // The session-done report carries no cause; the object's report had it.
    m_transSession->sessionDone(status, 0);
}

void MP_DLMSession::slotCancel(UINT16 id)
{
    MP_DLM_ENTER();
    Q_UNUSED(id);
    // The receiver may close (delete) this session in answer; then there is
    // nothing left to end.
    const QPointer<MP_DLMSession> alive(this);
    emit signalCancelFromDLM();
    if (alive)
        sessionDone(1, 0);
}
