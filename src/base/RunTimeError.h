#pragma once

#include <exception>
#include <string>

namespace kvi {

// The one failure type of the system: a classic error number and its description. Thrown by every
// floor, caught where a routine has a rule of its own for it, else at the event guard.
struct RunTimeError : std::exception {
  explicit RunTimeError(int number);  // with the number's own description
  RunTimeError(int number, std::string description);

  const char* what() const noexcept override { return Description.c_str(); }

  int Number;
  std::string Description;
};

// "Ends the process": thrown by a routine that stops the program, caught in main alone.
struct EndOfProcess {};

// The classic description of a number, or "Application-defined or object-defined error".
std::string DescriptionOf(int number);

}  // namespace kvi
