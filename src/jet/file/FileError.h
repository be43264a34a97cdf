#pragma once

#include <string>

#include "base/RunTimeError.h"

namespace kvi::jetfile {

enum class Fault { CannotRead, NotJet, UnsupportedVersion, Password, Damaged, TooLarge };

// Why a file of an older program, or a part of it, cannot be read. Its number is the classic one.
struct FileError : RunTimeError {
  FileError(Fault fault, std::string description);

  Fault Kind;
};

// The structure contradicts itself; `what` says where and how.
[[noreturn]] void RaiseDamaged(std::string what);

}  // namespace kvi::jetfile
