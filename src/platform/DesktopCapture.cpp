#include "platform/DesktopCapture.h"

#include "reports/clsImageDIB.h"

#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>

namespace corvane {

bool CopyImageToDIB(const QImage& image, clsImageDIB& picture) {
    if (image.isNull()) {
        return false;
    }
    const QImage rgb = image.convertToFormat(QImage::Format_RGB888);
    if (!picture.Create(rgb.width(), rgb.height(), 24)) {
        return false;
    }
    picture.CopyPixels(rgb.constBits(), 3, static_cast<int>(rgb.bytesPerLine()));
    return true;
}

bool CaptureDesktop(clsImageDIB& picture) {
    QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) {
        return false;
    }
    return CopyImageToDIB(screen->grabWindow(0).toImage(), picture);
}

} // namespace corvane
