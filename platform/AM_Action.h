#pragma once
// The application framework's action records: an action name with string
// key/value pairs, the receiver that delivers records sent to this
// application, and the parser that hands over the launch action.

#include <QMap>
#include <QObject>
#include <QString>

namespace AM_Global {
/** Application ids of the framework. */
enum Apps { MediaPlayer = 71 };
}

/** One action record. A missing key reads as a null string. */
class AM_ActionData {
public:
    AM_ActionData() = default;
    explicit AM_ActionData(const QString& action) : m_action(action) {}

    QString action() const { return m_action; }
    void setAction(const QString& action) { m_action = action; }

    /** The value of @p key; a null string when absent. */
    QString getValue(const QString& key) const { return m_values.value(key); }
    void setValue(const QString& key, const QString& value) { m_values.insert(key, value); }
    bool hasKey(const QString& key) const { return m_values.contains(key); }
    const QMap<QString, QString>& values() const { return m_values; }

    /** Sends the record to the application that handles its action.
     *  @p wait asks to wait for the handler to finish. Returns true when sent. */
    bool invoke(bool wait) const;

private:
    QString m_action;
    QMap<QString, QString> m_values;
};

/** Delivers the action records that other applications send to this one. */
class AM_ActionReceiver : public QObject {
    Q_OBJECT
public:
    /** The process's one receiver. */
    static AM_ActionReceiver* instance();

    /** Hands @p action to every connected receiver (the framework calls it). */
    void deliver(const AM_ActionData& action);

Q_SIGNALS:
    void receiveAction(const AM_ActionData& action);

private:
    AM_ActionReceiver() = default;
};

/** Reads the action with which this application was launched. */
class AM_ActionParser {
public:
    AM_ActionParser();
    /** The launch action; a record with an empty name when the application
     *  was launched without one. */
    AM_ActionData action() const { return m_action; }
    bool hasAction() const { return !m_action.action().isEmpty(); }

private:
    AM_ActionData m_action;
};
