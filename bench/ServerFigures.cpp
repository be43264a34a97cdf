#include "bench/ServerFigures.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <random>

#include "base/RunTimeError.h"
#include "bench/DetailDesk.h"
#include "bench/UpdateDesk.h"
#include "jet/Database.h"

namespace kvi::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* kAllParts = "SELECT * FROM I_Master;";
constexpr const char* kSomeParts =
    "SELECT * FROM I_Master WHERE inv_id BETWEEN '101000' AND '103000' ORDER BY name;";
constexpr int kSeconds = 3, kLocked = 3260, kRowMoved = 3197;

double Milliseconds(const std::function<void()>& work) {
  const auto start = Clock::now();
  work();
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double Level(const std::string& path) {
  auto database = jet::Database::Open(path, false);
  return database.OpenSnapshot("SELECT Sum(optimal) AS s FROM I_Master", {}).Number("s");
}

// What one desk did.
struct Saves {
  int done, refused;
  double longest;  // in milliseconds
};

// Saves one part after the other from `start` on, each a level higher.
Saves SaveFor(const std::string& path, int desk, Clock::time_point start) {
  auto database = jet::Database::Open(path, false);
  auto parts = database.OpenRecordset(kSomeParts);
  std::mt19937 random(static_cast<unsigned>(desk));
  const auto moveBy = [&](auto steps) {
    for (; steps > 0; --steps) {
      parts.MoveNext();
      if (parts.Eof()) parts.MoveFirst();
    }
  };
  moveBy(random() % 1000);
  while (Clock::now() < start) usleep(200);
  Saves saves{};
  while (Clock::now() < start + std::chrono::seconds(kSeconds)) {
    moveBy(1 + random() % 5);
    const double time = Milliseconds([&] {
      try {
        parts.Edit();
        parts.Set("optimal", parts.Number("optimal") + 1);
        parts.Update();
        ++saves.done;
      } catch (const RunTimeError& error) {
        if (error.Number != kLocked && error.Number != kRowMoved) throw;
        ++saves.refused;
      }
    });
    saves.longest = std::max(saves.longest, time);
  }
  return saves;
}

// So many desks, each a process of its own.
Saves SaveTogether(const std::string& path, int desks) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  const auto start = Clock::now() + std::chrono::milliseconds(500 + 60 * desks);
  for (int desk = 0; desk < desks; ++desk) {
    if (fork() != 0) continue;
    Saves saves{};
    try {
      saves = SaveFor(path, desk, start);
    } catch (const std::exception& error) {
      std::fprintf(stderr, "%s\n", error.what());
    }
    _exit(write(ends[1], &saves, sizeof saves) == sizeof saves ? 0 : 1);
  }
  close(ends[1]);
  Saves all{}, one;
  while (read(ends[0], &one, sizeof one) == sizeof one)
    all = {all.done + one.done, all.refused + one.refused, std::max(all.longest, one.longest)};
  close(ends[0]);
  while (wait(nullptr) > 0) {
  }
  return all;
}

std::string SavesText(const std::string& path, int desks) {
  const double before = Level(path);
  const Saves saves = SaveTogether(path, desks);
  const double lost = saves.done - (Level(path) - before);
  char text[80];
  std::snprintf(text, sizeof text, "%d/s, longest %.0f ms", saves.done / kSeconds, saves.longest);
  std::string line = text;
  if (saves.refused > 0) line += ", " + std::to_string(saves.refused) + " refused";
  if (lost != 0) line += ", LOST " + std::to_string(static_cast<int>(lost));
  return line;
}

std::string TimeText(double time) {
  char text[32];
  std::snprintf(text, sizeof text, "%.1f ms", time);
  return text;
}

// The best of some runs.
std::string Best(int runs, const std::function<void()>& work) {
  double best = Milliseconds(work);
  while (--runs > 0) best = std::min(best, Milliseconds(work));
  return TimeText(best);
}

std::string WalkText(const std::string& path) {
  auto database = jet::Database::Open(path, false);
  return Best(3, [&] {
    double sum = 0;
    for (auto parts = database.OpenRecordset(kAllParts); !parts.Eof(); parts.MoveNext())
      sum += static_cast<double>(parts.Text("inv_id").size() + parts.Text("name").size() +
                                 parts.Text("category").size()) +
             parts.Number("qty_on_hand") + parts.Number("cost_per");
    if (sum <= 0) throw std::runtime_error("nothing was read");
  });
}

std::string LoadText(const std::string& path) {
  DetailDesk desk(path);
  desk.Load();
  return TimeText(Milliseconds([&] { desk.Load(); }) / kParts);
}

std::string CountText(const std::string& path) {
  UpdateDesk desk(path);
  return TimeText(Milliseconds([&] { desk.Save(); }));
}

struct Figure {
  const char* name;
  std::function<std::string(const std::string&)> of;
};

}  // namespace

void MakeServerFigures(const std::vector<std::string>& databases) {
  const Figure figures[] = {
      {"Saves of 4 desks", [](const std::string& path) { return SavesText(path, 4); }},
      {"Saves of 16 desks", [](const std::string& path) { return SavesText(path, 16); }},
      {"Saves of 64 desks", [](const std::string& path) { return SavesText(path, 64); }},
      {"Walk all parts, five fields", WalkText},
      {"Load a part", LoadText},
      {"Save a count of all parts", CountText},
  };
  for (const Figure& figure : figures) {
    std::printf("%-28s", figure.name);
    for (const std::string& path : databases) {
      std::printf(" | %-34s", figure.of(path).c_str());
      std::fflush(stdout);
    }
    std::puts("");
  }
}

}  // namespace kvi::bench
