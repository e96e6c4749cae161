#pragma once
// The toolkit's keyboard main widget: the top-level window of a phone
// application. The player screen's soft keys and menus hang on it.

#include <QWidget>

class QKeyEvent;
class VmSoftKey;

class VmKbMainWidget : public QWidget {
    Q_OBJECT
public:
    explicit VmKbMainWidget(QWidget* parent = nullptr);
    ~VmKbMainWidget() override;

    /** The soft-key bar at the bottom; @p create makes it on the first call
     *  (null when it does not exist and @p create is false). */
    VmSoftKey* getSoftKey(bool create);
    /** The area above the soft-key bar, where the application lays out its screen. */
    QWidget* contentArea() const;

protected:
    /** F1 and the left soft key (Context1) press soft key 0; F2 and the right
     *  soft key (Context2) press soft key 1. */
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* m_content;   // owned by the widget
    VmSoftKey* m_softKey; // owned by the widget; null until asked for
};
