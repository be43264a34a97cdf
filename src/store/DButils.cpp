#include "store/DButils.h"

#include <algorithm>
#include <iterator>

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace kvi {

bool IsLockError(int code, int firstOfErrorList) {
  constexpr int kSeeErrorList = 3000;
  constexpr int kLockErrors[] = {3006, 3009, 3046, 3158, 3186, 3189, 3197,
                                 3202, 3211, 3212, 3218, 3260, 3261, 3262};
  const int number = code == kSeeErrorList ? firstOfErrorList : code;
  return std::find(std::begin(kLockErrors), std::end(kLockErrors), number) != std::end(kLockErrors);
}

std::optional<jet::Recordset> OpenItemRecord(jet::Database& database, const std::string& inv_id) {
  try {
    jet::Recordset item = database.OpenRecordset("SELECT * FROM I_Master WHERE Trim(Inv_ID) = '" +
                                                 Trim(inv_id) + "';");
    if (item.Eof()) return std::nullopt;
    item.MoveFirst();
    return item;
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace kvi
