#pragma once

#include <string>

#include "bench/Stockroom.h"
#include "stock/KVI_UpdateInventory.h"
#include "store/OpenInventoryDatabase.h"

namespace kvi::bench {

inline constexpr int kBought = 5000;  // lines of a delivery

// Nobody wants the part groups updated.
class Declining : public BenchDesktop {
  Answer ShowBox(const Box&) override { return Answer::No; }
};

// The update screen on a database.
class UpdateDesk {
 public:
  explicit UpdateDesk(const std::string& database) {
    app_.AccessString = "WWWW";
    app_.CurrentDatabase = jet::Database::Open(database, false);
    RefreshMasterRecordsets(app_);
    app_.screens.Load(Screen());
    Screen().LoadUpdateGrid();
  }
  KVI_UpdateInventory& Screen() { return app_.Get<KVI_UpdateInventory>(); }
  Spread& Grid() { return Screen().Spread1; }

  double Load() {
    Screen().LoadUpdateGrid();
    return Grid().MaxRows();
  }
  double Recalculate() {
    Screen().rv.Click();
    return Grid().MaxRows();
  }
  double Save() {
    Screen().SaveUpdateGrid();
    return Grid().MaxRows();
  }
  void TypeDelivery() {
    for (int row = 1; row <= kBought; ++row) Grid().SetText(row, 7, "2");
  }

 private:
  Declining desktop_;
  SystemClock clock_;
  SystemChance chance_;
  Application app_{{desktop_, clock_, chance_, kFolder, ""}};
};

}  // namespace kvi::bench
