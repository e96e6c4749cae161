#pragma once
// An engine for client tests: plays what a test sets (content and medium
// type, a file or a list), has a main widget (soft keys, options menu), and
// hands out a control that records the commands it receives as "name(args)"
// strings, or no control at all.

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
    void setMute(bool) override {}
    void setVolume(int) override {}
    void requestUpdate(MP_PlayerListener*) override {}
};

class FakeScreenEngine : public MP_CommonPlayer {
public:
    FakeControl control;
    bool hasControl = true;
    VmKbMainWidget widget;
    int content = MP_CONTENT_SOUND;
    int medium = MP_MEDIUM_LOCAL;
    QString path;
    MP_ListInterface* list = nullptr;

    void setFile(const QString&) override {}
    void setPlayList(MP_ListInterface*) override {}
    void showPlayer() override {}
    void closePlayerWindow() override {}
    int flipClosed() override { return 0; }
    void autoPlay(bool) override {}
    void notifyCurrentChanged() override {}
    VmKbMainWidget* getMainWidget() override { return &widget; }
    void setShuffleRepeat(bool, bool) override {}
    MP_CONTENT_TYPE getContentType() override { return MP_CONTENT_TYPE(content); }
    bool isPlayerShown() override { return true; }
    void setNormalSize(bool) override {}
    QString getCurrentPath() override { return path; }
    MP_PlayerControl* getPlayerControl() override { return hasControl ? &control : nullptr; }
    MP_ListInterface* getCurrentList() override { return list; }
    int getMediumType() override { return medium; }
    void addListListener(MP_ListListener*) override {}
    void removeListListener(MP_ListListener*) override {}
    void addPlayerListener(MP_PlayerListener*) override {}
    void removePlayerListener(MP_PlayerListener*) override {}
};
