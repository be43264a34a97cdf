#pragma once

#include <functional>
#include <string>

#include "jet/Conversion.h"

namespace kvi {

class Progress;

// Makes a database of this program out of the file of an older one. An inventory gets what it lacks
// of our tables, fields, indexes and column widths; any other file is taken as it is. Raises as
// jet::ConvertOldFile; the order's own schema does not count.
jet::Conversion ConvertInventory(jet::ConversionOrder order, const std::string& to);

// Tells a progress of each table, as the order of a conversion wants it; `doing` is "Converting".
std::function<void(const std::string&, int, int)> TablesOn(Progress& progress,
                                                           const std::string& doing);

// The protocol for people, a line each: the tables with their rows, what is missing, the notes.
std::string ProtocolText(const jet::Conversion& protocol);

// The lock file that the older program keeps beside a database while a desk has it open; empty
// where there is none.
std::string LockFileBeside(const std::string& path);

}  // namespace kvi
