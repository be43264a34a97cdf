#pragma once

#include <string>

#include "bench/Stockroom.h"
#include "grids/SprdSubs.h"
#include "items/KVI_InventoryDetail.h"
#include "items/KVI_InventorySummary.h"

namespace kvi::bench {

inline constexpr int kParts = 100;   // on each run
inline constexpr int kStride = 271;  // from one part to the next, all over the table

// The detail screen over the summary's list, on a database of its own.
class DetailDesk {
 public:
  explicit DetailDesk(const std::string& database) {
    Application& app = desk_.App();
    app.AccessString = "WWWW";
    app.CurrentDatabase = jet::Database::Open(database, false);
    app.screens.Load(Summary());
    Summary().LoadItemGrid();
    app.screens.Load(Detail());
  }
  KVI_InventorySummary& Summary() { return desk_.App().Get<KVI_InventorySummary>(); }
  KVI_InventoryDetail& Detail() { return desk_.App().Get<KVI_InventoryDetail>(); }

  std::string Number(int step) {
    const Spread& grid = Summary().Spread1;
    return grid.Text(1 + step * kStride % grid.MaxRows(), KVI_InventorySummary::kNumberColumn);
  }
  void LoadPart(int step) {
    Detail().i_num.Text = Number(step);
    Detail().LoadItemOnActivate();
  }
  double Load() {
    for (int step = 0; step < kParts; ++step) LoadPart(step);
    return kParts;
  }
  double StepOn() {
    GoToRow(Summary().Spread1, 1);
    for (int step = 0; step < kParts; ++step) Detail().StepItem(+1);
    return kParts;
  }
  double Save() {
    for (int step = 0; step < kParts; ++step) {
      LoadPart(step);
      Detail().iname.Text = "Part " + Number(step);
      Detail().SaveItem();
    }
    return kParts;
  }

 private:
  Desk desk_;
};

}  // namespace kvi::bench
