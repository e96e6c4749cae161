#pragma once
// The size of the host phone's screen in logical pixels: the main widget's
// window, its soft-key bar at the bottom and the content area above it.

class HostScreen {
public:
    static constexpr int kWidth = 240;
    static constexpr int kHeight = 320;
    static constexpr int kSoftKeyHeight = 32;
};
