// SPDX-License-Identifier: MIT
// Draws an SVG icon as square PNG files:  tolvex-draw-icon ICON.svg FOLDER SIZE...
// gives FOLDER/SIZE.png for each size in pixels.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

#include "platform/program_start.h"

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fputs("Usage: tolvex-draw-icon ICON.svg FOLDER SIZE...\n", stderr);
        return 2;
    }
    tolvex::ChooseUtf8Locale();
    QSvgRenderer icon(QString::fromLocal8Bit(argv[1]));
    const QString folder = QString::fromLocal8Bit(argv[2]);
    for (int i = 3; i < argc; ++i) {
        const int size = QByteArray(argv[i]).toInt();
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        icon.render(&painter);
        painter.end();
        const QString file = QStringLiteral("%1/%2.png").arg(folder).arg(size);
        if (!icon.isValid() || !image.save(file)) {
            std::fprintf(stderr, "tolvex-draw-icon: %s can't be drawn\n", qUtf8Printable(file));
            return 1;
        }
    }
    return 0;
}
