// What passes keep in memory, or ask for key by key, is found as a statement finds it.
#include <gtest/gtest.h>

#include "base/ErrorOf.h"
#include "base/RunTimeError.h"
#include "jet/JetTestFile.h"
#include "jet/KeyedQuery.h"
#include "jet/KeyedRows.h"

namespace kvi::jet {
namespace {

class KeyedTest : public JetFile {
 protected:
  // The quantities found, joined; or the number of the failure.
  std::string ByStatement(const std::string& key) {
    return Told([&](std::string& found) {
      auto set = db_.OpenRecordset("SELECT * FROM I_Master WHERE name = '" + key + "'");
      for (; !set.Eof(); set.MoveNext()) found += set.Text("qty") + " ";
    });
  }
  std::string ByQuery(const std::string& key) {
    KeyedQuery query(db_, "SELECT qty FROM I_Master WHERE name = '?'");
    return Told([&](std::string& found) {
      query.Walk(key, [&](std::span<const Value> row) {
        found += row[0].Text() + " ";
        return true;
      });
    });
  }
  std::string ByRows(const std::string& key) {
    KeyedRows<std::string> rows;
    auto set = db_.OpenRecordset("SELECT * FROM I_Master");
    for (; !set.Eof(); set.MoveNext()) rows.Add(set["name"], set.Text("qty"));
    return Told([&](std::string& found) {
      for (const std::string& qty : rows.Of(key)) found += qty + " ";
    });
  }

 private:
  template <class Search>
  static std::string Told(Search search) {
    std::string found;
    const int error = ErrorOf([&] { search(found); });
    return error == 0 ? found : std::to_string(error);
  }
};

TEST_F(KeyedTest, RowsAreFoundAsAStatementFindsThem) {
  int qty = 0;
  for (const char* name :
       {"'Bolt'", "'BOLT'", "'Bolt '", "'\xC3\x89mail'", "'O''Ring'", "''", "NULL"}) {
    const std::string number = std::to_string(++qty);
    db_.Execute("INSERT INTO I_Master (inv_id, name, qty) VALUES ('" + number + "', " + name +
                ", " + number + ")");
  }
  for (const char* key :
       {"bolt", "bolt ", "nut", "\xC3\xA9MAIL", "Email", "", "O''Ring", "O'Ring", "'", "''"}) {
    const std::string found = ByStatement(key);
    EXPECT_EQ(ByQuery(key), found) << key;
    EXPECT_EQ(ByRows(key), found) << key;
  }
  EXPECT_EQ(ByStatement("bolt"), "1 2 ");
  EXPECT_EQ(ByStatement("O'Ring"), "3075");
}

TEST_F(KeyedTest, ATakerThatHasEnoughEndsTheWalkAndHoldsNothing) {
  AddParts(3);
  KeyedQuery query(db_, "SELECT inv_id FROM I_Master WHERE inv_id <> '?' ORDER BY inv_id DESC");
  std::string found;
  query.Walk("2", [&](std::span<const Value> row) {
    found += row[0].Text();
    return false;
  });
  EXPECT_EQ(found, "3");
  Database::Open(path_, false).Execute("DELETE * FROM I_Master WHERE inv_id = '3'");
  EXPECT_EQ(ErrorOf([&] { KeyedQuery(db_, "DELETE * FROM I_Master WHERE inv_id = '?'"); }), 3219);
}

}  // namespace
}  // namespace kvi::jet
