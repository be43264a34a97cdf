#pragma once

#include <QChar>
#include <QString>
#include <map>

namespace kvi {

// The access keys of one window, each given out once: who comes second keeps the caption without.
class AccessKeys {
 public:
  // The caption to show for `owner`; a key that it had before is free again.
  QString Claim(const void* owner, const QString& caption);

 private:
  std::map<QChar, const void*> owners_;
};

}  // namespace kvi
