#include "platform/DLM_TransSession.h"

#include <QJsonArray>
#include <QJsonObject>

#include "host/platform/HostJournal.h"
#include "host/platform/services/HostDownloadManager.h"

namespace {

const QString kKind = QStringLiteral("service");

QJsonObject objectRecord(const DLM_TRANS_OBJ_T& object)
{
    return {{"kind", object.kind},
            {"mode", object.mode},
            {"source", object.source},
            {"destination", object.destination},
            {"name", object.name},
            {"reserved", QJsonArray{qint64(object.reserved[0]), qint64(object.reserved[1])}},
            {"size", object.size}};
}

QJsonValue infoRecord(const DLM_TRANS_INFO_T* info)
{
    if (!info)
        return QJsonValue::Null;
    return QJsonObject{{"source", info->source}, {"destination", info->destination},
                       {"status", info->status}, {"cause", info->cause},
                       {"message", info->message}, {"flag", info->flag}};
}

void journal(const char* call, const QJsonArray& args)
{
    HostJournal::call(kKind, QStringLiteral("DLM_TransSession::") + QLatin1String(call), args);
}

} // namespace

DLM_TransSession::DLM_TransSession(int sessionType, int application, QObject* parent) : QObject(parent)
{
    journal("DLM_TransSession", {sessionType, application});
    HostDownloadManager::opened(this);
}

DLM_TransSession::~DLM_TransSession()
{
    HostDownloadManager::closed(this);
    journal("~DLM_TransSession", {});
}

void DLM_TransSession::registerTransObjs(const DLM_TRANS_OBJ_T* objects, int count)
{
    QJsonArray records;
    for (int i = 0; objects && i < count; ++i)
        records.append(objectRecord(objects[i]));
    journal("registerTransObjs", {records, count});
}

void DLM_TransSession::startSession(int flags)
{
    journal("startSession", {flags});
}

void DLM_TransSession::transObjProgress(int progress, unsigned int value, unsigned short objectIndex)
{
    journal("transObjProgress", {progress, qint64(value), objectIndex});
}

void DLM_TransSession::transObjDone(const DLM_TRANS_INFO_T* info, int objectIndex)
{
    journal("transObjDone", {infoRecord(info), objectIndex});
}

void DLM_TransSession::sessionDone(DLM_STATUS_T status, int flags)
{
    journal("sessionDone", {status, flags});
}
