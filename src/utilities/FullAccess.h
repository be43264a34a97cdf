#pragma once

namespace kvi {

class Application;

// Whether this desk may write to the whole database at once; says so when not. Asked before the
// first question of such an act.
[[nodiscard]] bool HasFullAccess(Application& app);

}  // namespace kvi
