#pragma once

#include <string>
#include <utility>

namespace kvi {

// How far a long routine is, told to the user: Desktop::NewProgress makes one, its end takes it
// from sight. A routine tells each row that it has done, which costs next to nothing, and asks
// whether the user has cancelled wherever it can stop without leaving anything half done.
class Progress {
 public:
  Progress() = default;
  virtual ~Progress() = default;
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // Begins a step, of which nothing is done yet. A total of 0 is one that is not known.
  void Begin(std::string step, int total = 0) {
    step_ = std::move(step);
    total_ = total;
    Done(0);
  }
  // So much of the total of the step is done.
  void Done(int done) {
    done_ = done;
    Told();
  }
  virtual bool Cancelled() const = 0;

 protected:
  const std::string& Step() const { return step_; }
  int Done() const { return done_; }
  int Total() const { return total_; }
  virtual void Told() = 0;

 private:
  std::string step_;
  int done_ = 0, total_ = 0;
};

}  // namespace kvi
