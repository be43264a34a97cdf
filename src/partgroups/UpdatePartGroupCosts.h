#pragma once

namespace kvi {

class Application;

// Costs every part group of every profit center anew, after a question of its own. A nested group's
// cost moves up one level of nesting a run; a group that contains itself hangs nothing. Traps no
// failure: it leaves in mid-pass with what was written so far kept and the pointer still busy.
// ItemSet stands on the whole of I_Master afterwards, until it is next refreshed.
void UpdatePartGroupCosts(Application& app);

}  // namespace kvi
