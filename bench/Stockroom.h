#pragma once

#include <memory>
#include <string>

#include "bench/BenchDesktop.h"
#include "frame/Application.h"

namespace kvi::bench {

// Where the measured database lies: under the folder that the program was started in, which
// kvi-setup made. Each row of it belongs to the first profit center, so that one list holds all.
inline constexpr const char* kFolder = "one-center";
inline constexpr const char* kDatabase = "one-center/KV_Inventory.mdb";

// Makes it out of KV_Inventory.mdb where it does not stand yet; false when there is none.
bool MakeDatabase();

// A copy of the database for a figure that writes, on the same disk.
class ScratchCopy {
 public:
  explicit ScratchCopy(std::string path);
  ~ScratchCopy();
  ScratchCopy(const ScratchCopy&) = delete;
  ScratchCopy& operator=(const ScratchCopy&) = delete;

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

// A scratch copy of the database with more in it. It is filled once, as a file of its own, and
// copied from there.
class FilledCopy : public ScratchCopy {
 public:
  using FillFile = void (*)(const std::string& path);
  FilledCopy(const std::string& path, const std::string& filled, FillFile fill);
};

// The program on the measured database, as it stands before its database is opened.
class Desk {
 public:
  Desk();
  Application& App() { return *app_; }

 private:
  BenchDesktop desktop_;
  SystemClock clock_;
  SystemChance chance_;
  std::unique_ptr<Application> app_;
};

}  // namespace kvi::bench
