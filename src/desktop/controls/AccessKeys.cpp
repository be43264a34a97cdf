#include "desktop/controls/AccessKeys.h"

namespace kvi {

namespace {

// Where the "&" of the access key stands, or -1.
qsizetype MarkIn(const QString& caption) {
  for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[i + 1] != '&') return i;
    ++i;
  }
  return -1;
}

}  // namespace

QString AccessKeys::Claim(const void* owner, const QString& caption) {
  std::erase_if(owners_, [owner](const auto& entry) { return entry.second == owner; });
  const qsizetype mark = MarkIn(caption);
  if (mark < 0) return caption;
  if (owners_.emplace(caption[mark + 1].toUpper(), owner).second) return caption;
  return QString(caption).remove(mark, 1);
}

}  // namespace kvi
