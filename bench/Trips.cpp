#include "bench/Trips.h"

#include <unistd.h>

#include <functional>
#include <string>

#include "bench/DetailDesk.h"

namespace kvi::bench {
namespace {

void Mark(const std::string& name) {
  // A look for a file that is nowhere: the trace is the only place where it leaves anything.
  (void)access(("/trip/" + name).c_str(), F_OK);
}

void Trip(const std::string& name, const std::function<void()>& work) {
  Mark(name);
  work();
  Mark("end");
}

}  // namespace

void MakeTrips() {
  const ScratchCopy copy("trips.mdb");
  DetailDesk desk(copy.Path());
  const auto save = [&](int step) {
    desk.Detail().desc.Text = "Seen " + desk.Number(step);
    desk.Detail().SaveItem();
  };
  desk.LoadPart(1);
  save(1);
  Trip("Load a part", [&] { desk.LoadPart(2); });
  Trip("Save it", [&] { save(2); });
  GoToRow(desk.Summary().Spread1, 1);
  desk.Detail().StepItem(+1);
  Trip("Step to the next", [&] { desk.Detail().StepItem(+1); });
}

}  // namespace kvi::bench
