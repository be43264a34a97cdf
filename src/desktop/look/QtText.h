#pragma once

#include <QString>
#include <string>

namespace kvi {

inline QString ToQt(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

// A caption as it reads: "&&" is one ampersand, a single one only marks the access key.
QString PlainCaption(const QString& caption);

}  // namespace kvi
