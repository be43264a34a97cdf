#pragma once

#include <cstdint>
#include <string>

#include "jet/engine/Connection.h"

namespace kvi::jet {

// Another database file beside the open one, read and never written, until the end of this. It must
// be attached while no transaction is open.
class SourceFile {
 public:
  SourceFile(Connection& connection, const std::string& path);
  ~SourceFile();
  SourceFile(const SourceFile&) = delete;
  SourceFile& operator=(const SourceFile&) = delete;

 private:
  Connection& connection_;
};

// Puts the tables of the attached source, with their rows and indexes, in the place of all that
// stand in the open file, under the lock that is held. `generation` is what the file is to tell of
// its content from now on.
void ReplaceContent(Connection& connection, std::uint32_t generation);

}  // namespace kvi::jet
