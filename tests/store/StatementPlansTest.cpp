#include <gtest/gtest.h>

#include "jet/engine/StatementRun.h"
#include "jet/sets/QueryCache.h"
#include "store/Schema.h"
#include "support/TemporaryFolder.h"

namespace kvi::test {
namespace {

// The plan of a statement as the recordset runs it.
std::string PlanOf(jet::OpenFile& engine, const std::string& sql) {
  const auto query = engine.queries.Find(sql);
  jet::StatementRun run(
      engine.connection,
      "EXPLAIN QUERY PLAN " + (query->shape ? query->shape->KeySql() : query->translation.Sql));
  std::string plan;
  while (run.Step()) plan.append(run.Text(3)).append("; ");
  return plan;
}

// Each runs once a part, a line or a key press: a walk through the whole table would show.
TEST(StatementPlans, TheFrequentStatementsUseAnIndex) {
  TemporaryFolder folder;
  CreateInventoryDatabase(folder / "KV_Inventory.mdb").Close();
  jet::OpenFile engine(jet::OpenConnection(folder / "KV_Inventory.mdb", false));
  const char* statements[] = {
      "SELECT * FROM I_Master WHERE Trim(Inv_ID) = '9';",
      "SELECT * FROM I_Master WHERE lTrim(rtrim(Inv_ID)) = '9';",
      "SELECT * FROM I_Master WHERE Inv_ID IN ('9', '10')",
      "SELECT * FROM I_Master WHERE Inv_ID = '9';",
      "select * from i_master where ucase(trim(name))='BOLT'",
      "SELECT * FROM I_Master where pcenter = 4 ORDER BY name",
      "SELECT * FROM R_Master where pcenter = 4 ORDER BY name",
      "SELECT * FROM r_master WHERE Rec_ID = 'G9 DUP';",
      "SELECT * FROM INV_RECIPE WHERE REC_ID = 'G9'",
      "SELECT R_Master.name FROM R_Master INNER JOIN Inv_Recipe ON R_Master.Rec_ID = "
      "Inv_Recipe.Rec_ID WHERE Inv_Recipe.Inv_ID = \"9\" ORDER BY R_Master.name;",
      "SELECT * FROM HIST_PURCHASES where pcenter = 4 ",
      "SELECT * FROM Hist_Purchases WHERE P_Date > #1/31/2026# AND P_Date <= #2/28/2026# "
      "AND inv_id = '9' AND pcenter = 4;",
      "SELECT * FROM HI_Header WHERE F_Date  = #1/31/2026# AND pcenter = 4;",
      "SELECT * FROM [Historical Inventory] WHERE pcenter = 4 AND F_Date = #1/31/2026#;",
      "DELETE * FROM [Historical Inventory] WHERE Inv_ID = '9' AND PCenter <> 4;",
      "SELECT * from PSO_detail where pcenter = 4 and pso_id = 7",
      "SELECT * FROM vendor_info WHERE name = 'Hub';",
  };
  for (const char* sql : statements) {
    const std::string plan = PlanOf(engine, sql);
    EXPECT_EQ(std::string::npos, plan.find("SCAN")) << sql << "\n" << plan;
  }
  // The newest purchase first: read in the index's order, and not sorted.
  const std::string fifo =
      PlanOf(engine, "SELECT * FROM Hist_Purchases WHERE Inv_ID = '9' ORDER BY p_date DESC;");
  EXPECT_EQ(std::string::npos, fifo.find("TEMP B-TREE")) << fifo;
  EXPECT_EQ(std::string::npos, fifo.find("SCAN")) << fifo;
}

}  // namespace
}  // namespace kvi::test
