#include <gtest/gtest.h>
#include <libpq-fe.h>
#include <sqlite3.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "base/TextOrder.h"
#include "base/Utf8.h"
#include "jet/postgres/ServerTables.h"
#include "jet/sqlite/JetFunctions.h"
#include "support/ServerDatabase.h"

namespace kvi::jet {
namespace {

using Text = std::optional<std::string>;

std::string Number(double number) {
  char text[32];
  std::snprintf(text, sizeof text, "%.17g", number);
  return text;
}

// The dialect's functions on both engines, asked the same.
class ServerFunctionsTest : public testing::Test {
 protected:
  void SetUp() override {
    if (test::TestServer().empty()) GTEST_SKIP() << "no test server";
    database_.emplace();
    server_.reset(PQconnectdb(database_->Conninfo().c_str()));
    Server("SET search_path = kvi, pg_catalog, public", {});
    Server("SET DateStyle = ISO", {});
    sqlite3* file = nullptr;
    ASSERT_EQ(sqlite3_open(":memory:", &file), SQLITE_OK);
    file_.reset(file);
    RegisterJetFunctions(file);
  }

  // The first field of the answer, "Null", or the message of a failure.
  std::string Server(const std::string& sql, const std::vector<Text>& parameters) {
    std::vector<const char*> values;
    for (const Text& value : parameters) values.push_back(value ? value->c_str() : nullptr);
    const std::unique_ptr<PGresult, void (*)(PGresult*)> result(
        PQexecParams(server_.get(), sql.c_str(), static_cast<int>(values.size()), nullptr,
                     values.data(), nullptr, nullptr, 0),
        PQclear);
    if (PQresultStatus(result.get()) == PGRES_COMMAND_OK) return "";
    if (PQresultStatus(result.get()) != PGRES_TUPLES_OK)
      return PQresultErrorField(result.get(), PG_DIAG_MESSAGE_PRIMARY);
    rows_.clear();
    for (int row = 0; row < PQntuples(result.get()); ++row)
      rows_.emplace_back(PQgetvalue(result.get(), row, 0));
    if (rows_.empty() || PQgetisnull(result.get(), 0, 0)) return "Null";
    constexpr Oid kBool = 16, kLong = 20, kShort = 21, kDouble = 701;
    const Oid type = PQftype(result.get(), 0);
    if (type == kBool) return rows_[0] == "t" ? "1" : "0";
    return type == kLong || type == kShort || type == kDouble
               ? Number(std::strtod(rows_[0].c_str(), nullptr))
               : rows_[0];
  }

  std::string File(const std::string& sql, const std::vector<Text>& parameters,
                   const std::string& type) {
    sqlite3_stmt* prepared = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(file_.get(), sql.c_str(), -1, &prepared, nullptr), SQLITE_OK);
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> run(prepared, sqlite3_finalize);
    for (std::size_t i = 0; i < parameters.size(); ++i) {
      if (!parameters[i]) continue;
      const char* value = parameters[i]->c_str();
      const int place = static_cast<int>(i) + 1;
      if (i == 0 ? type == "float8" : sql.find("like") == sql.npos)
        sqlite3_bind_double(prepared, place, std::strtod(value, nullptr));
      else
        sqlite3_bind_text(prepared, place, value, -1, SQLITE_STATIC);
    }
    if (sqlite3_step(prepared) != SQLITE_ROW) return sqlite3_errmsg(file_.get());
    switch (sqlite3_column_type(prepared, 0)) {
      case SQLITE_NULL:
        return "Null";
      case SQLITE_TEXT:
        return reinterpret_cast<const char*>(sqlite3_column_text(prepared, 0));
      default:
        return Number(sqlite3_column_double(prepared, 0));
    }
  }

