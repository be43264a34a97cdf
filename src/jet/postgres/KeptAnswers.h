#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "jet/postgres/PostgresLine.h"

namespace kvi::jet {

// The answers to short questions that are asked again and again, the drop lists above all. They
// hold until anybody commits; then those that were asked for since are asked anew in one trip.
class KeptAnswers {
 public:
  // Null where none is known that holds after so many commits.
  ServerResult Find(const std::string& sql, std::uint64_t commits);
  // What is worth asking together with this one.
  std::vector<std::string> WorthAsking(const std::string& sql, std::uint64_t commits) const;
  void Keep(const std::string& sql, const ServerResult& answer, std::uint64_t commits);
  void Forget() { answers_.clear(); }

 private:
  struct Answer {
    ServerResult Result;
    std::uint64_t Commits = 0;
    bool WasAsked = false;  // since it came
  };
  std::unordered_map<std::string, Answer> answers_;
};

}  // namespace kvi::jet
