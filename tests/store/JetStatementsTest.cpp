#include <gtest/gtest.h>

#include "base/Text.h"
#include "store/Schema.h"
#include "support/TableText.h"
#include "support/TemporaryFolder.h"

// What the system's kinds of statements do on its own tables: keys that differ in case, in a blank
// or in their profit center only, values that are Null, zero or empty, and another profit center's
// rows beside those of number 4.
namespace kvi::test {
namespace {

class JetStatements : public testing::Test {
 protected:
  JetStatements() {
    FillTable(database, "I_Master",
              "inv_id | pcenter | name | desc | category | location | where1 | active\n"
              "9 | 4 | bolt | zinc | Metal | Shelf B | Ada Ltd | YES\n"
              "10 | 4 | Washer | Black | METAL | shelf a | Hub | Yes\n"
              "'AB ' | 4 | Apron | amber | Cloth | Shelf C | Ada Ltd | no\n"
              "e1 | 4 | Étrier | | | SHELF B | ADA LTD | ' yes '\n"
              "9 DUP | 4 | eye DUP | copy | Cloth | Shelf A | Hub | YES\n"
              "100 | 9 | BOLT | other | Metal | Shelf A | Ada Ltd | YES\n"
              "999999 | | Base Record | | KVI always needs one record | | | NO");
    FillTable(database, "DD_category", "Description\n Metal\n cloth\n METAL\n ''\n Étui\n \n eel");
    FillTable(database, "Inv_Recipe",
              "rec_id | pcenter | inv_id | qty | desc\n G10 | 4 | AB | 1 | amber\n"
              "g10 | 4 | 9 | 3 | zinc\n G9 | 4 | 'ab ' | 2 | amber\n"
              "G9 | 4 | G10 | 1 | Recipe in Recipe\n '' | 4 | 10 | 1 |");
    FillTable(database, "Hist_Purchases",
              "inv_id | p_date | price | TRANS_NUM | pcenter\n9 | 1/31/2026 | 2 | one | 4\n"
              "9 | 2/1/2026 | 0 | two |\n9 | 2/28/2026 | 3 | three | 4\n"
              "9 | 3/1/2026 | 4 | four | 9\n10 | 2/28/2026 2:05:00 PM | | five | 4");
    FillTable(database, "PSO_Detail",
              "pso_id | pso_inv_id | pso_qty | pcenter\n20001 | 9 | 5 | 4\n20001 | AB | 1 | 4\n"
              "7 | 9 | 2.5 | 4\n7 | 'ab ' | 4 | 4\n7 | 9 | 8 | 9");
    FillTable(database, "EmployeeDB", "E_Code | E_Name\n 007 | Ann\n 12 | Bea\n | Cy");
  }

  // The rows of a query: "a|b / c|d".
  std::string Rows(const std::string& sql, const std::string& fields) {
    jet::Recordset set = database.OpenRecordset(sql);
    const std::string lines = RowsText(set, fields);
    return lines.empty() ? "" : Replace(lines.substr(0, lines.size() - 1), "\n", " / ");
  }
  // What a criterion finds first in a query; "-" for no match.
  std::string Found(const std::string& sql, const std::string& criterion,
                    const std::string& field) {
    jet::Recordset set = database.OpenRecordset(sql);
    set.FindFirst(criterion);
    return set.NoMatch() ? "-" : set.Text(field);
  }

