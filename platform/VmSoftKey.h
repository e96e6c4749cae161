#pragma once
// The toolkit's soft-key bar at the bottom of a main widget: key 0 on the
// left, key 1 on the right.

#include <QString>
#include <QWidget>

#include <memory>

class VmOptionsMenu;

class VmSoftKey : public QWidget {
    Q_OBJECT
public:
    explicit VmSoftKey(QWidget* parent = nullptr);
    ~VmSoftKey() override;

    /** Sets the text of @p key (0 left, 1 right); a text of a lower
     *  @p priority than the one shown does not replace it. A null text clears the key. */
    void setText(int key, const QString& text, int priority = 0);
    QString text(int key) const;
    /** Pressing @p key pops @p menu up instead of emitting clicked(); null detaches. */
    void setOptMenu(int key, VmOptionsMenu* menu);
    VmOptionsMenu* optMenu(int key) const;
    /** Presses and releases @p key as a click does. */
    void click(int key);
    /** Puts @p key back in its released look (after a long press that opened something). */
    void slotBtnReleased(int key);

Q_SIGNALS:
    /** Key @p key was clicked and has no menu attached. */
    void clicked(int key);
    void leftClicked();
    void rightClicked();

private:
    struct Private;
    std::unique_ptr<Private> d;
};
