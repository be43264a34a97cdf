#include "jet/dialect/JetSql.h"

#include <gtest/gtest.h>

#include "base/ErrorOf.h"
#include "base/Text.h"
#include "jet/Database.h"
#include "support/TableText.h"
#include "support/TemporaryFolder.h"

namespace kvi::jet {
namespace {

using enum FieldType;

const std::vector<FieldDef> kPart = {{"inv_id", Text}, {"name", Text}, {"desc", Text},
                                     {"qty", Double},  {"day", Date},  {"live", Boolean}};
const std::vector<FieldDef> kLine = {{"rec_id", Text}, {"inv_id", Text}, {"use qty", Double}};

TableShape ShapeOf(std::string_view table) {
  if (table == "Part") return {&kPart};
  if (table == "Group Line") return {&kLine};
  return {};
}

// A small database, in a file or on a server.
class JetSqlTest : public testing::Test {
 protected:
  JetSqlTest() {
    test::FillTable(db_, "Part",
                    "inv_id | name | desc | qty | day | live\n"
                    "7 | bolt | M8 x 20 | 2.5 | 3/1/2026 | 1\n"
                    "007 | Bolt | | 0 | 3/1/2026 2:05:00 PM | 0\n"
                    "'AB ' | O'Neil | say \"x\" | | 12/31/2025 | 1\n"
                    "' ab' | Étrier | '' | 12 | | 0");
    test::FillTable(db_, "Group Line", "rec_id | inv_id | use qty\nG1 | 7 | 3\nG2 | 'ab ' | 1");
  }

  // The rows, fields joined by '|' and rows by '/'; for an action the count of rows written.
  std::string Run(std::string_view jetSql) {
    if (!jetSql.starts_with("SELECT")) return std::to_string(db_.Execute(jetSql));
    Recordset set = db_.OpenRecordset(jetSql);
    const std::string lines = test::RowsText(set, "");
    return lines.empty() ? "" : Replace(lines.substr(0, lines.size() - 1), "\n", " / ");
  }

  // The numbers of the rows that a condition picks.
  std::string Where(const std::string& criterion) {
    return Run("SELECT _rid + 0 FROM Part WHERE " + criterion + " ORDER BY _rid;");
  }
  std::string Found(const std::string& criterion) {
    Recordset set = db_.OpenRecordset("SELECT * FROM Part");
    set.FindFirst(criterion);
    return set.NoMatch() ? "" : set.Text("inv_id");
  }

