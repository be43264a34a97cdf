#include "jet/postgres/KeptAnswers.h"

namespace kvi::jet {
namespace {

constexpr std::size_t kMostAnswers = 64;
constexpr int kMostRows = 2000;

}  // namespace

ServerResult KeptAnswers::Find(const std::string& sql, std::uint64_t commits) {
  const auto found = answers_.find(sql);
  if (found == answers_.end() || found->second.Commits != commits) return nullptr;
  found->second.WasAsked = true;
  return found->second.Result;
}

std::vector<std::string> KeptAnswers::WorthAsking(const std::string& sql,
                                                  std::uint64_t commits) const {
  std::vector<std::string> others;
  if (!answers_.contains(sql)) return others;
  for (const auto& [text, answer] : answers_)
    if (text != sql && answer.WasAsked && answer.Commits != commits) others.push_back(text);
  return others;
}

void KeptAnswers::Keep(const std::string& sql, const ServerResult& answer, std::uint64_t commits) {
  if (PQntuples(answer.get()) > kMostRows) {
    answers_.erase(sql);
    return;
  }
  if (answers_.size() >= kMostAnswers && !answers_.contains(sql)) answers_.clear();
  answers_[sql] = {answer, commits, false};
}

}  // namespace kvi::jet
