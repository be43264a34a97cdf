#include <gtest/gtest.h>

#include <filesystem>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "store/StatementData.h"

// Every statement that the system gives to its database, with values put in, and what it does
// there: text without regard to case, wildcards, dates between number signs, Null, trimmed keys.
namespace kvi::test {
namespace {

// A query, the fields looked at, and its rows: "a|b / c|d".
struct Query {
  const char* sql;
  const char* fields;
  const char* rows;
};

std::string InOneLine(const std::string& lines) {
  return lines.empty() ? "" : Replace(lines.substr(0, lines.size() - 1), "\n", " / ");
}

class JetStatements : public testing::Test {
 protected:
  void Give(std::initializer_list<Query> queries) {
    for (const Query& query : queries) {
      jet::Recordset set = data.database.OpenRecordset(query.sql);
      EXPECT_EQ(query.rows, InOneLine(RowsText(set, query.fields))) << query.sql;
    }
  }

  // What a criterion finds first in a query, in the fields looked at; "-" for no match.
  void Find(const std::string& sql, const char* fields,
            std::initializer_list<std::pair<const char*, const char*>> criteria) {
    jet::Recordset set = data.database.OpenRecordset(sql);
    for (const auto& [criterion, found] : criteria) {
      set.FindFirst(criterion);
      std::string row = "-";
      if (!set.NoMatch()) {
        const std::string rows = RowsText(set, fields);
        row = rows.substr(0, rows.find('\n'));
      }
      EXPECT_EQ(found, row) << criterion << " in " << sql;
    }
  }

