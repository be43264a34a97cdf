#include "jet/file/FileError.h"

#include <utility>

namespace kvi::jetfile {
namespace {

int NumberOf(Fault fault) {
  switch (fault) {
    case Fault::CannotRead:
      return 3051;
    case Fault::Password:
      return 3031;
    case Fault::Damaged:
      return 3049;
    default:
      return 3343;
  }
}

}  // namespace

FileError::FileError(Fault fault, std::string description)
    : RunTimeError(NumberOf(fault), std::move(description)), Kind(fault) {}

void RaiseDamaged(std::string what) {
  throw FileError(Fault::Damaged, std::move(what));
}

}  // namespace kvi::jetfile
