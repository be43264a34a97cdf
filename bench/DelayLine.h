#pragma once

#include <chrono>
#include <string>

namespace kvi::bench {

// Takes connections on a socket and hands what they say on to another one, and back, each time a
// delay later: a line that is as long as one likes. Runs until the process is ended; false when
// there can be no such socket.
bool RunDelayLine(const std::string& from, const std::string& to, std::chrono::microseconds delay);

}  // namespace kvi::bench
