// SPDX-License-Identifier: GPL-3.0-or-later
// render_icon <drawing .svg> <width> <picture .png>
#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() != 4)
        return 2;
    QSvgRenderer drawing(words[1]);
    const int width = words[2].toInt();
    QImage picture(width, width, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing.render(&painter);
    painter.end();
    if (drawing.isValid() && width > 0 && picture.save(words[3]))
        return 0;
    std::fprintf(stderr, "render_icon: %s can't be rendered\n", qUtf8Printable(words[1]));
    return 1;
}
