#pragma once
// The toolkit's modal dialogs. exec() runs the dialog and returns the answer:
// a notice closes with 1; a question answers 1 (Yes) or 0 (No).

#include <QString>

class QWidget;

/** A notice: a text the user acknowledges. */
class VmNoticeDlg {
public:
    VmNoticeDlg(int type, const QString& title, const QString& text, QWidget* parent = nullptr);
    int exec();

private:
    int m_type;
    QString m_title;
    QString m_text;
};

/** A question the user answers Yes or No. */
class VmMessageDlg {
public:
    VmMessageDlg(int type, const QString& title, const QString& text, QWidget* parent = nullptr);
    int exec();

private:
    int m_type;
    QString m_title;
    QString m_text;
};
