#include "app/shell/diagram_painting.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdlib>
#include <iostream>
#include <iterator>

#include "diagram/diagram_svg.h"
#include "diagram/picture_frames.h"

namespace tarnwick {
namespace {

constexpr int MaxSide = MaxDiagramSize + MaxDiagramSize / 2;

QByteArray BytesOf(std::string_view text) {
    return {text.data(), static_cast<qsizetype>(text.size())};
}

}  // namespace

std::string PngOfSvg(std::string_view svg) {
    QSvgRenderer renderer;
    if (!renderer.load(BytesOf(svg))) {
        return {};
    }
    const QSize size = renderer.defaultSize();
    if (size.isEmpty() || size.width() > MaxSide || size.height() > MaxSide) {
        return {};
    }
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull()) {
        return {};
    }
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    return image.save(&png, "PNG") ? png.data().toStdString() : std::string();
}

int PaintPictures(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Nobody who paints a picture in a terminal wants to hear of missing desktop folders.
    qputenv("QT_LOGGING_RULES", "*.warning=false");
    const QGuiApplication application(argc, argv);
    const std::string input(std::istreambuf_iterator<char>(std::cin), {});
    std::string_view rest = input;
    while (const auto svg = TakePictureFrame(rest)) {
        std::cout << PictureFrame(PngOfSvg(*svg));
    }
    return rest.empty() && std::cout.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace tarnwick
