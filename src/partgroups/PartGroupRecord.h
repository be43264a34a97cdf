#pragma once

#include <string>
#include <vector>

#include "jet/Database.h"

namespace kvi {

// A part group in its tables: a row of R_Master, and its lines in Inv_Recipe, tied by the group's
// number alone. What is written of a group is written whole or not at all.

struct PartGroupHeader {
  std::string number, name, category, notes;
};

struct PartGroupEntry {
  std::string inv_id, iname, how_used;
  double qty = 0;
  Value cost_per;
  std::string desc, notes;
};

// The statement of a group's lines, in the order of their parts.
std::string LinesOfGroup(const std::string& number);
std::string LinesOfGroup(const std::string& number, int profitCenter);

PartGroupHeader ReadHeader(const jet::Recordset& group);
// The lines of a statement, without their quantities: those are typed anew at each opening. A line
// bears the part's present name where `items` has the part, else the name it was made with.
std::vector<PartGroupEntry> ReadEntries(jet::Database& database, const std::string& statement,
                                        jet::Recordset& items);

struct PartGroupSave {
  bool isNew = false;  // else the row on which the set stands is changed
  int profitCenter = 0;
  PartGroupHeader header;
  std::vector<PartGroupEntry> entries;
  std::string replaced;  // the statement of the lines that go
};

// Writes a group, after which the set stands on it. What another desk wrote to the row meanwhile is
// written over; one that is gone is 3167, a number in use 3022. After a failure there is no edit
// open, and a new group's set stands on no row.
void WriteGroup(jet::Database& database, jet::Recordset& groups, const PartGroupSave& save);

// Adds a copy of a group, with the mark of a duplicate behind its number and name; header and cost
// are the caller's. Neither the header nor the lines are given a profit center, so a copy starts in
// the first one. False where the copy's number is in use. More than 100 lines raise 9, and then the
// header alone is made.
bool DuplicateGroup(jet::Database& database, jet::Recordset& groups,
                    const PartGroupHeader& original, double cost);

}  // namespace kvi
