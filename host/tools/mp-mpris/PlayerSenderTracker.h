#pragma once
// Which processes on the bus are players, and which one the bridge follows.
// A channel message does not name its sender, but the bus names the sender of
// every signal and tells when a name leaves. This class learns the players
// from who sends the player's own messages (its start, its news), forgets one
// that says it ended or leaves the bus, and follows the newest of those still
// known: the one whose bus connection was made last (the bus daemon numbers
// unique names in order of connection, ":1.7" after ":1.4"). When the
// followed player goes, the newest of the others is followed. It holds no bus
// itself: the bridge feeds it, in the order the bus delivered them, the
// messages and the departures it hears.
//
// A bridge that a player started for itself (mediaplayer --mpris) follows
// that player alone (followOnly()): with two such players on one desktop,
// each is offered by its own bridge, not both by the newest.

#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>

#include "platform/Qt2Compat.h"

class PlayerSenderTracker : public QObject {
    Q_OBJECT
public:
    explicit PlayerSenderTracker(QObject* parent = nullptr);

    /** Takes one channel message and the unique bus name of its sender. */
    void heard(const QString& sender, const QCString& channel, const QCString& message);
    /** From now on only the player of bus name @p name is followed; the others
     *  are not learnt. Call it before the first message. */
    void followOnly(const QString& name) { m_only = name; }
    /** The bus name @p name has left the bus. */
    void nameLeft(const QString& name);
    /** The followed player's bus name; empty while none is known. */
    QString player() const { return m_player; }
    /** Every player known, oldest connection first. */
    QStringList players() const { return m_players; }
    /** Whether @p message on @p channel is news that only a player sends
     *  (as opposed to requests and setup changes, which anyone may send). */
    static bool isPlayerNews(const QCString& channel, const QCString& message);

Q_SIGNALS:
    /** The bridge now follows @p name (empty: no player is known). */
    void playerChanged(const QString& name);

private:
    void add(const QString& name);
    void remove(const QString& name);
    void followNewest();

    QStringList m_players;  ///< oldest connection first
    QSet<QString> m_departed;  ///< players that left the bus: one name a player the bridge heard
    QString m_player;
    QString m_only;  ///< the one player to follow; empty: any
};
