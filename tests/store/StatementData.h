#pragma once

#include <string>

#include "jet/Database.h"
#include "store/Schema.h"
#include "support/TableText.h"
#include "support/TemporaryFolder.h"

namespace kvi::test {

// A small database on which every statement of the system shows what it does: keys that differ in
// case, in a blank or in their profit center only, values that are Null, zero or empty, and other
// profit centers' rows beside those of number 4.
class StatementData {
 public:
  StatementData() : database(CreateInventoryDatabase(folder / "KV_Inventory.mdb")) {
    FillItems();
    FillGroups();
    FillHistory();
    FillOrders();
    FillPeople();
  }

  TemporaryFolder folder;
  jet::Database database;

 private:
  void Fill(const char* table, const char* rows) { FillTable(database, table, rows); }

  void FillItems() {
    Fill("I_Master",
         "inv_id  | pcenter | name      | desc  | category | location | account | where1  | where2"
         "    | w1_id | active  | cost_per | qty_on_hand | valuation | Yield\n"
         "9       | 4 | bolt        | zinc    | Metal | Shelf B | 20 | Ada Ltd | Null Co"
         " | b     | YES     | 2   | 5    | 10  | 50\n"
         "10      | 4 | Washer      | Black   | METAL | shelf a | 30 | Hub     | ada ltd"
         " | a     | Yes     | 3   | 0    | 20  | 0\n"
         "'AB '   | 4 | Apron       | amber   | Cloth | Shelf C | 10 | Ada Ltd | Hub"
         "     | c     | no      | 4   | 10   | 40  |\n"
         "e1      | 4 | Étrier      |         |       | SHELF B | 15 | ADA LTD |"
         "         | d     | ' yes ' | 1   | 1    | 1   |\n"
         "9 DUP   | 4 | eye DUP     | copy    | Cloth | Shelf A | 40 | Hub     |"
         "         | e     | YES     | 2   | 5    | 10  |\n"
         "100     | 9 | BOLT        | other   | Metal | Shelf A | 20 | Ada Ltd |"
         "         | f     | YES     | 7   | 1    | 7   |\n"
         "999999  |   | Base Record |         | KVI always needs one record | | | |"
         "         |       | NO      |     |      |     |");
    Fill("DD_category", "Description\n Metal\n cloth\n METAL\n ''\n Étui\n wood\n eel");
    FillTable(database, "DD_inv_loc", "Description\n shelf\n \n Bin");
  }

  void FillGroups() {
    Fill("R_Master",
         "rec_id | pcenter | name      | category | notes | cost\n"
         "G10    | 4       | pump set  | Pumps    |       | 5\n"
         "G9     | 4       | Apron kit | pumps    |       | 7\n"
         "g9 DUP |         | Apron DUP | Other    |       | 7\n"
         "''     | 4       | Nameless  | Other    |       | 0\n"
         "X1     | 9       | Pump set  | Pumps    |       | 1");
    Fill("Inv_Recipe",
         "rec_id | pcenter | inv_id | iname    | qty | cost_per | desc\n"
         "G10    | 4       | AB     | Apron    | 1   | 4        | amber\n"
         "g10    | 4       | 9      | bolt     | 3   | 2        | zinc\n"
         "G10    | 4       | 9      | bolt     | 2   | 2        | zinc\n"
         "G9     | 4       | 'ab '  | Apron    | 2   | 4        | amber\n"
         "G9     | 4       | G10    | pump set | 1   | 5        | Recipe in Recipe\n"
         "G9     | 9       | 10     | Washer   | 1   | 3        | Black\n"
         "''     | 4       | 10     | Washer   | 1   | 3        |");
  }

  void FillHistory() {
    Fill("Hist_Purchases",
         "inv_id | p_date               | p_qty | price | TRANS_NUM | pcenter\n"
         "9      | 1/31/2026            | 10    | 2     | one       | 4\n"
         "9      | 2/1/2026             | 5     | 0     | two       |\n"
         "9      | 2/28/2026            | 1     | 3     | three     | 4\n"
         "9      | 3/1/2026             | 2     | 4     | four      | 9\n"
         "10     | 2/28/2026 2:05:00 PM | 6     |       | five      | 4\n"
         "ab     | 12/31/2025           | 8     | 1     | six       | 4");
    Fill("HI_Header", "F_Date | pcenter\n 2/28/2026 | 4\n 1/31/2026 | 4\n 1/31/2026 | 9");
    Fill("Historical Inventory",
         "F_Date    | Inv_ID | pcenter | Amount | Price\n"
         "2/28/2026 | 9      | 4       | 5      |\n"
         "1/31/2026 | 9      | 4       | 7      | 2\n"
         "1/31/2026 | 10     | 4       | 3      | 0\n"
         "1/31/2026 | 9      | 9       | 1      | 2\n"
         "1/31/2026 |        | 4       | 0      | 1");
  }

  void FillOrders() {
    Fill("PSO_Master",
         "pso_id | pso_name | pso_date | pcenter\n"
         "20001  | Weekly   | 3/1/2026 | 4\n"
         "7      | weekly   | 3/2/2026 | 4\n"
         "30     | Other    | 3/3/2026 | 9");
    Fill("PSO_Detail",
         "pso_id | pso_inv_id | pso_qty | pso_price | pcenter\n"
         "20001  | 9          | 5       | 2         | 4\n"
         "20001  | AB         | 1       | 0         | 4\n"
         "7      | 9          | 2.5     | 2         | 4\n"
         "7      | 'ab '      | 4       | 1         | 4\n"
         "7      | 9          | 8       | 2         | 9");
  }

  void FillPeople() {
    Fill("Invoice",
         "Vendor  | Number | Date      | date_due  | amount | adj_amount\n"
         "Hub     | A10    | 3/1/2026  | 3/31/2026 | 100    | 5\n"
         "ada ltd | a9     | 12/1/2025 | 4/15/2026 | 9.5    | 7\n"
         "Bay     | A10    | 2/1/2026  | 3/1/2026  | 20     | 6");
    Fill("Vendor_Info",
         "Name    | City   | Description\n"
         "Hub     | Tarn   | near\n"
         "Ada Ltd | Wick   |\n"
         "ada ltd | Harbor | ''\n"
         "        | Nowhere |\n"
         "Élan    | Wick   | far");
    Fill("EmployeeDB", "E_Code | E_Name | ReadInv\n 007 | Ann | True\n 12 | Bea | False\n | Cy |");
    Fill("PCenter", "pcenter | name\n 9 | Garage\n 4 | Annex");
  }
};

}  // namespace kvi::test
