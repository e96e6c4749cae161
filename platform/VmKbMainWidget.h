#pragma once
// The toolkit's keyboard main widget: the top-level window of a phone
// application. The player screen's soft keys and menus hang on it.

#include <QWidget>

class VmKbMainWidget : public QWidget {
    Q_OBJECT
public:
    explicit VmKbMainWidget(QWidget* parent = nullptr);
    ~VmKbMainWidget() override;
};
