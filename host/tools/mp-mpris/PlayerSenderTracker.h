#pragma once
// Which process on the bus is the player, learnt from who sends the player's
// messages. A channel message does not name its sender, so a player that is
// killed never says goodbye; the bus, though, names the sender of every
// signal and tells when that name leaves. This class keeps the name and says
// when the player is gone; it holds no bus itself, so the bridge feeds it
// what the bus says and watches the names it is asked to watch.

#include <QObject>
#include <QString>

#include "platform/Qt2Compat.h"

class PlayerSenderTracker : public QObject {
    Q_OBJECT
public:
    explicit PlayerSenderTracker(QObject* parent = nullptr);

    /** Takes one channel message and the unique bus name of its sender. */
    void heard(const QString& sender, const QCString& channel, const QCString& message);
    /** The bus name @p name has left the bus; "playerGone" when it was the player's. */
    void nameLeft(const QString& name);
    /** The player's bus name; empty while none is known. */
    QString player() const { return m_player; }

Q_SIGNALS:
    /** Watching begins or ends: @p name is now the player's (empty: none is known). */
    void playerChanged(const QString& name);
    /** The player's process left the bus without saying it ended. */
    void playerGone();

private:
    void setPlayer(const QString& name);

    QString m_player;
};
