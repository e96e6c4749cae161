#pragma once
// Ends a run without a display once nothing more will play: nobody is there
// to press play, pick another list or answer the player. Checks when the
// window has handled its start-up and then every quarter of a second.
//
// The verdicts, from what the application can see of the run:
//   no engine after start-up          nothing to play (why: the dialog the
//                                     player showed, else the launch action)
//   the engine finished its list      played to the end; an empty list is
//                                     nothing to play
//   the engine failed on its file     cannot play it (the engine's message),
//                                     unless it is still stepping past a run
//                                     of files that are gone
//   stopped with media, not playing   prepared but never started (a headset's
//                                     resume request): nothing to play
// Playing, paused, connecting or buffering: the run goes on.

#include <QObject>
#include <QString>
#include <QTimer>

class PlayerSession;

class HeadlessWatch : public QObject {
    Q_OBJECT
public:
    /** @p actionName: the launch action's name, null without one (for the reason). */
    HeadlessWatch(PlayerSession& session, const QString& actionName);

    /** Starts watching; ended() follows at most once. */
    void start();

Q_SIGNALS:
    /** The run must end with exit @p status; @p reason is null when it played to the end. */
    void ended(int status, const QString& reason);

private:
    void check();
    /** Ends the run with @p status and @p reason; later checks do nothing. */
    void end(int status, const QString& reason);
    QString nothingStartedReason() const;
    /** Why a finished list held nothing: the refused database, when one was refused. */
    static QString emptyListReason();

    PlayerSession& m_session;
    const QString m_actionName;
    QTimer m_poll;
    bool m_ended = false;
};
