#pragma once
// The toolkit's keyboard main widget: the top-level window of a phone
// application. The player screen's soft keys and menus hang on it.

#include <QWidget>

class VmSoftKey;

class VmKbMainWidget : public QWidget {
    Q_OBJECT
public:
    explicit VmKbMainWidget(QWidget* parent = nullptr);
    ~VmKbMainWidget() override;

    /** The soft-key bar at the bottom; @p create makes it on the first call
     *  (null when it does not exist and @p create is false). */
    VmSoftKey* getSoftKey(bool create);
};
