#pragma once

#include <QImage>

namespace kvi {

// The picture in a file, read anew, whatever its name says it is and turned as it was taken; a null
// one when it cannot be decoded.
QImage ReadPicture(const QString& path);

}  // namespace kvi