  std::optional<test::ServerDatabase> database_;
  std::unique_ptr<PGconn, void (*)(PGconn*)> server_{nullptr, PQfinish};
  std::unique_ptr<sqlite3, int (*)(sqlite3*)> file_{nullptr, sqlite3_close};
  std::vector<std::string> rows_;
};

const std::vector<Text> kTexts = {std::nullopt,
                                  "",
                                  " ",
                                  "abc",
                                  "ABC 12",
                                  "Straße ÆØ",
                                  "ǅ ǆ ς Σ ÿ Ÿ ıİ",
                                  "ѐЁ ԯԮ ẛ ỿ",
                                  "𐐨😀x",
                                  "12",
                                  " 1 2.5 ",
                                  "-.5e3x",
                                  "+7D2",
                                  "1E",
                                  "1E+",
                                  "1e-400",
                                  "7D1234",
                                  "-1e309",
                                  "1.7976931348623157e308",
                                  "1.7976931348623159e308",
                                  "4.9e-324",
                                  "2e-324",
                                  "0E99999",
                                  "1e-99999",
                                  ".",
                                  "-",
                                  "+.e5",
                                  "&HFF",
                                  "1\t2\n3",
                                  "00012",
                                  "1.2.3",
                                  "-0",
                                  "123456789012345678901234567890",
                                  "0.1",
                                  "12,5",
                                  "x1"};
const std::vector<Text> kNumbers = {std::nullopt, "0",         "-0",
                                    "1",          "-1",        "0.1",
                                    "-2.5",       "1e15",      "999999999999999",
                                    "1e-5",       "0.0001",    "123456.789012345678",
                                    "1e300",      "-1.5e-300", "0.30000000000000004",
                                    "1e22"};
const std::vector<Text> kDates = {"2026-03-01", "2026-03-01 14:05:00", "0100-01-01",
                                  "9999-12-31 23:59:59"};
const std::vector<Text> kTyped = {std::nullopt,
                                  "",
                                  "3/1/2026",
                                  "3-1-26",
                                  "3/1/30",
                                  "13/1/2026",
                                  "13/13/2026",
                                  "2/29/2025",
                                  "2/29/2024",
                                  "2026-03-01",
                                  "2026-03-01 14:05:00",
                                  "1-Mar-2026",
                                  "March 1, 2026",
                                  "mar 1 2026",
                                  "1 Mar/2026",
                                  "1/Mar 2026",
                                  "1Mar 2026",
                                  "March 1,",
                                  "Marc 1 2026",
                                  "3/1",
                                  "3/1/2026 2:05 PM",
                                  "3/1/2026 12:00 am",
                                  "3/1/2026 13:00 PM",
                                  "3/1/2026 2:5:7",
                                  "3/1/2026 2:05:",
                                  "3/1/2026 24:00",
                                  "2:05",
                                  " 3/1/2026 ",
                                  "3/1-2026",
                                  "12345",
                                  "3//1/2026",
                                  "3/1/20260",
                                  "2026/3/1",
                                  "99/3/1",
                                  "3/100/26",
                                  "100-1-1",
                                  "99-1-1",
                                  "3/1/2026 2:05PM",
                                  "3/1/2026  2:05",
                                  "0/1/2026",
                                  "abc",
                                  "1 2 Mar 2026",
                                  "Mar Apr 2026"};

struct FunctionCase {
  const char *file, *server;
  std::vector<std::vector<Text>> others = {{}};
};

const std::vector<Text> kCounts = {std::nullopt, "0", "1", "2.9", "300", "-1", "2e9"};

std::vector<std::vector<Text>> Each(const std::vector<Text>& values) {
  std::vector<std::vector<Text>> lists;
  for (const Text& value : values) lists.push_back({value});
  return lists;
}

TEST_F(ServerFunctionsTest, AnswersAreThoseOfTheFile) {
  std::vector<std::vector<Text>> pairs;
  for (const Text& from : kCounts)
    for (const Text& count : kCounts) pairs.push_back({from, count});
  const FunctionCase functions[] = {
      {"UCase(?1)", "ucase(@)"},
      {"LCase(?1)", "lcase(@)"},
      {"Len(?1)", "len(@)"},
      {"CStr(?1)", "cstr(@)"},
      {"jet_text(?1)", "jet_text(@)"},
      {"[IsNull](?1)", "\"isnull\"(@)"},
      {"[Left](?1,?2)", "\"left\"(@,$2::float8)", Each(kCounts)},
      {"[Right](?1,?2)", "\"right\"(@,$2::float8)", Each(kCounts)},
      {"Mid(?1,?2)", "mid(@,$2::float8)", Each(kCounts)},
      {"Mid(?1,?2,?3)", "mid(@,$2::float8,$3::float8)", pairs},
      {"jet_like(?1,?2)", "jet_like(@,$2::text)",
       Each({"*", "?*", "*12*", "a?c", "*[x-z]", "str*[!a-c]*", "ABC[ ]##", "[!]*", "[-a]*",
             "[z-a]*", "[!z-a]*", "[]*5", "ǆ *Σ*", "*😀X", "-.5E3x", "*.*", "straſſe*",
             "*(|)^$\\+{}]"})},
  };
  const std::pair<std::string, const std::vector<Text>*> inputs[] = {
      {"text", &kTexts}, {"float8", &kNumbers}, {"timestamp", &kDates}};
  for (const auto& [type, values] : inputs) {
    for (const FunctionCase& function : functions) {
      std::string sql = std::string("SELECT ") + function.server;
      sql.replace(sql.find('@'), 1, "$1::" + type);
      for (const Text& value : *values) {
        for (std::vector<Text> parameters : function.others) {
          parameters.insert(parameters.begin(), value);
          const std::string expected =
              File(std::string("SELECT ") + function.file, parameters, type);
          EXPECT_EQ(Server(sql, parameters), expected)
              << sql << " of " << value.value_or("Null") << ", "
              << (parameters.size() > 1 ? parameters[1].value_or("Null") : "");
        }
      }
    }
  }
}

TEST_F(ServerFunctionsTest, AListWithoutAnEndIsRefused) {
  for (const char* text : {"a", "b"})
    EXPECT_EQ(Server("SELECT jet_like($1::text, $2::text)", {text, "[a-*"}),
              "function failed: 93 Invalid pattern string");
}

TEST_F(ServerFunctionsTest, NumbersAndDatesAreReadAsInTheFile) {
  struct {
    const char *file, *server, *type;
    const std::vector<Text>& values;
  } readers[] = {{"Val(?1)", "val", "text", kTexts},
                 {"CDbl(?1)", "cdbl", "text", kTexts},
                 {"Int(?1)", "\"int\"", "text", kTexts},
                 {"Val(?1)", "val", "float8", kNumbers},
                 {"Int(?1)", "\"int\"", "float8", kNumbers},
                 {"jet_date(?1)", "jet_date", "text", kTyped},
                 {"jet_date(?1)", "jet_date", "timestamp", kDates}};
  for (const auto& [file, server, type, values] : readers) {
    std::string call = std::string(server) + "($1::" + type + ")";
    if (call.starts_with("jet_date")) call = "cstr(" + call + ")";
    for (const Text& value : values)
      EXPECT_EQ(Server("SELECT " + call, {value}),
                File(std::string("SELECT ") + file, {value}, type))
          << call << " of " << value.value_or("Null");
  }
  for (const char* days : {"0", "46082", "46082.5", "-1.25", "46082.999999", "3e6", "-657435"})
    EXPECT_EQ(Server("SELECT cstr(jet_date($1::float8))", {days}),
              File("SELECT jet_date(?1)", {days}, "float8"))
        << days;
}

TEST_F(ServerFunctionsTest, KeysOrderAsTextsDo) {
  std::mt19937 random(7);
  const std::pair<char32_t, char32_t> ranges[] = {
      {1, 0x7F}, {0x20, 0x17F}, {1, 0x52F}, {0x1E00, 0x1FFF}, {0x1F600, 0x1F64F}, {0xE000, 0xE1FF}};
  std::vector<std::string> texts;
  for (int i = 0; i < 20000; ++i) {
    const auto [low, high] = ranges[random() % std::size(ranges)];
    std::string text;
    for (auto length = random() % 6; length > 0; --length)
      AppendCharacter(text, random() % 4 == 0
                                ? U'e'
                                : low + static_cast<char32_t>(random() % (high - low + 1)));
    texts.push_back(text);
  }
  std::string array = "{";
  for (const std::string& text : texts) {
    array += array.size() > 1 ? ",\"" : "\"";
    for (const char c : text)
      array += c == '"' || c == '\\' ? std::string("\\") + c : std::string(1, c);
    array += '"';
  }
  Server("SELECT key(t) FROM unnest($1::text[]) WITH ORDINALITY AS u(t, n) ORDER BY n",
         {array + "}"});
  ASSERT_EQ(rows_.size(), texts.size());
  const auto sign = [](int order) { return (order > 0) - (order < 0); };
  int wrong = 0;
  for (int pair = 0; pair < 200000; ++pair) {
    const std::size_t left = random() % texts.size(), right = random() % texts.size();
    if (sign(rows_[left].compare(rows_[right])) == sign(CompareTexts(texts[left], texts[right])))
      continue;
    if (++wrong < 5) ADD_FAILURE() << texts[left] << " and " << texts[right];
  }
  EXPECT_EQ(wrong, 0);
  Server("CREATE TABLE public.t(n serial, x text)", {});
  Server(
      "INSERT INTO public.t(x) "
      "VALUES('metal'),('Metal'),('brass'),('ähre'),('Ahre'),('BRASS'),(NULL)",
      {});
  EXPECT_EQ(Server("SELECT min(x) || max(x) FROM public.t WHERE x <> 'Ahre' AND x <> 'ähre'", {}),
            "brassmetal");
  EXPECT_EQ(Server("SELECT min(x) || sum(n) FROM public.t", {}), "Ahre28");
}

TEST_F(ServerFunctionsTest, ATableStandsAndItsIndexesServe) {
  const TableDef table{"Historical Parts",
                       {{"Inv_ID", FieldType::Text, 15},
                        {"Notes", FieldType::Memo},
                        {"F_Date", FieldType::Date},
                        {"pcenter", FieldType::Integer},
                        {"Active", FieldType::Boolean},
                        {"pso_id", FieldType::Single},
                        {"Price", FieldType::Double}},
                       {{{"Inv_ID"}, true},
                        {{"trim(inv_id) COLLATE JET1"}},
                        {{"pcenter", "F_Date DESC", "[Notes]"}}}};
  for (const std::string& sql : ServerTableSql(table)) EXPECT_EQ(Server(sql, {}), "") << sql;
  for (const std::string& sql : ServerFieldSql("Historical Parts", {"Extra'", FieldType::Text, 20}))
    EXPECT_EQ(Server(sql, {}), "") << sql;
  EXPECT_EQ(Server("SELECT string_agg(col_description(attrelid, attnum) || ' ' || "
                   "format_type(atttypid, atttypmod),"
                   "', ' ORDER BY attnum) FROM pg_attribute WHERE attrelid = 'public.\"historical "
                   "parts\"'::regclass "
                   "AND attnum > 0",
                   {}),
            "Inv_ID character varying(15), Notes text, F_Date timestamp(0) without time zone, "
            "pcenter bigint, "
            "Active jet_boolean, pso_id jet_single, Price double precision, Extra' character "
            "varying(20)");
  const std::string parts = " public.\"historical parts\" ";
  Server("SET enable_seqscan = off", {});
  EXPECT_EQ(
      Server("INSERT INTO" + parts + "(inv_id) SELECT n FROM generate_series(1, 500) AS n", {}),
      "");
  EXPECT_EQ(Server("INSERT INTO" + parts + "(inv_id) VALUES(NULL), (NULL), ('A')", {}), "");
  EXPECT_NE(Server("INSERT INTO" + parts + "(inv_id) VALUES('a')", {}), "");
  for (const char* condition : {"\"_t_inv_id\" = key($1)", "\"_k_inv_id\" = key($1)"}) {
    const std::string query = std::string("SELECT _rid FROM") + parts + "WHERE " + condition;
    EXPECT_EQ(Server(query, {"a"}), "503");
    Server("EXPLAIN " + query, {"a"});
    EXPECT_NE(rows_[0].find("Index"), std::string::npos) << rows_[0];
  }
  Server("EXPLAIN SELECT * FROM" + parts +
             "ORDER BY pcenter NULLS FIRST, f_date DESC NULLS LAST, _k_notes NULLS FIRST, _rid",
         {});
  EXPECT_NE(rows_[0].find("Index Scan"), std::string::npos) << rows_[0];
}

}  // namespace
}  // namespace kvi::jet
