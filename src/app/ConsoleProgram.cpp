#include "ConsoleProgram.h"

#include <cstdio>
#include <exception>
#include <string_view>

namespace kvi {

int RunConsoleProgram(const ConsoleProgram& program, int argc, char** argv,
                      const std::function<int()>& work) {
  if (argc == 2 && (std::string_view(argv[1]) == "--help" || std::string_view(argv[1]) == "-h")) {
    std::printf("%s%s", program.usage, program.help.c_str());
    return 0;
  }
  try {
    return work();
  } catch (const BadArgument& bad) {
    std::fprintf(stderr, "%s: %s\n%s", program.name, bad.message.c_str(), program.usage);
    return kBadArguments;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", program.name, error.what());
    return kFailed;
  }
}

}  // namespace kvi
