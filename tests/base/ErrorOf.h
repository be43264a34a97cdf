#pragma once

#include "base/RunTimeError.h"

namespace kvi {

// The number of the error that the action raises, 0 when it raises none.
template <typename Action>
int ErrorOf(Action action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return error.Number;
  }
  return 0;
}

}  // namespace kvi
