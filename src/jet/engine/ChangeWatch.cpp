#include "jet/engine/ChangeWatch.h"

namespace kvi::jet {

void ChangeWatch::Look() {
  const Connection::Counters now = connection_.Look();
  if (now.commits != seen_.commits) ++epoch_;
  if (now.schema != seen_.schema) ++schemaEpoch_;
  seen_ = now;
}

}  // namespace kvi::jet
