// Paints an SVG picture into PNG files, one for each size: desktops want both. Runs while building.
//
// Usage: tarnwick_render_icon PICTURE.svg SIZE=FILE.png...

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdlib>
#include <iostream>

namespace {

bool Render(QSvgRenderer& picture, int pixels, const QString& file) {
    QImage image(pixels, pixels, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    picture.render(&painter, QRectF(0, 0, pixels, pixels));
    painter.end();
    return image.save(file, "PNG");
}

}  // namespace

int main(int argc, char** argv) {
    QSvgRenderer picture;
    bool bGood = argc > 2 && picture.load(QString::fromLocal8Bit(argv[1]));
    for (int i = 2; i < argc && bGood; ++i) {
        const QString word = QString::fromLocal8Bit(argv[i]);
        const int pixels = word.section('=', 0, 0).toInt();
        bGood = pixels > 0 && Render(picture, pixels, word.section('=', 1));
    }
    if (!bGood) {
        std::cerr << "Usage: tarnwick_render_icon PICTURE.svg SIZE=FILE.png...\n";
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
