#pragma once

class QImage;

namespace corvane {

class clsImageDIB;

// Copies a picture into an in-memory bitmap for the JPEG encoder; false for an empty picture.
bool CopyImageToDIB(const QImage& image, clsImageDIB& picture);
// The whole primary screen; false where the platform cannot grab it.
bool CaptureDesktop(clsImageDIB& picture);

} // namespace corvane
