#include "host/platform/toolkit/HostDialogs.h"

#include <QList>
#include <QMessageBox>

#include "host/platform/HostJournal.h"

namespace {

struct QueuedAnswer {
    int answer;
    std::function<void()> whileOpen;
};

struct DialogAnswers {
    QList<QueuedAnswer> queued;
    bool interactive = false;
    QString lastText;
};

DialogAnswers& answers()
{
    static DialogAnswers state;
    return state;
}

int askInWindow(HostDialogs::Kind kind, const QString& title, const QString& text)
{
    if (kind == HostDialogs::Kind::Notice) {
        QMessageBox::information(nullptr, title, text);
        return 1;
    }
    return QMessageBox::question(nullptr, title, text) == QMessageBox::Yes ? 1 : 0;
}

} // namespace

void HostDialogs::queueAnswer(int answer, std::function<void()> whileOpen)
{
    answers().queued.append(QueuedAnswer{answer, std::move(whileOpen)});
}

void HostDialogs::clearAnswers()
{
    answers().queued.clear();
}

void HostDialogs::setInteractive(bool interactive)
{
    answers().interactive = interactive;
}

bool HostDialogs::isInteractive()
{
    return answers().interactive;
}

QString HostDialogs::lastText()
{
    return answers().lastText;
}

int HostDialogs::run(Kind kind, const QString& className, int type, const QString& title, const QString& text,
                     const QString& titleIcon)
{
    int answer = kind == Kind::Notice ? 1 : 0;
    // A notice's one button leaves nothing to choose: a queued answer waits
    // for the question it was meant for.
    if (kind == Kind::Question && !answers().queued.isEmpty()) {
        const QueuedAnswer queued = answers().queued.takeFirst();
        if (queued.whileOpen)
            queued.whileOpen();
        answer = queued.answer;
    } else if (answers().interactive) {
        answer = askInWindow(kind, title, text);
    }
    answers().lastText = text;
    HostJournal::dialog(className, type, title, text, answer, titleIcon);
    return answer;
}
