#include "host/app/HeadlessWatch.h"

#include "host/app/AppOptions.h"
#include "host/app/PlayerSession.h"
#include "host/engine/HostEngine.h"
#include "host/platform/media/database/MediaDatabase.h"
#include "host/platform/toolkit/HostDialogs.h"
#include "host/words/ScriptWords.h"
#include "lists/MP_ListInterface.h"
#include "platform/MP_CommonPlayer.h"

namespace {
const int kPollMilliseconds = 250;
} // namespace

HeadlessWatch::HeadlessWatch(PlayerSession& session, const QString& actionName)
    : m_session(session)
    , m_actionName(actionName)
{
    m_poll.setInterval(kPollMilliseconds);
    connect(&m_poll, &QTimer::timeout, this, &HeadlessWatch::check);
    connect(&m_session, &PlayerSession::startupFinished, this, &HeadlessWatch::check);
}

void HeadlessWatch::start()
{
    m_poll.start();
}

void HeadlessWatch::check()
{
    if (m_ended)
        return;
    HostEngine* engine = HostEngine::liveEngine();
    if (!engine) {
        // Before the start-up work ran, the engine may still come.
        if (m_session.startupHandled())
            end(ExitNothingToPlay, nothingStartedReason());
        return;
    }
    MP_PlayerControl* control = engine->getPlayerControl();
    MP_ListInterface* list = engine->getCurrentList();
    switch (control->getState()) {
    case MP_STATE_FINISHED:
        if (list && list->count() == 0)
            end(ExitNothingToPlay, emptyListReason());
        else
            end(ExitPlayed, QString());
        return;
    case MP_STATE_ERROR: {
        if (engine->isSteppingPastFailures())
            return;   // a run of files that are gone, gone through a part at a time
        QString detail;
        QString message;
        control->getErrorInfo(detail, message);
        end(ExitNothingToPlay, QStringLiteral("cannot play \"%1\": %2").arg(engine->getCurrentPath(), message));
        return;
    }
    case MP_STATE_STOPPED:
    case MP_STATE_NONE:
        end(ExitNothingToPlay, QStringLiteral("nothing to play: the list was prepared but not started"));
        return;
    default:
        return;
    }
}

QString HeadlessWatch::nothingStartedReason() const
{
    // A notice nobody saw is the best account of why (no list to resume, say).
    const QString notice = HostDialogs::lastText();
    if (!notice.isNull())
        return QStringLiteral("nothing to play: the player said %1").arg(ScriptWords::excerpt(notice));
    if (!m_actionName.isNull())
        return QStringLiteral("nothing to play: the launch action %1 started nothing").arg(ScriptWords::excerpt(m_actionName));
    return QStringLiteral("nothing to play");
}

QString HeadlessWatch::emptyListReason()
{
    // A refused database lists nothing, whatever it holds.
    const QString refusal = MediaDatabase::lastRefusal();
    if (!refusal.isNull())
        return QStringLiteral("nothing to play: the media database cannot be used (%1)").arg(refusal);
    return QStringLiteral("nothing to play: the list is empty");
}

void HeadlessWatch::end(int status, const QString& reason)
{
    m_ended = true;
    m_poll.stop();
    Q_EMIT ended(status, reason);
}