  test::TemporaryFolder folder_;
  Database db_ = Database::Create(folder_ / "KV_Inventory.mdb",
                                  {{"Part", kPart, {}}, {"Group Line", kLine, {}}});
};

TEST_F(JetSqlTest, AConditionPicksTheRowsThatJetPicks) {
  const std::pair<const char*, const char*> cases[] = {
      // Text, without regard to case; blanks count unless they are trimmed.
      {"name = 'BOLT'", "1 / 2"},
      {"name <> 'bolt'", "3 / 4"},
      {"name < 'c'", "1 / 2"},
      {"name IN ('BOLT', 'étrier')", "1 / 2 / 4"},
      {"inv_id = 'ab'", ""},
      {"Trim(inv_id) = 'ab'", "3 / 4"},
      {"lTrim(rtrim(Inv_ID)) = 'AB'", "3 / 4"},
      {"'ab' = Trim(inv_id)", "3 / 4"},
      {"Trim(inv_id) BETWEEN 'AA' AND 'AC'", "3 / 4"},
      {"'BOLT' = lcase(trim(name))", "1 / 2"},
      {"IIf(qty > 1, name, 'none') = 'NONE'", "2 / 3"},
      {"name & 'x' = 'BOLTX'", "1 / 2"},
      // Literals and names.
      {"name = 'O''Neil'", "3"},
      {"[desc] = 'say \"x\"'", "3"},
      {"desc = \"say \"\"x\"\"\"", "3"},
      {"Part.desc = 'm8 X 20'", "1"},
      {"desc = ''", "4"},
      // Null: "<> Null" asks for a value, "= Null" is never true.
      {"qty <> Null", "1 / 2 / 4"},
      {"qty = Null", ""},
      {"NOT (qty = Null)", ""},
      {"qty Is Null", "3"},
      {"qty Is Not Null AND day is null", "4"},
      {"IsNull(qty)", "3"},
      {"Nz(qty, 0) = 0", "2 / 3"},
      {"qty = 0 OR qty = NULL", "2"},
      {"desc & '' = ''", "2 / 4"},
      {"desc + '' = ''", "4"},
      // Numbers, also in text fields; arithmetic.
      {"inv_id = 7", "1 / 2"},
      {"7 = Trim(inv_id)", "1 / 2"},
      {"qty = '12'", "4"},
      {"Val(inv_id) = 7", "1 / 2"},
      {"inv_id > 0", "1 / 2"},
      {"qty > -1 AND qty < 1E1", "1 / 2"},
      {"qty NOT BETWEEN 1 AND 3", "2 / 4"},
      {"7 / 2 = 3.5 AND qty * 2 = 5", "1"},
      {"- -qty - -1 = 3.5", "1"},
      {"Len(lTrim(rtrim(inv_id))) > 2", "2"},
      {"Left(name, 1) = 'é'", "4"},
      {"Right(name, 2) = 'LT' AND Mid(name, 2, 1) = 'O'", "1 / 2"},
      // Truth is 1 in a field and -1 in arithmetic.
      {"live = True", "1 / 3"},
      {"live <> True", "2 / 4"},
      {"live = -1", "1 / 3"},
      {"NOT live", "2 / 4"},
      {"qty = True + 13", "4"},
      // Dates, with and without the time of day.
      {"day = #3/1/2026#", "1"},
      {"day = #3/1/2026 2:05:00 PM#", "2"},
      {"day BETWEEN #2025-12-01# AND #3/1/2026#", "1 / 3"},
      // Wildcards.
      {"name NOT LIKE 'b*'", "3 / 4"},
      {"NOT name LIKE 'b*' AND live", "3"},
      {"desc LIKE '*#? x*'", ""},
      {"inv_id LIKE '0*'", "2"},
      {"name LIKE 'b*' & '' AND inv_id LIKE '[0-6]*'", "2"},
      // Sub-queries and nests.
      {"Trim(inv_id) IN (SELECT Trim(inv_id) FROM [Group Line])", "1 / 3 / 4"},
      {"EXISTS (SELECT * FROM [Group Line] WHERE [Group Line].inv_id = Part.inv_id)", "1 / 3"},
      {"NOT (name = 'bolt' OR ((inv_id = ' ab')))", "3"},
  };
  for (const auto& [criterion, rows] : cases) {
    EXPECT_EQ(rows, Where(criterion)) << criterion;
    const std::string first = std::string(rows).substr(0, 1);
    EXPECT_EQ(first.empty() ? "" : Run("SELECT inv_id FROM Part WHERE _rid = " + first),
              Found(criterion))
        << criterion;
  }
}

TEST_F(JetSqlTest, AMaskFormatsNumbersAndDates) {
  EXPECT_EQ("1", Where("Format(qty, '##0.00') = '2.50'"));
  EXPECT_EQ("3", Where("Format(day, \"mm/dd/yyyy\") = '12/31/2025'"));
}

TEST_F(JetSqlTest, AQueryShowsWhatJetShows) {
  const std::pair<const char*, const char*> cases[] = {
      {"SELECT name, qty FROM Part ORDER BY name, qty DESC",
       "bolt|2.5 / Bolt|0 / "
       "Étrier|12 / O'Neil|Null"},
      {"SELECT inv_id FROM Part ORDER BY Trim(inv_id), qty;", "007 / 7 / AB  /  ab"},
      {"SELECT DISTINCT Trim(inv_id) AS t FROM Part ORDER BY Trim(inv_id)", "007 / 7 / AB"},
      {"SELECT name, count(*) AS n, Sum(qty) AS s FROM Part GROUP BY name HAVING Count(*) > 1",
       "bolt|2|2.5"},
      {"SELECT TOP 2 name FROM Part ORDER BY qty DESC;", "Étrier / bolt"},
      {"SELECT 'a' & Null & 1.50 & 2, 'a' + Null FROM Part WHERE inv_id = '7'", "a1.52|Null"},
      {"SELECT desc FROM Part WHERE desc <> Null ORDER BY desc DESC", "say \"x\" / M8 x 20 / "},
      {"SELECT p.name, [use qty] FROM Part AS p INNER JOIN [Group Line] AS g "
       "ON Trim(p.inv_id) = Trim(g.inv_id) WHERE p.inv_id = \"7\" ORDER BY p.name",
       "bolt|3"},
      {"SELECT name, rec_id FROM (Part LEFT JOIN [Group Line] ON Part.inv_id = "
       "[Group Line].inv_id) WHERE live = True",
       "bolt|G1 / O'Neil|G2"},
      {"SELECT * FROM [Group Line] WHERE rec_id = 'g1'", "G1|7|3"},
      {"SELECT DISTINCT * FROM [Group Line] WHERE rec_id = 'g1'", "G1|7|3"},
      {"SELECT Part.*, 1 FROM Part, [Group Line] WHERE rec_id = 'G1' AND Part.inv_id = '7'",
       "7|bolt|M8 x 20|2.5|3/1/2026|True|1"},
      {"SELECT name FROM Part WHERE live UNION SELECT rec_id FROM [Group Line] ORDER BY name",
       "bolt / G1 / G2 / O'Neil"},
      {"SELECT Max(n) AS m FROM (SELECT Count(*) AS n FROM Part GROUP BY name) AS q", "2"},
  };
  for (const auto& [sql, rows] : cases) EXPECT_EQ(rows, Run(sql)) << sql;
}

TEST_F(JetSqlTest, AnActionWritesWhatJetWritesAndRaisesTheVersion) {
  EXPECT_EQ("2", Run("UPDATE Part SET Part.name = 'nut', qty = qty + 1 WHERE ((name = 'BOLT'));"));
  EXPECT_EQ("nut|3.5|2 / nut|1|2",
            Run("SELECT name, qty, [_ver] + 0 FROM Part WHERE name = 'Nut' ORDER BY qty DESC"));
  EXPECT_EQ("1", Run("INSERT INTO Part (inv_id, name, live) VALUES ('n', Null, True)"));
  EXPECT_EQ("n|Null|True|1",
            Run("SELECT inv_id, name, live, [_ver] + 0 FROM Part WHERE inv_id = 'N'"));
  EXPECT_EQ("1", Run("INSERT INTO [Group Line] VALUES ('G3', 'n', 1.5)"));
  EXPECT_EQ("3", Run("INSERT INTO [Group Line] SELECT * FROM [Group Line];"));
  EXPECT_EQ("2", Run("DELETE * FROM [Group Line] WHERE rec_id = 'g3' ;"));
  EXPECT_EQ("2", Run("DELETE FROM [Group Line] WHERE [use qty] > 2"));
  EXPECT_EQ("2", Run("DELETE [Group Line].* FROM [Group Line]"));
}

TEST_F(JetSqlTest, ATextThatIsNoSingleStatementIsRefusedWhole) {
  const std::pair<int, const char*> cases[] = {
      {3075, "SELECT * FROM Vendor_Info WHERE Name = 'O'Brien'"},
      {3075, "SELECT * FROM Part WHERE name = ''; DELETE * FROM I_Master; --'"},
      {3075, "SELECT * FROM Part /* all */"},
      {3075, "SELECT * FROM Part;;"},
      {3075, "SELECT * FROM Part WHERE pcenter = ;"},
      {3075, "SELECT * FROM Part WHERE name = \"open"},
      {3075, "SELECT * FROM [a[b]"},
      {3075, "SELECT * FROM [Historical Inventory"},
      {3075, "SELECT * FROM Part WHERE day = #3/1/2026"},
      {3075, "SELECT * FROM Part WHERE qty = 1 2"},
      {3075, "SELECT * FROM Part WHERE day = #13/45/2026#"},
      {3075, "SELECT * FROM Part WHERE (name = 'x'"},
      {3075, "SELECT * FROM Part WHERE name = 'x')"},
      {3075, "SELECT * FROM Part WHERE qty = ?1"},
      {3075, "SELECT * FROM Part ORDER BY"},
      {3075, "SELECT * FROM Part LIMIT 1 OFFSET 1"},
      {3075, "UPDATE Part SET name"},
      {3075, "SELECT Len() FROM Part"},
      {3085, "SELECT load_extension('x') FROM Part"},
      {3129, ""},
      {3129, "ATTACH DATABASE 'x' AS y"},
      {3129, "DROP TABLE Part"},
  };
  for (const auto& row : cases)
    EXPECT_EQ(row.first, ErrorOf([&] { Translate(row.second); })) << row.second;
  const std::string deep = "SELECT " + std::string(100000, '(') + "1";
  EXPECT_EQ(3075, ErrorOf([&] { Translate(deep); }));
  EXPECT_THROW(TranslateCondition("E_Code = ", 1), RunTimeError);
  EXPECT_THROW(TranslateCondition("inv_id = 'a';", 1), RunTimeError);
}

TEST_F(JetSqlTest, AQueryOverOneTableGivesThePiecesOfADynaset) {
  const auto pieces = [](std::string_view sql) {
    const Translation translated = Translate(sql, ShapeOf);
    std::string columns;
    for (const std::string& column : translated.Columns) columns += column + " ";
    return translated.Table + " {" + columns + "} " + translated.Where + " {" + translated.OrderBy +
           "}";
  };
  EXPECT_EQ("Part {} [qty] = ?1 AND [inv_id] = ?2 COLLATE JET1 {[name], [qty] DESC}",
            pieces("SELECT * FROM Part WHERE qty = 1 AND inv_id = '2' ORDER BY name, qty DESC"));
  EXPECT_EQ("Group Line {}  {}", pieces("SELECT [Group Line].* FROM [Group Line];"));
  EXPECT_EQ("Part {name qty }  {[Part].[inv_id]}",
            pieces("SELECT name, Part.qty FROM Part ORDER BY Part.inv_id"));
  EXPECT_EQ("Part {} [qty] IN (SELECT [use qty] FROM [Group Line] ORDER BY [rec_id]) {}",
            pieces("SELECT * FROM Part WHERE qty IN "
                   "(SELECT [use qty] FROM [Group Line] ORDER BY rec_id)"));
  for (const char* snapshot :
       {"SELECT DISTINCT name FROM Part WHERE qty = 1 ORDER BY name", "SELECT Sum(qty) FROM Part",
        "SELECT name FROM Part GROUP BY name", "SELECT TOP 1 * FROM Part",
        "SELECT * FROM Part UNION SELECT * FROM Part", "SELECT *, qty + 1 FROM Part",
        "SELECT name AS n FROM Part", "SELECT * FROM Part AS p",
        "SELECT * FROM Part, [Group Line]"})
    EXPECT_EQ(" {}  {}", pieces(snapshot)) << snapshot;
}

TEST(JetSql, StatementsThatDifferInTheirValuesHaveOneShape) {
  EXPECT_EQ(Translate("SELECT * FROM t WHERE a = 'x' AND b = 1 AND c = #1/2/2026#").Sql,
            Translate("SELECT * FROM t WHERE a = \"y\" AND b = 2.5 AND c = #2026-03-04#").Sql);
}

TEST(JetSql, TheParametersOfACriterionStandBehindThoseOfTheQuery) {
  const Condition condition = TranslateCondition("inv_id = 'a' AND qty > 1", 3);
  EXPECT_EQ("[inv_id] = ?3 COLLATE JET1 AND [qty] > ?4", condition.Sql);
  EXPECT_EQ((std::vector<Value>{"a", 1}), condition.Parameters);
}

}  // namespace
}  // namespace kvi::jet
