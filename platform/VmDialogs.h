#pragma once
// The toolkit's modal dialogs. exec() runs the dialog and returns the answer:
// a notice closes with 1; a question answers 1 (Yes) or 0 (No).

#include <QString>

class QWidget;

/** A modal pop-up window: what every dialog of the toolkit is. */
class VmPopup {
public:
    virtual ~VmPopup() = default;
    /** Runs the pop-up until the user closes it; returns the answer. */
    virtual int exec() = 0;
};

/** A notice: a text the user acknowledges. */
class VmNoticeDlg : public VmPopup {
public:
    VmNoticeDlg(int type, const QString& title, const QString& text, QWidget* parent = nullptr);
    int exec() override;

private:
    int m_type;
    QString m_title;
    QString m_text;
};

/** A question the user answers Yes or No (type 1), or an information notice (type 2). */
class VmMessageDlg : public VmPopup {
public:
    VmMessageDlg(int type, const QString& title, const QString& text, QWidget* parent = nullptr);
    /** The toolkit's full form: @p buttons 0 gives the type's own buttons;
     *  @p name and @p flags are the widget's. */
    VmMessageDlg(const QString& title, const QString& text, int type, int buttons, QWidget* parent,
                 const char* name, bool modal, int flags = 0);
    /** The image shown beside the title (e.g. "error_pop.gif"); none by default. */
    void setTitleIcon(const QString& image) { m_titleIcon = image; }
    QString titleIcon() const { return m_titleIcon; }
    int exec() override;

private:
    int m_type;
    QString m_title;
    QString m_text;
    QString m_titleIcon;
};

/** A progress bar from 0 to a maximum. */
class VmMeterModule {
public:
    /** A meter up to @p maximum; @p step, @p parent, @p name, @p flags and the
     *  two skin classes (bar and frame) are the toolkit's. */
    VmMeterModule(int maximum, int step, QWidget* parent, const char* name, int flags, int barSkin,
                  int frameSkin);
    int maximum() const { return m_maximum; }
    int value() const { return m_value; }
    /** Moves the bar to @p value, kept within 0..maximum(). */
    void setValue(int value);

private:
    int m_maximum;
    int m_value = 0;
};

/** A notice that stays on screen while work goes on, with an optional meter. */
class VmNoticeDelay {
public:
    /** @p meter is shown in the notice and not owned: it must outlive the notice. */
    VmNoticeDelay(const QString& title, VmMeterModule* meter, QWidget* parent, const QString& text, int type);
    ~VmNoticeDelay();
    VmMeterModule* meter() const { return m_meter; }
    void setInstructionText(const QString& text) { m_text = text; }
    QString instructionText() const { return m_text; }
    /** Puts the notice on screen; it stays until it is deleted. */
    void show();

private:
    QString m_title;
    VmMeterModule* m_meter;
    QString m_text;
    int m_type;
    bool m_shown = false;
    VmNoticeDelay(const VmNoticeDelay&) = delete;
    VmNoticeDelay& operator=(const VmNoticeDelay&) = delete;
};