  StatementData data;
};

TEST_F(JetStatements, OfThePartLists) {
  Give({
      {"SELECT * FROM I_Master where pcenter = 4 ORDER BY name", "name",
       "Apron / bolt / Étrier / eye DUP / Washer"},
      {"SELECT * FROM I_Master ORDER BY Val(Inv_ID);", "inv_id",
       "AB  / e1 / 9 / 9 DUP / 10 / 100 / 999999"},
      {"SELECT * FROM I_Master WHERE  Pcenter = 4 AND Category = 'metal'  ORDER BY name;", "name",
       "bolt / Washer"},
      {"SELECT * FROM I_Master WHERE  Pcenter = 4 AND where1 = 'Ada Ltd'  ORDER BY [desc], name;",
       "name", "Étrier / Apron / bolt"},
      {"SELECT * FROM I_Master WHERE  Pcenter = 4 AND Category = 'Metal'  AND where1 = 'hub' "
       " ORDER BY category, name;",
       "name", "Washer"},
      {"SELECT * FROM I_Master WHERE  Pcenter = 4 ORDER BY location, name;", "name",
       "eye DUP / Washer / bolt / Étrier / Apron"},
      {"SELECT * FROM I_Master WHERE  Pcenter = 4 ORDER BY account, name;", "account",
       "10 / 15 / 20 / 30 / 40"},
      {"SELECT * FROM I_Master WHERE  Pcenter = 4 ORDER BY category, name;", "name",
       "Étrier / Apron / eye DUP / bolt / Washer"},
      {"SELECT * FROM I_Master WHERE  Pcenter = 4 ORDER BY i_master.inv_id, name;", "inv_id",
       "10 / 9 / 9 DUP / AB  / e1"},
      {"SELECT * FROM I_Master WHERE  Pcenter = 4 order by inv_id", "inv_id",
       "10 / 9 / 9 DUP / AB  / e1"},
      {"SELECT * FROM I_Master where pcenter = 4 and active = 'YES' ORDER BY name", "name",
       "bolt / eye DUP / Washer"},
      {"SELECT * FROM I_Master where active = 'YES' and pcenter = 4 ORDER BY [desc], name", "desc",
       "Black / copy / zinc"},
      {"SELECT * FROM I_Master where active = 'YES' and pcenter = 4 ORDER BY location, name",
       "location", "Shelf A / shelf a / Shelf B"},
      {"SELECT * FROM I_Master where active = 'YES' and pcenter = 4 ORDER BY inv_id, name",
       "inv_id", "10 / 9 / 9 DUP"},
      {"SELECT inv_id, name, hu_qty FROM I_Master", "",
       "9|bolt|Null / 10|Washer|Null / AB |Apron|Null / e1|Étrier|Null / 9 DUP|eye DUP|Null / "
       "100|BOLT|Null / 999999|Base Record|Null"},
  });
}

TEST_F(JetStatements, ThatOpenOnePart) {
  Give({
      {"SELECT * FROM I_Master WHERE Trim(Inv_ID) = 'ab';", "name", "Apron"},
      {"SELECT * FROM I_Master WHERE trim(Inv_ID) = 'AB';", "name", "Apron"},
      {"SELECT * FROM I_Master WHERE lTrim(rtrim(Inv_ID)) = 'ab';", "name", "Apron"},
      {"SELECT * FROM I_Master WHERE Inv_ID = 'AB';", "name", ""},
      {"SELECT * FROM I_Master WHERE Inv_ID = 'E1' ;", "name", "Étrier"},
      {"SELECT * FROM I_Master WHERE inv_ID = '9';", "cost_per", "2"},
      {"SELECT * FROM I_MASTER WHERE INV_ID = '9'", "Yield", "50"},
      {"SELECT * FROM I_Master WHERE Inv_ID = '9 DUP';", "name", "eye DUP"},
      {"select * from i_master where ucase(trim(name))='BOLT'", "inv_id", "9 / 100"},
      {"select * from i_master where ucase(trim(name))='ÉTRIER'", "inv_id", "e1"},
  });
  Find("SELECT * FROM I_Master", "name",
       {{"INV_ID = 'e1'", "Étrier"}, {"inv_id = 'ab '", "Apron"}, {"INV_ID = 'AB'", "-"}});
}

TEST_F(JetStatements, OfPartGroups) {
  Give({
      {"SELECT * FROM R_Master where pcenter = 4 ORDER BY name", "name",
       "Apron kit / Nameless / pump set"},
      {"SELECT * FROM R_Master where pcenter = 4 ORDER BY category, name", "name",
       "Nameless / Apron kit / pump set"},
      {"SELECT * FROM R_Master where pcenter = 4 ORDER BY category", "category",
       "Other / Pumps / pumps"},
      {"SELECT * FROM R_Master where pcenter = 4 ORDER BY rec_id", "rec_id", " / G10 / G9"},
      {"SELECT * FROM R_Master where pcenter = 4 ORDER BY rec_id, name", "rec_id", " / G10 / G9"},
      {"SELECT * FROM R_MASTER", "REC_ID", "G10 / G9 / g9 DUP /  / X1"},
      {"SELECT * FROM r_master WHERE Rec_ID = 'G9 DUP';", "name", "Apron DUP"},
      {"SELECT * FROM Inv_Recipe;", "qty", "1 / 3 / 2 / 2 / 1 / 1 / 1"},
      {"SELECT * FROM INV_RECIPE WHERE REC_ID = 'G9'", "inv_id", "ab  / G10 / 10"},
      {"SELECT * FROM Inv_Recipe Where Rec_ID = 'G10';", "qty", "1 / 3 / 2"},
      {"SELECT * FROM Inv_Recipe where Rec_ID = 'G10' ORDER BY inv_id", "inv_id", "9 / 9 / AB"},
      {"SELECT * FROM Inv_Recipe where Rec_ID = 'G9' and pcenter = 4 ORDER BY inv_id", "inv_id",
       "ab  / G10"},
      {"SELECT * FROM Inv_Recipe where Rec_ID = 'g10' and pcenter = 4 ORDER BY inv_id;", "inv_id",
       "9 / 9 / AB"},
      {"SELECT * FROM Inv_Recipe where desc = 'RECIPE IN RECIPE'", "rec_id inv_id", "G9|G10"},
      {"SELECT R_Master.name, R_Master.Rec_ID, Inv_Recipe.Inv_ID FROM R_Master INNER JOIN "
       "Inv_Recipe ON R_Master.Rec_ID = Inv_Recipe.Rec_ID WHERE Inv_Recipe.Inv_ID = \"9\" "
       "ORDER BY R_Master.name;",
       "name Rec_ID Inv_ID", "pump set|G10|9 / pump set|G10|9"},
      {"SELECT * FROM I_Master WHERE active = 'YES' AND pcenter = 4 AND Category = 'metal'  "
       "ORDER BY name, inv_id ",
       "inv_id", "9 / 10"},
      {"SELECT * FROM I_Master WHERE active = 'YES' AND pcenter = 4 ORDER BY inv_id ", "inv_id",
       "10 / 9 / 9 DUP"},
      {"SELECT * FROM I_Master WHERE active = 'YES' AND pcenter = 4 ORDER BY category, name ",
       "name", "eye DUP / bolt / Washer"},
      {"SELECT * FROM I_Master WHERE active = 'YES' AND pcenter = 4", "name",
       "bolt / Washer / eye DUP"},
  });
  Find("SELECT * FROM R_MASTER", "name",
       {{"REC_ID = 'g9'", "Apron kit"}, {"REC_ID = 'g9 '", "-"}, {"REC_ID = 'X1'", "Pump set"}});
}

TEST_F(JetStatements, OfDropListsVendorsEmployeesAndWidths) {
  Give({
      {"SELECT * FROM [DD_category] ;", "Description",
       "Metal / cloth / METAL /  / Étui / wood / eel"},
      {"SELECT DISTINCT Description FROM DD_category WHERE Description <> Null "
       "ORDER BY Description;",
       "Description", " / cloth / eel / Étui / Metal / wood"},
      {"SELECT DISTINCT Description FROM DD_inv_loc WHERE Description <> Null "
       "ORDER BY Description;",
       "Description", "Bin / shelf"},
      {"SELECT DISTINCT Name FROM Vendor_Info WHERE Name <> Null ORDER BY Name;", "name",
       "Ada Ltd / Élan / Hub"},
      {"SELECT * FROM DD_inv_loc ORDER BY Description;", "Description", "Null / Bin / shelf"},
      {"SELECT * FROM Vendor_Info ORDER BY name;", "City", "Nowhere / Wick / Harbor / Wick / Tarn"},
      {"SELECT * FROM Vendor_Info;", "name", "Hub / Ada Ltd / ada ltd / Null / Élan"},
      {"SELECT * FROM vendor_info WHERE name = 'ADA LTD';", "City", "Wick / Harbor"},
      {"SELECT * FROM PCenter;", "pcenter name", "9|Garage / 4|Annex"},
      {"SELECT * FROM EmployeeDB", "E_Code ReadInv", "007|True / 12|False / Null|False"},
      {"SELECT * FROM EmployeeDB where e_code = 7", "E_Name", "Ann"},
      {"SELECT * FROM EmployeeDB WHERE Val(E_Code) = 7;", "E_Name", "Ann"},
      {"SELECT * FROM EmployeeDB WHERE Val(E_Code) = 00012;", "E_Name", "Bea"},
      {"SELECT * FROM CW_Recipes ORDER BY Ordinal;", "Ordinal", "1 / 2 / 3 / 4 / 5"},
  });
  Find("SELECT * FROM EmployeeDB", "E_Name",
       {{"E_Code = 12", "Bea"}, {"E_Code = 7", "Ann"}, {"E_Code = 0", "-"}});
}

TEST_F(JetStatements, OfPurchasesAndInvoices) {
  Give({
      {"SELECT * FROM HIST_PURCHASES where pcenter = 4 ", "TRANS_NUM", "one / three / five / six"},
      {"SELECT * FROM Hist_Purchases WHERE Inv_ID = '9' ORDER BY p_date DESC;", "TRANS_NUM",
       "four / three / two / one"},
      {"SELECT * FROM Hist_Purchases WHERE Price = 0 OR Price = NULL;", "TRANS_NUM", "two"},
      {"SELECT * FROM Vendor_Info ORDER BY Name;", "Name", "Null / Ada Ltd / ada ltd / Élan / Hub"},
      {"SELECT * FROM Invoice  ORDER BY vendor;", "vendor", "ada ltd / Bay / Hub"},
      {"SELECT * FROM Invoice  ORDER BY number, vendor;", "vendor", "Bay / Hub / ada ltd"},
      {"SELECT * FROM Invoice  ORDER BY date, vendor;", "date", "12/1/2025 / 2/1/2026 / 3/1/2026"},
      {"SELECT * FROM Invoice  ORDER BY amount, vendor;", "amount", "9.5 / 20 / 100"},
      {"SELECT * FROM Invoice  ORDER BY date_due, vendor;", "vendor", "Bay / Hub / ada ltd"},
      {"SELECT * FROM Invoice  ORDER BY adj_amount, vendor;", "adj_amount", "5 / 6 / 7"},
      {"SELECT * FROM Invoice", "Number", "A10 / a9 / A10"},
  });
}

TEST_F(JetStatements, OfOrders) {
  Give({
      {"SELECT * FROM I_Master WHERE where1 = 'ada ltd' AND  active = 'YES' and pcenter = 4 "
       "ORDER BY name",
       "name", "bolt"},
      {"SELECT * FROM I_Master WHERE  active = 'YES' and pcenter = 4 ORDER BY account, name",
       "name", "bolt / Washer / eye DUP"},
      {"SELECT pso_inv_id, sum(pso_qty) as sumof_qty from PSO_Detail where pcenter = 4 "
       "group by pso_inv_id",
       "", "9|7.5 / AB|1 / ab |4"},
      {"SELECT * from PSO_Master where pcenter = 4 ", "pso_id", "20001 / 7"},
      {"SELECT * from PSO_Master WHERE pcenter = 4 ;", "pso_name", "Weekly / weekly"},
      {"SELECT * from PSO_detail where pcenter = 4 ", "pso_qty", "5 / 1 / 2.5 / 4"},
      {"SELECT * from PSO_detail where pcenter = 4 and pso_id = 7", "pso_qty", "2.5 / 4"},
      {"SELECT * from PSO_detail where pso_id = 7 ", "pso_qty", "2.5 / 4 / 8"},
  });
  Find(
      "SELECT pso_inv_id, sum(pso_qty) as sumof_qty from PSO_Detail where pcenter = 4 "
      "group by pso_inv_id",
      "sumof_qty", {{"pso_inv_id='9'", "7.5"}, {"pso_inv_id='ab'", "1"}, {"pso_inv_id='1'", "-"}});
  Find("SELECT * from PSO_detail where pcenter = 4 and pso_id = 7", "pso_qty",
       {{"trim(pso_inv_id) = 'AB'", "4"}, {"trim(pso_inv_id) = 'A'", "-"}});
}

TEST_F(JetStatements, OfTheUsageAnalysis) {
  Give({
      {"SELECT * FROM HI_Header WHERE F_Date  = #1/31/2026# AND pcenter = 4;", "pcenter", "4"},
      {"SELECT * FROM HI_Header WHERE F_Date  = #03/09/2026# AND pcenter = 4;", "pcenter", ""},
      {"SELECT * FROM HI_Header WHERE pcenter = 4 ORDER BY F_date", "F_Date",
       "1/31/2026 / 2/28/2026"},
      {"SELECT * FROM [Historical Inventory] WHERE pcenter = 4 AND F_Date = #1/31/2026#;", "Amount",
       "7 / 3 / 0"},
      {"SELECT * FROM [Historical Inventory] WHERE pcenter = 4 ORDER BY F_Date", "Amount",
       "7 / 3 / 0 / 5"},
      {"SELECT * FROM [Historical Inventory] ORDER BY F_Date", "Amount", "7 / 3 / 1 / 0 / 5"},
      {"SELECT * FROM [Historical Inventory] WHERE Price = 0 OR Price = NULL;", "Amount", "3"},
      {"SELECT * FROM Hist_Purchases WHERE P_Date > #1/31/2026# AND P_Date <= #2/28/2026# "
       "AND inv_id = '9' AND pcenter = 4;",
       "TRANS_NUM", "three"},
      {"SELECT * FROM HIST_Purchases WHERE P_Date >= #01/31/2026# AND P_Date < #02/28/2026# "
       "AND Inv_ID = '9';",
       "TRANS_NUM", "one / two"},
  });
  Find("SELECT * FROM [Historical Inventory] WHERE pcenter = 4 ORDER BY F_Date", "Amount",
       {{"F_Date = #1/31/2026# and inv_id = '10'", "3"},
        {"F_Date = #2/28/2026# and inv_id = '9'", "5"},
        {"F_Date = #2/28/2026# and inv_id = '10'", "-"}});
}

TEST_F(JetStatements, OfReports) {
  Give({
      {"SELECT * FROM I_Master where active = 'YES' and pcenter = 4 ORDER BY name, name", "name",
       "bolt / eye DUP / Washer"},
      {"SELECT * FROM I_Master where active = 'YES' and category LIKE 'm*' and pcenter = 4 "
       "ORDER BY category, inv_id",
       "inv_id", "10 / 9"},
      {"SELECT * FROM I_Master where active = 'YES' and location LIKE 'shelf ?*' and pcenter = 4 "
       "ORDER BY location, name",
       "name", "eye DUP / Washer / bolt"},
      {"SELECT * FROM I_Master where active = 'YES' and inv_id LIKE '#*' and pcenter = 4 "
       "ORDER BY inv_id, category",
       "inv_id", "10 / 9 / 9 DUP"},
      {"SELECT * FROM I_Master where active = 'YES' and where1 LIKE 'ADA LTD' and pcenter = 4  "
       "and pcenter = 4 ORDER BY w1_id, name ",
       "name", "bolt"},
      {"SELECT * FROM I_Master where active = 'YES' and where2 LIKE 'Ada Ltd' and pcenter = 4  "
       "and pcenter = 4 ORDER BY w1_id, name ",
       "name", "Washer"},
      {"SELECT * FROM I_Master where active = 'YES' and pcenter = 4 ORDER BY w1_id, name ", "w1_id",
       "a / b / e"},
      {"SELECT category, sum(valuation) as expr1 FROM I_Master where active = 'YES' and "
       "pcenter = 4 GROUP BY category",
       "", "Cloth|10 / Metal|30"},
      {"SELECT * FROM R_Master WHERE category LIKE 'PUMP*' and pcenter = 4 ORDER BY name ", "name",
       "Apron kit / pump set"},
      {"SELECT * FROM R_Master WHERE name LIKE '[a-b]*' and pcenter = 4 ORDER BY  name; ", "name",
       "Apron kit"},
      {"SELECT * FROM R_Master WHERE pcenter = 4 ORDER BY category, name ", "name",
       "Nameless / Apron kit / pump set"},
  });
}

// An action, the count of rows it writes, and what stands in the table then.
struct Action {
  const char* sql;
  long count;
  Query left;
};

TEST_F(JetStatements, ThatDeleteAndChange) {
  const Action actions[] = {
      {"DELETE * FROM I_Master WHERE Trim(Inv_ID) = 'ab';",
       1,
       {"SELECT * FROM I_Master", "inv_id", "9 / 10 / e1 / 9 DUP / 100 / 999999"}},
      {"DELETE * FROM Inv_Recipe WHERE Trim(Inv_ID) = 'AB';",
       2,
       {"SELECT * FROM Inv_Recipe", "inv_id", "9 / 9 / G10 / 10 / 10"}},
      {"UPDATE I_Master SET I_Master.Inv_ID = '11' WHERE ((inv_id = '9'));",
       1,
       {"SELECT * FROM I_Master WHERE pcenter = 4", "inv_id", "11 / 10 / AB  / e1 / 9 DUP"}},
      {"UPDATE Inv_Recipe SET Inv_Recipe.Inv_ID = 'e1' WHERE ((inv_id = '9'));",
       2,
       {"SELECT * FROM Inv_Recipe", "inv_id", "AB / e1 / e1 / ab  / G10 / 10 / 10"}},
      {"UPDATE PSO_Detail SET PSO_Detail.PSO_Inv_ID = '11' WHERE ((PSO_inv_id = 'ab'));",
       1,
       {"SELECT * FROM PSO_Detail", "pso_inv_id", "9 / 11 / 9 / ab  / 9"}},
      {"DELETE * FROM DD_category WHERE Len(Description) > 0;",
       6,
       {"SELECT * FROM DD_category", "Description", ""}},
      {"DELETE * FROM Vendor_Info WHERE Len(Description) > 0;",
       2,
       {"SELECT * FROM Vendor_Info", "name", "Ada Ltd / ada ltd / Null"}},
      {"DELETE * FROM Vendor_Info WHERE Name = 'ADA ltd';",
       2,
       {"SELECT * FROM Vendor_Info", "name", "Hub / Null / Élan"}},
      {"DELETE * FROM I_Master WHERE where1 = 'Ada Ltd';",
       4,
       {"SELECT * FROM I_Master", "inv_id", "10 / 9 DUP / 999999"}},
      {"DELETE * FROM HI_Header WHERE pcenter = 4 AND F_DATE = #1/31/2026#;",
       1,
       {"SELECT * FROM HI_Header", "F_Date pcenter", "2/28/2026|4 / 1/31/2026|9"}},
      {"DELETE * FROM [Historical Inventory] WHERE pcenter = 4 AND F_DATE = #1/31/2026#;",
       3,
       {"SELECT * FROM [Historical Inventory]", "Amount", "5 / 1"}},
      {"DELETE * FROM [Historical Inventory] WHERE Inv_ID = '9' AND PCenter <> 4;",
       1,
       {"SELECT * FROM [Historical Inventory]", "Amount", "5 / 7 / 3 / 0"}},
      // The purchase without a profit center stays: Null differs from nothing.
      {"DELETE * FROM Hist_Purchases WHERE Inv_ID = '9' AND PCenter <> 4;",
       1,
       {"SELECT * FROM Hist_Purchases", "TRANS_NUM", "one / two / three / five / six"}},
      {"DELETE * FROM [Historical Inventory] WHERE Inv_ID = Null;",
       0,
       {"SELECT * FROM [Historical Inventory]", "Amount", "5 / 7 / 3 / 1 / 0"}},
      {"DELETE FROM R_Master WHERE PCenter = 4 AND Len(lTrim(rtrim(Rec_ID))) > 0;",
       2,
       {"SELECT * FROM R_Master", "name", "Apron DUP / Nameless / Pump set"}},
      {"DELETE FROM Inv_Recipe WHERE PCenter = 4 AND Len(ltrim(rTrim(Rec_ID))) > 0;",
       5,
       {"SELECT * FROM Inv_Recipe", "rec_id pcenter", "G9|9 / |4"}},
      {"DELETE FROM Hist_Purchases", 6, {"SELECT * FROM Hist_Purchases", "TRANS_NUM", ""}},
      {"DELETE * FROM I_Master WHERE Pcenter = 4;",
       5,
       {"SELECT * FROM I_Master", "inv_id", "100 / 999999"}},
      {"DELETE * FROM PSO_Master WHERE Pcenter = 4;",
       2,
       {"SELECT * FROM PSO_Master", "pso_name", "Other"}},
      {"DELETE * FROM PSO_Detail WHERE Pcenter = 4;",
       4,
       {"SELECT * FROM PSO_Detail", "pso_qty", "8"}},
      {"DELETE * FROM I_Master WHERE Pcenter = 4 AND Ucase(Trim(Active)) <> 'YES' ;",
       1,
       {"SELECT * FROM I_Master", "inv_id", "9 / 10 / e1 / 9 DUP / 100 / 999999"}},
      {"DELETE * FROM I_Master;", 7, {"SELECT * FROM I_Master", "inv_id", ""}},
      {"DELETE * FROM Inv_Recipe;", 7, {"SELECT * FROM Inv_Recipe", "inv_id", ""}},
      {"DELETE * FROM DD_Inv_Loc;", 3, {"SELECT * FROM DD_inv_loc", "Description", ""}},
      {"DELETE * FROM DD_Category;", 7, {"SELECT * FROM DD_category", "Description", ""}},
  };
  // Each on a copy of its own.
  const std::string original = data.folder / "KV_Inventory.mdb", copy = data.folder / "copy.mdb";
  data.database.Close();
  for (const Action& action : actions) {
    std::filesystem::copy_file(original, copy, std::filesystem::copy_options::overwrite_existing);
    data.database = jet::Database::Open(copy, false);
    EXPECT_EQ(action.count, data.database.Execute(action.sql)) << action.sql;
    Give({action.left});
    data.database.Close();
  }
}

TEST_F(JetStatements, OfAnImportFromAnOlderProduct) {
  data.database = jet::Database::Create(data.folder / "MILLRACE.MDB",
                                        {{"Inventory", {{"i_num"}, {"desc"}}, {}},
                                         {"Inv_recipe", {{"i_num"}, {"machine_id"}, {"desc"}}, {}},
                                         {"DropDowns", {{"Drop03"}, {"Drop04"}}, {}}});
  FillTable(data.database, "Inventory", "i_num | desc\n 7 | Bolt");
  FillTable(data.database, "Inv_recipe", "i_num | machine_id | desc\n 7 | M1 | Bolt");
  FillTable(data.database, "DropDowns", "Drop03 | Drop04\n Bin | Metal\n | Cloth");
  Give({
      {"SELECT * FROM Inventory;", "", "7|Bolt"},
      {"SELECT * FROM Inv_recipe;", "", "7|M1|Bolt"},
      {"SELECT Drop03 FROM DropDowns;", "", "Bin / Null"},
      {"SELECT Drop04 FROM DropDowns;", "", "Metal / Cloth"},
  });
}

TEST_F(JetStatements, ThatAKeyOrANameBreaksFailWholeAndChangeNothing) {
  const struct {
    const char* sql;
    int number;
  } cases[] = {
      {"SELECT * FROM vendor_info WHERE name = 'O'Brien';", 3075},
      {"DELETE * FROM Vendor_Info WHERE Name = 'O'Brien';", 3075},
      {"SELECT * FROM I_Master WHERE Inv_ID = ''; DELETE * FROM I_Master; --';", 3075},
      {"DELETE * FROM I_Master WHERE where1 = 'x'; DELETE * FROM I_Master; --';", 3075},
      {"SELECT * FROM EmployeeDB where e_code = ", 3075},
      {"SELECT * FROM I_Master WHERE  Pcenter =  ORDER BY name;", 3075},
      {"SELECT * FROM HI_Header WHERE F_Date  = ## AND pcenter = 4;", 3075},
      {"SELECT * FROM I_Master ORDER BY nome", 3061},
      {"SELECT * FROM I_Master WHERE Inv_ID = AB", 3061},
      {"SELECT * FROM I_Masters", 3078},
  };
  const auto numberOf = [](const auto& run) {
    try {
      run();
    } catch (const RunTimeError& error) {
      return error.Number;
    }
    return 0;
  };
  for (const auto& row : cases) {
    EXPECT_EQ(row.number, numberOf([&] {
                const bool select = std::string_view(row.sql).starts_with("SELECT");
                if (select)
                  data.database.OpenRecordset(row.sql);
                else
                  data.database.Execute(row.sql);
              }))
        << row.sql;
  }
  jet::Recordset set = data.database.OpenRecordset("SELECT * FROM EmployeeDB");
  for (const char* criterion : {"E_Code = ", "E_Name = 'O'Neil'", "E_Name = 'x'; DELETE"})
    EXPECT_EQ(3075, numberOf([&] { set.FindFirst(criterion); })) << criterion;
  EXPECT_EQ(3061, numberOf([&] { set.FindFirst("E_Cade = 7"); }));
  Give({{"SELECT Count(*) AS n FROM I_Master", "n", "7"},
        {"SELECT Count(*) AS n FROM Vendor_Info", "n", "5"}});
}

}  // namespace
}  // namespace kvi::test
