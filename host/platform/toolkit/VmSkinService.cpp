#include "platform/VmSkinService.h"

#include <QApplication>
#include <QPalette>

VmSkinService* VmSkinService::instance()
{
    static VmSkinService service;
    return &service;
}

// The host has one skin for every widget class: the desktop's palette and
// font, so the window reads as the rest of the desktop does.
QColor VmSkinService::backgroundColor(int skinClass) const
{
    Q_UNUSED(skinClass);
    return QApplication::palette().color(QPalette::Window);
}

QColor VmSkinService::textColor(int skinClass) const
{
    Q_UNUSED(skinClass);
    return QApplication::palette().color(QPalette::WindowText);
}

QFont VmSkinService::font(int skinClass) const
{
    Q_UNUSED(skinClass);
    return QApplication::font();
}
