// SPDX-License-Identifier: MIT
// Renders the application's icon at the sizes that desktops use: render-icons SVG FOLDER SIZE...
// writes FOLDER/SIZE.png.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

int main(int argc, char** argv) {
  if (argc < 4) {
    qWarning("usage: render-icons SVG FOLDER SIZE...");
    return 2;
  }
  QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
  for (int i = 3; i < argc; ++i) {
    const int size = QByteArray(argv[i]).toInt();
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    const QString file = QString::fromLocal8Bit(argv[2]) + "/" + argv[i] + ".png";
    if (!drawing.isValid() || !image.save(file)) {
      qWarning("%s cannot be drawn", qPrintable(file));
      return 1;
    }
  }
  return 0;
}
