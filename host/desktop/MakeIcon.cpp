// mp-icon FOLDER SIZE...: draws the player's icon (a rounded blue tile with a
// play sign in a ring) once for each SIZE, as FOLDER/SIZE.png. The build runs
// it for the icon theme's sizes; it is not installed.

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QString>

#include <cstdio>

namespace {
// Drawn on a 256-unit square, scaled to the size.
QImage drawIcon(int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 256.0, size / 256.0);

    QLinearGradient tile(0, 0, 0, 256);
    tile.setColorAt(0, QColor(0x2f, 0x8f, 0xdc));
    tile.setColorAt(1, QColor(0x17, 0x3a, 0x8a));
    painter.setPen(Qt::NoPen);
    painter.setBrush(tile);
    painter.drawRoundedRect(QRectF(8, 8, 240, 240), 48, 48);

    painter.setPen(QPen(QColor(255, 255, 255, 210), 14));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(128, 128), 86, 86);

    QPainterPath play;
    play.moveTo(104, 84);
    play.lineTo(182, 128);
    play.lineTo(104, 172);
    play.closeSubpath();
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawPath(play);
    return image;
}
} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fprintf(stderr, "usage: mp-icon FOLDER SIZE...\n");
        return 64;
    }
    for (int i = 2; i < argc; ++i) {
        bool ok = false;
        const int size = QByteArray(argv[i]).toInt(&ok);
        if (!ok || size < 1 || size > 1024) {
            std::fprintf(stderr, "mp-icon: not a size from 1 to 1024: %s\n", argv[i]);
            return 64;
        }
        const QString path = QString::fromLocal8Bit(argv[1]) + QStringLiteral("/%1.png").arg(size);
        if (!drawIcon(size).save(path, "PNG")) {
            std::fprintf(stderr, "mp-icon: cannot write %s\n", qPrintable(path));
            return 1;
        }
    }
    return 0;
}
