#include "jet/engine/ChangeWatch.h"

#include <sqlite3.h>

#include <array>

namespace kvi::jet {
namespace {

// Where the counters stand in the file's header, as big-endian numbers.
// (The engine keeps the number for whoever uses it.)
constexpr std::size_t kChangeCounter = 24, kSchemaCookie = 40, kUserVersion = 60, kEnd = 64;

std::uint32_t NumberAt(const unsigned char* bytes) {
  return static_cast<std::uint32_t>(bytes[0]) << 24 | static_cast<std::uint32_t>(bytes[1]) << 16 |
         static_cast<std::uint32_t>(bytes[2]) << 8 | bytes[3];
}

}  // namespace

void ChangeWatch::Look() {
  std::array<unsigned char, kEnd - kChangeCounter> bytes{};
  sqlite3_file* file = connection_.File();
  file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), kChangeCounter);
  const std::uint32_t counter = NumberAt(bytes.data());
  const std::uint32_t schema = NumberAt(bytes.data() + (kSchemaCookie - kChangeCounter));
  if (counter != counter_) ++epoch_;
  if (schema != schema_) ++schemaEpoch_;
  counter_ = counter;
  schema_ = schema;
  generation_ = NumberAt(bytes.data() + (kUserVersion - kChangeCounter));
}

}  // namespace kvi::jet
