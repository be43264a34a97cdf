#include "base/RunTimeError.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kvi {
namespace {

struct Description {
  int number;
  const char* text;
};

// Sorted by number. Up to 999 the language's own errors, without a full stop; from 3000 on those
// of the database.
constexpr Description kDescriptions[] = {
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {7, "Out of memory"},
    {9, "Subscript out of range"},
    {11, "Division by zero"},
    {13, "Type mismatch"},
    {53, "File not found"},
    {55, "File already open"},
    {57, "Device I/O error"},
    {58, "File already exists"},
    {61, "Disk full"},
    {68, "Device unavailable"},
    {70, "Permission denied"},
    {71, "Disk not ready"},
    {75, "Path/File access error"},
    {76, "Path not found"},
    {91, "Object variable not set"},
    {94, "Invalid use of Null"},
    {380, "Invalid property value"},
    {381, "Invalid property array index"},
    {438, "Object doesn't support this property or method"},
    {481, "Invalid picture"},
    {482, "Printer error"},
    {3006, "The database is locked for exclusive use."},
    {3009, "The table cannot be locked; it is in use by others."},
    {3020, "Update without AddNew or Edit."},
    {3021, "No current record."},
    {3022, "The change would create a duplicate value in a unique key."},
    {3024, "The database file was not found."},
    {3027, "The database is read-only and cannot be changed."},
    {3045, "The database file is already in use."},
    {3046, "The record cannot be saved; another user has it locked."},
    {3051, "The database file cannot be opened: it is in use or not permitted."},
    {3058, "A key field cannot be Null."},
    {3061, "Too few parameters: a name in the query is not known."},
    {3075, "Syntax error in the query expression."},
    {3078, "The table or query was not found."},
    {3125, "The name is not valid."},
    {3129, "Invalid SQL statement."},
    {3134, "Syntax error in the INSERT INTO statement."},
    {3144, "Syntax error in the UPDATE statement."},
    {3151, "The server of the database cannot be reached."},
    {3158, "The record cannot be saved; it is locked by another user."},
    {3163, "The field is too small for the data."},
    {3167, "The record has been deleted."},
    {3183, "There is not enough room on the disk for the query."},
    {3186, "The record cannot be saved; it is locked by another station."},
    {3189, "The table is locked for exclusive use by another user."},
    {3191, "A field cannot be defined more than once."},
    {3197, "The data has been changed by another user since it was read."},
    {3202, "The record cannot be saved; another user holds it locked."},
    {3204, "The database already exists."},
    {3211, "The table cannot be locked; another user has it in use."},
    {3212, "The table cannot be locked; another user at another station has it in use."},
    {3218, "The record cannot be changed; it is locked."},
    {3260, "The record cannot be changed; another user has it locked."},
    {3261, "The table is locked for exclusive use."},
    {3262, "The table cannot be locked; it is in use."},
    {3265, "Item not found in this collection."},
    {3343, "Unrecognized database format."},
    {3346, "The number of values and the number of fields differ."},
    {3420, "The object is no longer set."},
    {3421, "The value is of the wrong type for the field."},
    {3464, "Data type mismatch in criteria expression."},
};
static_assert(std::ranges::is_sorted(kDescriptions, {}, &Description::number));

}  // namespace

RunTimeError::RunTimeError(int number) : RunTimeError(number, DescriptionOf(number)) {}

RunTimeError::RunTimeError(int number, std::string description)
    : Number(number), Description(std::move(description)) {}

std::string DescriptionOf(int number) {
  const auto found = std::ranges::lower_bound(kDescriptions, number, {}, &Description::number);
  if (found == std::end(kDescriptions) || found->number != number)
    return "Application-defined or object-defined error";
  return found->text;
}

}  // namespace kvi
