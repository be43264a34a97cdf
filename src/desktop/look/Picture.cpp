#include "desktop/look/Picture.h"

#include <QImageReader>

namespace kvi {

QImage ReadPicture(const QString& path) {
  QImageReader reader(path);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  return reader.read();
}

}  // namespace kvi
