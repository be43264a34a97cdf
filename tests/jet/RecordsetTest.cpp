#include "jet/Recordset.h"

#include "base/ErrorOf.h"
#include "jet/JetTestFile.h"

namespace kvi::jet {
namespace {

using RecordsetTest = JetFile;

TEST_F(RecordsetTest, AnEmptySetIsAtBothEnds) {
  Recordset set = db_.OpenRecordset(kParts);
  EXPECT_TRUE(set.Eof() && set.Bof());
  EXPECT_EQ(set.RecordCount(), 0);
  for (const auto& action : std::initializer_list<std::function<void()>>{
           [&] { set.MoveFirst(); }, [&] { set.MoveLast(); }, [&] { set.MoveNext(); },
           [&] { set.MovePrevious(); }, [&] { (void)set["name"]; }, [&] { set.Edit(); },
           [&] { set.Delete(); }})
    EXPECT_EQ(ErrorOf(action), 3021);
}

TEST_F(RecordsetTest, AWalkPassesEveryRowOnceAndEndsBehindTheLast) {
  AddParts(3000);  // several blocks, in both directions
  Recordset set = db_.OpenRecordset("SELECT * FROM I_Master ORDER BY Val(Inv_ID) DESC;");
  int expected = 3000;
  for (; !set.Eof(); set.MoveNext()) ASSERT_EQ(set.Number("INV_ID"), expected--);
  EXPECT_EQ(expected, 0);
  EXPECT_EQ(ErrorOf([&] { set.MoveNext(); }), 3021);
  for (set.MovePrevious(); !set.Bof(); set.MovePrevious())
    ASSERT_EQ(set.Number("inv_id"), ++expected);
  EXPECT_EQ(expected, 3000);
  EXPECT_EQ(ErrorOf([&] { set.MovePrevious(); }), 3021);
  set.MoveLast();
  EXPECT_EQ(set.Text("name"), "Part 1");
  set.MoveFirst();
  EXPECT_EQ(set.Text("name"), "Part 3000");
}

TEST_F(RecordsetTest, AFieldLearntLateIsReadInTheBlockAtHand) {
  AddParts(20);
  for (int pass = 0; pass < 2; ++pass) {
    Recordset set = db_.OpenRecordset("SELECT * FROM I_Master");
    for (int row = 0; row < 10; ++row) {
      (void)set["inv_id"];
      set.MoveNext();
    }
    const Value& number = set["inv_id"];
    const Value& name = set["name"];  // not fetched so far; the value before must stay valid
    EXPECT_EQ(number.Text() + name.Text(), "11Part 11");
    EXPECT_EQ(set.Number("qty"), 10);
  }
}

// A shape whose sets are left early reads its rows one by one within a batch.
TEST_F(RecordsetTest, ASetThatIsMostlyLeftEarlyGivesAllRowsAllTheSame) {
  AddParts(9);
  const WriteBatch batch(db_);
  Recordset written = db_.OpenRecordset("SELECT * FROM I_Master WHERE inv_id = '9'");
  for (int pass = 0; pass < 3; ++pass) {
    written.Edit();
    written.Set("qty", pass);
    written.Update();
    Recordset set = db_.OpenRecordset(kParts);
    EXPECT_EQ(set.Text("name"), "Part 1");
    EXPECT_EQ(set.RecordCount(), 9);
    if (pass < 2) continue;
    int rows = 1;
    for (; set.Text("name") != "Part 9"; set.MoveNext()) ++rows;
    EXPECT_EQ(rows, 9);
    EXPECT_EQ(set.Number("qty"), pass);
    set.FindFirst("inv_id = '4'");
    set.MovePrevious();
    EXPECT_EQ(set.Text("name"), "Part 3");
  }
}

TEST_F(RecordsetTest, ANewRowStandsAtTheEndAndTheRowBeforeStaysCurrent) {
  AddParts(2);
  Recordset set = db_.OpenRecordset("SELECT * FROM I_Master WHERE qty = 10 ORDER BY name");
  set.AddNew();
  EXPECT_TRUE(set["inv_id"].IsNull());
  EXPECT_FALSE(set["corp"].Boolean());
  set.Set("inv_id", "0");
  set.Set("qty", 99);  // outside the set's own condition: still one of its rows
  set.Update();
  EXPECT_EQ(set.Text("inv_id"), "1");
  EXPECT_EQ(set.RecordCount(), 3);
  set.MoveLast();
  EXPECT_EQ(set.Text("inv_id"), "0");
  set.FindFirst("inv_id = '0'");
  EXPECT_FALSE(set.NoMatch());
}

TEST_F(RecordsetTest, TheFirstRowOfAnEmptySetIsReachedByMoving) {
  Recordset set = db_.OpenRecordset(kParts);
  set.AddNew();
  set.Update();
  EXPECT_EQ(set.RecordCount(), 1);
  EXPECT_FALSE(set.Bof());
  EXPECT_EQ(ErrorOf([&] { (void)set["name"]; }), 3021);
  set.MoveFirst();
  EXPECT_TRUE(set["name"].IsNull());
}

TEST_F(RecordsetTest, ADeletedRowIsGoneAndTheNextOneFollows) {
  AddParts(4);
  Recordset set = db_.OpenRecordset(kParts);
  set.MoveNext();
  set.Delete();
  EXPECT_EQ(ErrorOf([&] { (void)set["name"]; }), 3167);
  EXPECT_EQ(ErrorOf([&] { set.Edit(); }), 3167);
  EXPECT_EQ(ErrorOf([&] { set.Delete(); }), 3167);
  EXPECT_EQ(set.RecordCount(), 3);
  set.MoveNext();
  EXPECT_EQ(set.Text("inv_id"), "3");
  set.MovePrevious();
  EXPECT_EQ(set.Text("inv_id"), "1");
  for (set.MoveLast(); !set.Bof(); set.MovePrevious()) set.Delete();
  EXPECT_TRUE(set.Eof());
  EXPECT_EQ(db_.OpenRecordset(kParts).RecordCount(), 0);
}

TEST_F(RecordsetTest, AnEditIsWrittenByUpdateAloneAndLostByMoving) {
  AddParts(2);
  Recordset set = db_.OpenRecordset(kParts);
  EXPECT_EQ(ErrorOf([&] { set.Set("name", "x"); }), 3020);
  EXPECT_EQ(ErrorOf([&] { set.Update(); }), 3020);
  set.Edit();
  set.Set("name", "Lost");
  EXPECT_EQ(set.Text("name"), "Lost");
  EXPECT_EQ(set.Text("inv_id"), "1");
  set.MoveNext();
  set.MovePrevious();
  EXPECT_EQ(set.Text("name"), "Part 1");
  set.Edit();
  set.Set("name", "Kept");
  set.Update();
  EXPECT_EQ(set.Text("name"), "Kept");
  set.AddNew();
  set.CancelUpdate();
  EXPECT_EQ(ErrorOf([&] { set.Update(); }), 3020);
  EXPECT_EQ(Rows(kParts, "inv_id name qty"), "1|Kept|10\n2|Part 2|10\n");
}

TEST_F(RecordsetTest, EveryFieldTakesWhatItsTypeCanHold) {
  constexpr int kRefused = 3421;
  struct Case {
    const char* field;
    Value value;
    int error;
    const char* stored;
  };
  const Case cases[] = {
      {"qty", "1", 0, "1"},
      {"qty", " -2.5 ", 0, "-2.5"},
      {"qty", "", kRefused, ""},
      {"qty", "12 each", kRefused, ""},
      {"qty", "1e999", kRefused, ""},
      {"qty", "nan", kRefused, ""},
      {"qty", Value(), 0, "Null"},
      {"qty", true, 0, "-1"},
      {"pcenter", 2.5, 0, "2"},
      {"pcenter", "3", 0, "3"},
      {"pcenter", 32767, 0, "32767"},
      {"pcenter", 32768, kRefused, ""},
      {"bought", "3/1/2026", 0, "3/1/2026"},
      {"bought", Date{2026, 3, 1, 14, 5}, 0, "3/1/2026 2:05:00 PM"},
      {"bought", 46082.5, 0, "3/1/2026 12:00:00 PM"},
      {"bought", "", kRefused, ""},
      {"corp", "True", 0, "True"},
      {"corp", "maybe", kRefused, ""},
      {"corp", Value(), 0, "False"},
      {"corp", 5, 0, "True"},
      {"name", "", 0, ""},
      {"name", Value(), 0, "Null"},
      {"inv_id", "123456789012345", 0, "123456789012345"},
      {"inv_id", "ÄÖÜäöüßéèêñçøåæ", 0, "ÄÖÜäöüßéèêñçøåæ"},  // 15 characters in 30 bytes
      {"inv_id", "1234567890123456", 3163, ""},
      {"notes", std::string(100000, 'n'), 0, nullptr},
      {"nothing", 1, 3265, ""},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(std::string(one.field) + " " + one.value.Text().substr(0, 40));
    Recordset set = db_.OpenRecordset(kParts);
    set.AddNew();
    EXPECT_EQ(ErrorOf([&] { set.Set(one.field, one.value); }), one.error);
    if (one.error != 0) continue;
    const Value held = set[one.field];
    set.Update();
    Recordset again = db_.OpenRecordset("SELECT * FROM I_Master");
    EXPECT_EQ(again[one.field], held);
    const std::string stored = again[one.field].IsNull() ? "Null" : again.Text(one.field);
    EXPECT_EQ(stored, one.stored ? one.stored : one.value.Text());
    again.Delete();
  }
}

TEST_F(RecordsetTest, ADuplicateKeyKeepsTheEditBuffer) {
  AddParts(2);
  Recordset set = db_.OpenRecordset(kParts);
  set.AddNew();
  set.Set("inv_id", "2");
  EXPECT_EQ(ErrorOf([&] { set.Update(); }), 3022);
  set.Set("inv_id", "3");
  set.Update();
  set.Edit();
  set.Set("inv_id", "3");
  EXPECT_EQ(ErrorOf([&] { set.Update(); }), 3022);
  set.Set("inv_id", "4");
  set.Update();
  EXPECT_EQ(Rows("SELECT * FROM I_Master ORDER BY inv_id", "inv_id"), "2\n3\n4\n");
}

TEST_F(RecordsetTest, FindFirstGoesToTheFirstMatchInTheSetsOrder) {
  AddParts(200);
  db_.Execute("UPDATE I_Master SET notes = 'odd' WHERE Val(inv_id) IN (7, 150, 77)");
  Recordset set = db_.OpenRecordset("SELECT * FROM I_Master WHERE qty > 1 ORDER BY name DESC");
  set.FindFirst("notes = 'ODD'");
  EXPECT_EQ(set.Text("inv_id"), "77");  // "Part 77" > "Part 7" > "Part 150"
  set.FindFirst("inv_id = 'nowhere'");
  EXPECT_TRUE(set.NoMatch());
  EXPECT_EQ(set.Text("inv_id"), "77");
  set.FindFirst("INV_ID = '150'");
  EXPECT_FALSE(set.NoMatch());
  set.MoveNext();
  EXPECT_EQ(set.Text("name"), "Part 15");
  EXPECT_EQ(ErrorOf([&] { set.FindFirst("nofield = 1"); }), 3061);
  EXPECT_EQ(ErrorOf([&] { set.FindFirst("inv_id = 'O'Neill'"); }), 3075);
  // Not one of the set's rows, though it meets both conditions now.
  db_.Execute("INSERT INTO I_Master (inv_id, qty) VALUES ('late', 5)");
  set.FindFirst("inv_id = 'late'");
  EXPECT_TRUE(set.NoMatch());
  // One of them still, though it meets the set's condition no longer.
  db_.Execute("UPDATE I_Master SET qty = 0 WHERE inv_id = '9'");
  set.FindFirst("inv_id = '9'");
  EXPECT_EQ(set.Number("qty"), 0);
}

TEST_F(RecordsetTest, AGroupedOrJoinedQueryIsASnapshot) {
  AddParts(30);
  db_.Execute("INSERT INTO [Historical Inventory] VALUES ('7', 2.5)");
  db_.Execute("INSERT INTO [Historical Inventory] VALUES ('7 ', 1)");
  Recordset sums = db_.OpenRecordset(
      "SELECT Trim(Inv_ID) AS id, sum(Amount) AS total FROM [Historical Inventory] "
      "GROUP BY Trim(Inv_ID)");
  sums.FindFirst("id = '7'");
  EXPECT_EQ(sums.Number("total"), 3.5);
  db_.Execute("DELETE * FROM [Historical Inventory]");
  sums.FindFirst("total > 3");
  EXPECT_FALSE(sums.NoMatch());
  sums.FindFirst("total > 4");
  EXPECT_TRUE(sums.NoMatch());
  EXPECT_EQ(ErrorOf([&] { sums.Edit(); }), 3027);
  EXPECT_EQ(ErrorOf([&] { sums.AddNew(); }), 3027);
  Recordset joined = db_.OpenRecordset(
      "SELECT a.inv_id, b.inv_id, b.corp FROM I_Master AS a INNER JOIN I_Master AS b "
      "ON a.name = b.name WHERE a.inv_id = '12'");
  EXPECT_EQ(joined["corp"], Value(false));
  joined.FindFirst("corp = False");
  EXPECT_FALSE(joined.NoMatch());
}

TEST_F(RecordsetTest, WrongNamesAndStatementsHaveTheirNumbers) {
  const std::pair<const char*, int> cases[] = {
      {"SELECT * FROM Nowhere", 3078},
      {"SELECT * FROM I_Master WHERE nofield = 1", 3061},
      {"SELECT * FROM I_Master ORDER BY nofield", 3061},
      {"SELECT * FROM I_Master WHERE name = 'O'Neill'", 3075},
      {"DELETE * FROM I_Master", 3219},
  };
  for (const auto& [sql, number] : cases)
    EXPECT_EQ(ErrorOf([&, text = sql] { (void)db_.OpenRecordset(text); }), number) << sql;
  EXPECT_EQ(ErrorOf([&] { db_.Execute("SELECT * FROM I_Master"); }), 3065);
  EXPECT_EQ(ErrorOf([&] { db_.Execute("DELETE * FROM Nowhere"); }), 3078);
  AddParts(1);
  EXPECT_EQ(ErrorOf([&] { db_.Execute("UPDATE I_Master SET inv_id = '1234567890123456'"); }), 3163);
  Recordset set = db_.OpenRecordset(kParts);
  EXPECT_EQ(ErrorOf([&] { (void)set["nofield"]; }), 3265);
  EXPECT_EQ(ErrorOf([&] { (void)set["_rid"]; }), 3265);
}

TEST_F(RecordsetTest, WhatIsComparedAndReckonedInAStatementIsOfItsKind) {
  AddParts(1);
  db_.Execute(
      "INSERT INTO I_Master (inv_id, name, bought, corp) VALUES ('7D1234', 'Large', #3/1/2026#, "
      "True)");
  const std::string large = "Large\n", part = "Part 1\n";
  const std::pair<const char*, std::string> cases[] = {
      {"corp = -1", large},
      {"corp = 0", part},
      {"corp > -1", part},
      {"bought = '3/1/2026'", large},
      {"46082 = bought", large},
      {"bought > 'Feb 28'", "3464"},
      {"bought BETWEEN '2/1/2026' AND 46100", large},
      {"bought IN ('3/1/2026')", large},
      {"Val(inv_id) < 1", large},
      {"CDbl(inv_id) = 1", "6"},
      {"Left(name, 0 - 1) = ''", "5"},
      {"name LIKE '[a'", "93"},
  };
  for (const auto& [criterion, found] : cases) {
    std::string rows;
    const int error = ErrorOf(
        [&] { rows = Rows("SELECT * FROM I_Master WHERE " + std::string(criterion), "name"); });
    EXPECT_EQ(error == 0 ? rows : std::to_string(error), found) << criterion;
  }
  const Recordset last = db_.OpenRecordset("SELECT Count(bought), Max(bought) AS l FROM I_Master");
  EXPECT_EQ(last["l"], Value(Date{2026, 3, 1}));
}

TEST_F(RecordsetTest, AClosedDatabaseOrSetRaises3420) {
  AddParts(1);
  Recordset set = db_.OpenRecordset(kParts);
  set.Edit();
  db_.Close();
  EXPECT_EQ(ErrorOf([&] { (void)set["name"]; }), 3420);
  EXPECT_EQ(ErrorOf([&] { (void)set.Eof(); }), 3420);
  EXPECT_EQ(ErrorOf([&] { set.Update(); }), 3420);
  EXPECT_EQ(ErrorOf([&] { db_.Execute("DELETE * FROM I_Master"); }), 3420);
  EXPECT_EQ(ErrorOf([&] { Recordset().MoveNext(); }), 3420);
  EXPECT_EQ(ErrorOf([] { WriteBatch{*std::make_unique<Database>()}; }), 3420);
  db_ = Database::Open(path_, false);
  EXPECT_EQ(Rows(kParts, "name"), "Part 1\n");
}

TEST_F(RecordsetTest, TablesAndFieldsAreToldAndAppended) {
  const auto describe = [&] {
    std::string text;
    for (const TableDef& table : db_.TableDefs()) {
      text += table.Name + ":";
      for (const FieldDef& field : table.Fields)
        text += " " + field.Name + "/" + std::to_string(static_cast<int>(field.Type)) +
                (field.Type == FieldType::Text ? "(" + std::to_string(field.Size) + ")" : "");
      text += "\n";
    }
    return text;
  };
  EXPECT_EQ(describe(),
            "I_Master: inv_id/10(15) name/10(255) pcenter/3 qty/7 bought/8 corp/1 notes/12\n"
            "Historical Inventory: Inv_ID/10(15) Amount/7\n");
  AddParts(1);
  Recordset before = db_.OpenRecordset(kParts);
  for (const FieldDef& field :
       {FieldDef{"BarCodeScan", FieldType::Text, 30}, FieldDef{"Corp2", FieldType::Boolean},
        FieldDef{"rate", FieldType::Single}})
    db_.AppendField("i_master", field);
  EXPECT_EQ(ErrorOf([&] { db_.AppendField("I_Master", {"BARCODESCAN"}); }), 3191);
  EXPECT_EQ(ErrorOf([&] { db_.AppendField("Nowhere", {"x"}); }), 3265);
  EXPECT_EQ(before.Text("name"), "Part 1");
  EXPECT_EQ(Rows(kParts, "name BarCodeScan Corp2 rate"), "Part 1|Null|False|Null\n");
  EXPECT_EQ(describe(),
            "I_Master: inv_id/10(15) name/10(255) pcenter/3 qty/7 bought/8 corp/1 notes/12 "
            "BarCodeScan/10(30) Corp2/1 rate/6\n"
            "Historical Inventory: Inv_ID/10(15) Amount/7\n");
}

TEST_F(RecordsetTest, AFileOfAnotherToolIsReadAndWritten) {
  const std::string other = folder_ / "other.mdb";
  test::WriteFile(other, test::ReadFile(path_));
  RawFile(other).Ask(
      "CREATE TABLE plain(id TEXT, n INTEGER);INSERT INTO plain VALUES('a',1),('b',2);"
      "CREATE TABLE keyless(k TEXT PRIMARY KEY) WITHOUT ROWID;INSERT INTO keyless VALUES('k')");
  Database database = Database::Open(other, false);
  Recordset set = database.OpenRecordset("SELECT * FROM plain ORDER BY n DESC");
  set.Edit();
  set.Set("id", "c");
  set.Update();
  database.Execute("UPDATE plain SET n = 3 WHERE id = 'A'");
  EXPECT_EQ(RowsOf(database, "SELECT * FROM plain ORDER BY n", "id n"), "c|2\na|3\n");
  EXPECT_EQ(RowsOf(database, "SELECT * FROM keyless", "k"), "k\n");
}

}  // namespace
}  // namespace kvi::jet
