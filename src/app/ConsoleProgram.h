#pragma once

#include <functional>
#include <string>

namespace kvi {

struct BadArgument {
  std::string message;
};

// What a program without a window says of itself.
struct ConsoleProgram {
  const char* name;
  const char* usage;  // a line
  std::string help;   // what --help tells below it
};

inline constexpr int kFailed = 1, kBadArguments = 2;

// Runs the work and gives the exit status: the work's own, kFailed for an exception and
// kBadArguments for a BadArgument, each told in a line on the error output.
int RunConsoleProgram(const ConsoleProgram& program, int argc, char** argv,
                      const std::function<int()>& work);

}  // namespace kvi
