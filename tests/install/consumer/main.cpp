// consumer FOLDER: makes the player's main window through the library's entry
// points and deletes it, then lists FOLDER with the library's folder list
// from FOLDER/b.mp3, and prints what it found.

#include <QApplication>
#include <QFileInfo>
#include <QString>

#include <cstdio>

#include "lists/MP_FolderList.h"
#include "mainwindow/MP_LibraryEntry.h"

int main(int argc, char** argv)
{
    if (argc != 2)
        return 64;
    QApplication app(argc, argv);
    MP_MainWindow* window = MP_CreateMainWindow(QString());
    if (!window) {
        std::fprintf(stderr, "consumer: no main window\n");
        return 1;
    }
    MP_DeleteMainWindow(window);
    MP_FolderList list(QString::fromLocal8Bit(argv[1]) + QStringLiteral("/b.mp3"), MP_FolderList::SortByName);
    std::printf("window made and deleted; folder list: %u entries, current %d: %s\n", list.count(),
                list.getCurrentIndex(), qPrintable(QFileInfo(list.getCurrent()).fileName()));
    return 0;
}
