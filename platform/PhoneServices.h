#pragma once
// Phone services: flip, key events, key repeat, phone lock.

#include <QString>

/** 1 while the flip is closed, 0 while open. */
int UTIL_GetFlipStatus();
/** Name of the channel on which the phone broadcasts "keyMsg(int,int)". */
QString UTIL_GetKeyEventChannel();
/** Milliseconds between two repeats of a held key; always at least 1. */
int UTIL_GetTimeBetweenKeyRepeat();
/** Nonzero while the phone is locked: keys then belong to the lock screen. */
int UTIL_GetPhoneLockStatus();
