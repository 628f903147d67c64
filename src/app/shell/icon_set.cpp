#include "app/shell/icon_set.h"

#include <QPainter>
#include <QSvgRenderer>
#include <cmath>

// The toolkit's macro declares a function, which must not stand in a namespace.
static void InitResources() {
    Q_INIT_RESOURCE(images);
}

namespace tarnwick {
namespace {

QPixmap Rendered(const QString& name, int pixels) {
    LoadPictures();
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QSvgRenderer picture(QString(":/icons/%1.svg").arg(name));
    if (picture.isValid()) {
        picture.render(&painter, QRectF(0, 0, pixels, pixels));
    }
    return pixmap;
}

}  // namespace

void LoadPictures() {
    InitResources();
}

QPixmap ButtonPixmap(const QString& name, int size, qreal devicePixelRatio, const QColor& colour) {
    QPixmap pixmap = Rendered(name, static_cast<int>(std::lround(size * devicePixelRatio)));
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), colour);
    painter.end();
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

QIcon ProgramIcon(TProgramIcon state) {
    const QString name = state == TProgramIcon::Running    ? "program_running"
                         : state == TProgramIcon::Finished ? "program_finished"
                                                           : "program";
    QIcon icon;
    for (const int pixels : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addPixmap(Rendered(name, pixels));
    }
    return icon;
}

}  // namespace tarnwick
