#pragma once
// Phone services: flip, key events.

#include <QString>

/** 1 while the flip is closed, 0 while open. */
int UTIL_GetFlipStatus();
/** Name of the channel on which the phone broadcasts "keyMsg(int,int)". */
QString UTIL_GetKeyEventChannel();
