#pragma once

#include <optional>
#include <string>

#include "base/Value.h"
#include "jet/file/TableDefinition.h"

namespace kvi::jetfile {

// What the bytes of a column that is neither Boolean nor a long value stand for. A Single comes as
// the number of its shortest text, Currency and Numeric as the number nearest to their decimal
// text, a GUID as text in braces, Binary and what is unknown as its bytes. Nothing where the bytes
// are no value: a date outside of the calendar, a number that is none.
std::optional<Value> ValueOf(const Column& column, Bytes bytes, const TextDecoder& text);

}  // namespace kvi::jetfile
