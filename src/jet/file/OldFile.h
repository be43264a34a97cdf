#pragma once

#include <string>
#include <vector>

#include "jet/file/PageFile.h"

namespace kvi::jetfile {

// What a file says that it holds. A linked table is neither empty nor missing: its rows are in
// another file.
struct Object {
  enum class Kind { Table, Linked, Query };
  Kind kind;
  std::string Name;
  std::uint32_t Page = 0;     // of a table's definition
  std::string Place, Within;  // of a linked table: the other file, and its name there
};

// A Jet 3 or Jet 4 file, opened to be read: its pages and its catalogue of user tables.
class OldFile {
 public:
  // Raises as PageFile, and Damaged where there is no catalogue.
  OldFile(const std::string& path, const std::string& password);

  PageFile& Pages() { return pages_; }
  // In the order of their names in the file's catalogue.
  const std::vector<Object>& Objects() const { return objects_; }
  // What is missing of the catalogue: tables that it does not name cannot be read.
  const std::vector<std::string>& Damage() const { return damage_; }
  std::string VersionName() const;

 private:
  void ReadCatalogue();

  PageFile pages_;
  std::vector<Object> objects_;
  std::vector<std::string> damage_;
};

}  // namespace kvi::jetfile
