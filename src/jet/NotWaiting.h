#pragma once

namespace kvi::jet {

// Raised where the user would not wait any longer for another desk's lock; it goes past every
// handler of errors to whoever set Database::OnLocked. Nothing of the statement is written, and
// nothing is held.
struct NotWaiting {};

}  // namespace kvi::jet
