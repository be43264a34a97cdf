#include "items/ChangePartNumber.h"

namespace kvi {

void ChangePartNumber(jet::Database& database, const std::string& oldNumber,
                      const std::string& newNumber) {
  database.Execute("UPDATE I_Master SET I_Master.Inv_ID = '" + newNumber + "' WHERE ((inv_id = '" +
                   oldNumber + "'));");
  database.Execute("UPDATE Inv_Recipe SET Inv_Recipe.Inv_ID = '" + newNumber +
                   "' WHERE ((inv_id = '" + oldNumber + "'));");
  database.Execute("UPDATE PSO_Detail SET PSO_Detail.PSO_Inv_ID = '" + newNumber +
                   "' WHERE ((PSO_inv_id = '" + oldNumber + "'));");
}

}  // namespace kvi
