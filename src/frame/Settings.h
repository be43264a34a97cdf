#pragma once

#include <optional>
#include <string>

#include "frame/ValuationMethod.h"

namespace kvi {

// The settings that no other state of the Application holds. They live from ReadSettings to
// WriteSettings; a screen that shows one writes it here at once.
struct Settings {
  std::string BrowserPath;  // kept for the suite, nothing uses it
  std::string ColorScheme;  // text of a digit, 1 to 7; anything else leaves screens as designed
  // The desk's own choice, which is taken for the suite's from the next start on; "" is none.
  std::string OwnColorScheme;

  std::string CompanyName;
  double AcceptableVariance = 0;  // percent
  int UseSecurity = 0;            // 0 off, 1 on
  int UseOldStyleInventoryDetail = 0;
  bool NetworkVisible = true;  // shows "Network: ON"; false opens the database exclusively
  std::string DatabasePath;    // as shown in Utilities
  double TakeAwayAdjustments = 0;
  int FontSize = 0;  // position in the list of font sizes
  // No method is on when the file never named a known one; a new desk starts with FIFO.
  std::optional<ValuationMethod> Valuation = ValuationMethod::FIFO;
};

}  // namespace kvi
