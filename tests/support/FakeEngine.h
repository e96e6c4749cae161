#pragma once
// An engine for client tests: records the calls it receives as "name(args)"
// strings and hands out a control that does the same, or no control at all.
// FakeScreenEngine adds a main widget (soft keys, options menu) and plays
// what a test sets: content and medium type, a file or a list.

#include <QStringList>

#include "platform/MP_CommonPlayer.h"
#include "platform/VmKbMainWidget.h"

class FakeControl : public MP_PlayerControl {
public:
    QStringList calls;
    MP_PLAYER_STATE state = MP_STATE_STOPPED;

    void playPause() override { calls << "playPause()"; }
    void next() override { calls << "next()"; }
    void previous() override { calls << "previous()"; }
    void play() override { calls << "play()"; }
    void pause() override { calls << "pause()"; }
    void stop() override { calls << "stop()"; }
    void seek(int offset) override { calls << QStringLiteral("seek(%1)").arg(offset); }
    void seekFinished() override { calls << "seekFinished()"; }
    MP_PLAYER_STATE getState() override { return state; }
    QString getContentName() override { return QStringLiteral("Song"); }
    void getErrorInfo(QString& detail, QString& message) override { detail = message = QString(); }
    void setMute(bool mute) override { calls << QStringLiteral("setMute(%1)").arg(mute); }
    void setVolume(int level) override { calls << QStringLiteral("setVolume(%1)").arg(level); }
    void requestUpdate(MP_PlayerListener*) override { calls << "requestUpdate()"; }
};

class FakeEngine : public MP_CommonPlayer {
public:
    QStringList calls;
    FakeControl control;
    bool hasControl = true;

    FakeEngine() = default;
    ~FakeEngine() override = default;

    void setFile(const QString& path) override { calls << "setFile(" + path + ")"; }
    void setPlayList(MP_ListInterface* list) override { calls << QStringLiteral("setPlayList(%1)").arg(list ? "list" : "null"); }
    void showPlayer() override { calls << "showPlayer()"; }
    void closePlayerWindow() override { calls << "closePlayerWindow()"; }
    int flipClosed() override { calls << "flipClosed()"; return 0; }
    void autoPlay(bool slideShow) override { calls << QStringLiteral("autoPlay(%1)").arg(slideShow); }
    void notifyCurrentChanged() override { calls << "notifyCurrentChanged()"; }
    VmKbMainWidget* getMainWidget() override { return nullptr; }
    void setShuffleRepeat(bool shuffle, bool repeat) override
    {
        calls << QStringLiteral("setShuffleRepeat(%1,%2)").arg(shuffle).arg(repeat);
    }
    MP_CONTENT_TYPE getContentType() override { return MP_CONTENT_SOUND; }
    bool isPlayerShown() override { return true; }
    void setNormalSize(bool) override {}
    QString getCurrentPath() override { return QString(); }
    MP_PlayerControl* getPlayerControl() override { return hasControl ? &control : nullptr; }
    MP_ListInterface* getCurrentList() override { return nullptr; }
    int getMediumType() override { return MP_MEDIUM_LOCAL; }
    void addListListener(MP_ListListener*) override { calls << "addListListener()"; }
    void removeListListener(MP_ListListener*) override { calls << "removeListListener()"; }
    void addPlayerListener(MP_PlayerListener*) override { calls << "addPlayerListener()"; }
    void removePlayerListener(MP_PlayerListener*) override { calls << "removePlayerListener()"; }
};

class FakeScreenEngine : public FakeEngine {
public:
    VmKbMainWidget widget;
    int content = MP_CONTENT_SOUND;
    int medium = MP_MEDIUM_LOCAL;
    QString path;
    MP_ListInterface* list = nullptr;

    VmKbMainWidget* getMainWidget() override { return &widget; }
    MP_CONTENT_TYPE getContentType() override { return MP_CONTENT_TYPE(content); }
    int getMediumType() override { return medium; }
    QString getCurrentPath() override { return path; }
    MP_ListInterface* getCurrentList() override { return list; }
};
