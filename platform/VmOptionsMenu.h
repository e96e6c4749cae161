#pragma once
// The toolkit's options menu: a pop-up menu with submenus, built from a
// parser's item list and addressed by item id afterwards.

#include <QPixmap>
#include <QRect>
#include <QWidget>

#include <memory>

class QAction;
class QMenu;
class VmOptMenuParser;

class VmOptionsMenu : public QWidget {
    Q_OBJECT
public:
    /** A menu over @p rect of @p parent (which disposes of it); @p name,
     *  @p flags and the skin class @p skinClass are the phone toolkit's and
     *  only kept. */
    VmOptionsMenu(const QRect& rect, QWidget* parent, const char* name = nullptr, int flags = 0,
                  int skinClass = 0);
    ~VmOptionsMenu() override;

    /** Replaces every item with those @p parser lists for @p name (and
     *  deletes the listed MenuItem objects). */
    void setMenu(VmOptMenuParser* parser, QString name);
    /** The name given to the last setMenu; empty after clear(). */
    QString menuName() const;
    /** Changes the text (and pixmap, when not null) of item @p id; false for an unknown id. */
    bool changeItem(int id, const QString& text, const QPixmap* pixmap = nullptr);
    /** Choosing item @p id calls @p member of @p receiver ("1slot()" form, as
     *  SLOT() writes it). Replaces an earlier connection of the item. */
    bool connectItem(int id, QObject* receiver, const char* member);
    bool setItemVisible(int id, bool visible);
    bool setItemEnabled(int id, bool enabled);
    /** Removes every item. */
    void clear();

    bool hasItem(int id) const;
    QString itemText(int id) const;
    bool isItemVisible(int id) const;
    bool isItemEnabled(int id) const;
    /** Parent id of item @p id (0 at the top); -1 for an unknown id. */
    int itemParent(int id) const;
    /** Every item id in menu order (a submenu's items right after its head). */
    QList<int> itemIds() const;

    /** Pops the menu up (emits aboutToShow first, as a click on the key does). */
    void popup();
    /** Closes the menu if it is open (emits aboutToHide). */
    void hideMenu();
    /** Triggers item @p id as a click would; false when the item is unknown,
     *  hidden, disabled or a submenu head. */
    bool chooseItem(int id);
    /** The Qt menu behind it, for a window to pop up and a test to look at. */
    QMenu* qmenu() const;

Q_SIGNALS:
    void aboutToShow();
    void aboutToHide();

private:
    struct Private;
    std::unique_ptr<Private> d;
};
