#pragma once
// Where the host's modal dialogs take their answers from. A notice has one
// button: it always closes with 1 and never takes a queued answer. A
// question takes, in this order: an answer queued by a test or a script
// ("dialog answer N"); a real window when the application runs interactively
// with a display; otherwise the safe answer No (0), so that nothing is
// deleted or cancelled unasked. Every dialog is journaled.

#include <QString>

#include <functional>

class HostDialogs {
public:
    /** The next question answers @p answer (answers queue up in order).
     *  @p whileOpen, when given, runs while that question is open, before it
     *  answers: what happens in the nested event loop of a modal dialog while
     *  a person thinks (the engine plays on, say). */
    static void queueAnswer(int answer, std::function<void()> whileOpen = {});
    /** Forgets queued answers. */
    static void clearAnswers();
    /** Show real windows for dialogs without a queued answer. */
    static void setInteractive(bool interactive);
    /** Whether dialogs without a queued answer show real windows. */
    static bool isInteractive();

    enum class Kind { Notice, Question };
    /** The text of the last dialog run; null before the first. Without a
     *  display nobody saw it, so the application repeats it when it ends. */
    static QString lastText();
    /** Runs one dialog: finds its answer and journals it (with "icon" when it has a title icon). */
    static int run(Kind kind, const QString& className, int type, const QString& title, const QString& text,
                   const QString& titleIcon = QString());
};
