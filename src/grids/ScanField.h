#pragma once

#include <optional>
#include <string>
#include <vector>

#include "frame/Application.h"
#include "grids/PartCodes.h"
#include "platform/Controls.h"
#include "platform/Spread.h"

namespace kvi {

// The field into which a scanner types a code and Enter, over its screen's list of parts: the row
// of the part becomes the active one. Where the list has an entry column the cursor goes there,
// and Enter in that cell comes back, so that a shelf is counted scan, number, Enter, scan. What is
// not found is told with a sound in the status bar, never by a box: it would swallow the next scan.
class ScanField {
 public:
  // The number of a row's part stands in that column.
  ScanField(Application& app, Screen& screen, Spread& list, int numberColumn);

  // The list is loaded anew. So are the codes, by the next scan.
  void Forget();
  // Another visit begins.
  void Clear();

  TextBox Scan;

 private:
  void Look();
  std::vector<PartCodes::Part> PartsOf(const std::string& code);
  int RowOf(const std::string& number) const;
  void GoTo(int row);
  void Refuse(const std::string& why);
  bool ComeBack(int row, int col);

  Application& app_;
  Spread& list_;
  const int numberColumn_;
  std::optional<PartCodes> codes_;
  std::string awaited_;  // the part whose entry cell was gone to
};

}  // namespace kvi
