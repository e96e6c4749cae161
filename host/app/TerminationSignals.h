#pragma once
// Turns SIGINT and SIGTERM into a Qt signal on the event loop, so that
// Ctrl-C ends the player through the same orderly tear-down as a quit
// (the window is deleted through the library, the journal completed).
// Should that end not be over 10 s after the request (the media back end
// locked up), the process says so on standard error and ends with status 1.

#include <QObject>

class QSocketNotifier;

class TerminationSignals : public QObject {
    Q_OBJECT
public:
    explicit TerminationSignals(QObject* parent = nullptr);
    ~TerminationSignals() override;

Q_SIGNALS:
    void terminationRequested();

private:
    void onReadable();
    QSocketNotifier* m_notifier = nullptr;  // owned through the QObject tree
};
