#pragma once

#include <functional>
#include <string>
#include <vector>

#include "jet/TableDef.h"

namespace kvi::jet {

// What became of one table of an older program's file.
struct ConvertedTable {
  std::string Name;
  int Declared = 0, Rows = 0;            // the rows that its file counts, and those that were taken
  std::vector<std::string> Losses = {};  // what was damaged
  std::vector<std::string> LeftOut = {};  // what no field of ours can hold: pictures and the like
};

// The protocol of a conversion.
struct Conversion {
  std::string Format;  // "Jet 3" or "Jet 4"
  std::vector<ConvertedTable> Tables;
  std::vector<std::string> Losses;  // of the file as a whole, such as tables in another file
  std::vector<std::string> Notes;   // what is not as it was, with nothing lost

  bool IsWhole() const { return AllLosses().empty(); }
  bool HasTable(const std::string& name) const;
  // All that is missing, a line each, with the table's name.
  std::vector<std::string> AllLosses() const;
};

// What is to be converted. The schema counts for a file that has its first table: then tables that
// it has too get those of its fields that they lack, and its indexes; tables that the file lacks
// are made, without rows. An index that cannot be unique, as rows of the file share its key, is
// made a plain one.
struct ConversionOrder {
  std::string From;
  std::string Password = {};
  std::vector<TableDef> Schema = {};
  // Told of each table now and then: how many of its rows are done.
  std::function<void(const std::string& table, int done, int total)> Progress = {};
};

// Whether a Jet 3 or Jet 4 file asks for a password. Raises why no password would help: 3024, 3051,
// 3343, 3049.
bool AsksForPassword(const std::string& path);

// Reads a Jet 3 or Jet 4 file to its end and writes nothing. Raises, as ConvertOldFile, why it
// cannot be read: 3024, 3051, 3343, 3031 for a password that is missing or wrong, 3049 for damage
// that leaves nothing to read, 3051 as well where somebody wrote to the file meanwhile. Any other
// damage is a loss in the protocol.
Conversion CheckOldFile(const ConversionOrder& order);
// The same, and makes a new database file of all that can be read, safe on the disk when it
// returns. Raises 3204 when a file stands there already, and leaves none when it fails.
Conversion ConvertOldFile(const ConversionOrder& order, const std::string& to);

}  // namespace kvi::jet