  TemporaryFolder folder;
  jet::Database database = CreateInventoryDatabase(folder / "KV_Inventory.mdb");
};

TEST_F(JetStatements, ThatListAndOpenFindTheirRowsInTheirOrder) {
  const struct {
    const char *sql, *fields, *rows;
  } cases[] = {
      {"SELECT * FROM I_Master where pcenter = 4 ORDER BY name", "name",
       "Apron / bolt / Étrier / eye DUP / Washer"},
      {"SELECT * FROM I_Master ORDER BY Val(Inv_ID);", "inv_id",
       "AB  / e1 / 9 / 9 DUP / 10 / 100 / 999999"},
      {"SELECT * FROM I_Master WHERE  Pcenter = 4 AND where1 = 'Ada Ltd'  ORDER BY [desc], name;",
       "name", "Étrier / Apron / bolt"},
      {"SELECT * FROM I_Master WHERE  Pcenter = 4 ORDER BY category, name;", "name",
       "Étrier / Apron / eye DUP / bolt / Washer"},
      {"SELECT * FROM I_Master WHERE  Pcenter = 4 ORDER BY i_master.inv_id, name;", "inv_id",
       "10 / 9 / 9 DUP / AB  / e1"},
      {"SELECT * FROM I_Master where active = 'YES' and location LIKE 'shelf ?*' and pcenter = 4 "
       "ORDER BY location, name",
       "name", "eye DUP / Washer / bolt"},
      {"SELECT * FROM I_Master where active = 'YES' and inv_id LIKE '#*' and pcenter = 4 "
       "ORDER BY inv_id, category",
       "inv_id", "10 / 9 / 9 DUP"},
      {"SELECT * FROM I_Master WHERE lTrim(rtrim(Inv_ID)) = 'ab';", "name", "Apron"},
      {"SELECT * FROM I_Master WHERE Inv_ID = 'AB';", "name", ""},
      {"select * from i_master where ucase(trim(name))='ÉTRIER'", "inv_id", "e1"},
      {"SELECT category, count(*) as expr1 FROM I_Master where active = 'YES' and pcenter = 4 "
       "GROUP BY category",
       "", "Cloth|1 / Metal|2"},
      {"SELECT DISTINCT Description FROM DD_category WHERE Description <> Null "
       "ORDER BY Description;",
       "Description", " / cloth / eel / Étui / Metal"},
      {"SELECT * FROM Inv_Recipe where Rec_ID = 'G10' and pcenter = 4 ORDER BY inv_id", "inv_id",
       "9 / AB"},
      {"SELECT * FROM Inv_Recipe where desc = 'RECIPE IN RECIPE'", "rec_id inv_id", "G9|G10"},
      {"SELECT * FROM EmployeeDB where e_code = 7", "E_Name", "Ann"},
      {"SELECT * FROM EmployeeDB WHERE Val(E_Code) = 00012;", "E_Name", "Bea"},
      {"SELECT * FROM Hist_Purchases WHERE Inv_ID = '9' ORDER BY p_date DESC;", "TRANS_NUM",
       "four / three / two / one"},
      {"SELECT * FROM Hist_Purchases WHERE Price = 0 OR Price = NULL;", "TRANS_NUM", "two"},
      {"SELECT * FROM Hist_Purchases WHERE P_Date > #1/31/2026# AND P_Date <= #2/28/2026# "
       "AND pcenter = 4;",
       "TRANS_NUM", "three"},
  };
  for (const auto& [sql, fields, rows] : cases) EXPECT_EQ(Rows(sql, fields), rows) << sql;
  const std::string onOrder =
      "SELECT pso_inv_id, sum(pso_qty) as sumof_qty from PSO_Detail where pcenter = 4 "
      "group by pso_inv_id";
  EXPECT_EQ(Rows(onOrder, ""), "9|7.5 / AB|1 / ab |4");
  EXPECT_EQ(Found(onOrder, "pso_inv_id='ab'", "sumof_qty"), "1");
  EXPECT_EQ(Found(onOrder, "pso_inv_id='1'", "sumof_qty"), "-");
  EXPECT_EQ(Found("SELECT * FROM I_Master", "inv_id = 'ab '", "name"), "Apron");
  EXPECT_EQ(Found("SELECT * FROM I_Master", "INV_ID = 'AB'", "name"), "-");
  EXPECT_EQ(Found("SELECT * FROM EmployeeDB", "E_Code = 12", "E_Name"), "Bea");
}

TEST_F(JetStatements, ThatDeleteAndChangeTouchTheirRowsAlone) {
  const struct {
    const char* sql;
    long count;
    const char *table, *field, *left;
  } actions[] = {
      {"DELETE * FROM Inv_Recipe WHERE Trim(Inv_ID) = 'AB';", 2, "Inv_Recipe", "inv_id",
       "9 / G10 / 10"},
      {"UPDATE Inv_Recipe SET Inv_Recipe.Inv_ID = 'e1' WHERE ((inv_id = '9'));", 1, "Inv_Recipe",
       "inv_id", "e1 / G10 / 10"},
      {"DELETE FROM Inv_Recipe WHERE PCenter = 4 AND Len(ltrim(rTrim(Rec_ID))) > 0;", 2,
       "Inv_Recipe", "inv_id", "10"},
      // The purchase without a profit center stays: Null differs from nothing.
      {"DELETE * FROM Hist_Purchases WHERE Inv_ID = '9' AND PCenter <> 4;", 1, "Hist_Purchases",
       "TRANS_NUM", "one / two / three / five"},
      {"DELETE * FROM Hist_Purchases WHERE Inv_ID = Null;", 0, "Hist_Purchases", "TRANS_NUM",
       "one / two / three / five"},
      {"DELETE * FROM DD_category WHERE Len(Description) > 0;", 5, "DD_category", "Description",
       " / Null"},
      {"DELETE * FROM I_Master WHERE Pcenter = 4 AND Ucase(Trim(Active)) <> 'YES' ;", 1, "I_Master",
       "inv_id", "9 / 10 / e1 / 9 DUP / 100 / 999999"},
  };
  for (const auto& [sql, count, table, field, left] : actions) {
    EXPECT_EQ(database.Execute(sql), count) << sql;
    EXPECT_EQ(Rows(std::string("SELECT * FROM ") + table, field), left) << sql;
  }
}

}  // namespace
}  // namespace kvi::test
