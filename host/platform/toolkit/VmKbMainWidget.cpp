#include "platform/VmKbMainWidget.h"

VmKbMainWidget::VmKbMainWidget(QWidget* parent) : QWidget(parent)
{
    setWindowTitle(QStringLiteral("Media Player"));
}

VmKbMainWidget::~VmKbMainWidget() = default;
