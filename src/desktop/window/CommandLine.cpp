#include "desktop/window/CommandLine.h"

namespace kvi {

QStringList SplitCommandLine(const QString& line) {
  QStringList words;
  QString word;
  bool quoted = false, begun = false;
  for (const QChar character : line) {
    if (character == '"') {
      quoted = !quoted;
      begun = true;
    } else if (character == ' ' && !quoted) {
      if (begun) words << word;
      word.clear();
      begun = false;
    } else {
      word += character;
      begun = true;
    }
  }
  if (begun) words << word;
  return words;
}

}  // namespace kvi
