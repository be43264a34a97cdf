// Files of older programs, sound and damaged, as the reader gives them.
#include <gtest/gtest.h>

#include <limits>

#include "base/ErrorOf.h"
#include "fuzz/DamagedFiles.h"
#include "jet/file/OldFile.h"
#include "jet/file/TableReader.h"
#include "sample/oldfiles/JetFileWriter.h"
#include "support/TemporaryFolder.h"

namespace kvi::jetfile {
namespace {

class OldFileTest : public ::testing::TestWithParam<Version> {
 protected:
  std::string DumpOf(const std::string& bytes, const std::string& password = "") {
    test::WriteFile(path_, bytes);
    return Dump(path_, password);
  }

  std::string ReadDamaged(const std::string& bytes);

  test::TemporaryFolder folder_;
  const std::string path_ = folder_ / "OLD.MDB";
};

const NewTable kParts{"Parts",
                      {{"id", ColumnType::Long},
                       {"name", ColumnType::Text, 20},
                       {"ok", ColumnType::Boolean},
                       {"note", ColumnType::Memo},
                       {"qty", ColumnType::Integer}}};

std::string Hex(const std::string& digits) {
  std::string bytes;
  for (std::size_t at = 0; at < digits.size(); at += digits[at] == ' ' ? 1 : 2)
    if (digits[at] != ' ') bytes += static_cast<char>(std::stoi(digits.substr(at, 2), nullptr, 16));
  return bytes;
}

// Rows worked out by hand: a writer that errs as its reader does would tell nothing.
TEST_P(OldFileTest, RowsStandInTheFileAsTheyWereWorkedOutByHand) {
  const bool isJet4 = GetParam() == Version::Jet4;
  JetFileWriter writer(GetParam());
  writer.Begin(kParts);
  writer.Add({7, "Größe", true, "hi", -2});
  writer.Add({8, {}, false, {}, {}});
  writer.Begin({"Wide",
                {{"a", ColumnType::Text, 255},
                 {"b", ColumnType::Text, 255},
                 {"c", ColumnType::Text, 255},
                 {"d", ColumnType::Text, 255}}});
  writer.Add({std::string(200, 'a'), std::string(100, 'b'), {}, std::string(250, 'd')});
  const std::string bytes = writer.Finish();
  const std::string rows[] = {
      isJet4 ? "0500 07000000 FEFF FFFE4772F6DF65 040000800000000000000000 68006900"
               "1F00 0F00 0800 0200 1F"
             : "05 07000000 FEFF 4772F6DF65 020000800000000000000000 6869 1A0C07 02 1F",
      isJet4 ? "0400 FFFE 616161" : "27 2D2DC901 0402 04 0B"};
  for (const std::string& row : rows) EXPECT_NE(bytes.find(Hex(row)), std::string::npos) << row;
  EXPECT_EQ(DumpOf(bytes), "Parts\n 7 'Größe' True 'hi' -2\n 8 Null False Null Null\nWide\n '" +
                               std::string(200, 'a') + "' '" + std::string(100, 'b') + "' Null '" +
                               std::string(250, 'd') + "'\n");
  // The mask of the first page, and of an encoded one.
  EXPECT_EQ(bytes.substr(0x18 + 8, 8), Hex("EBA96772433F009C"));
  std::string stream(8, '\0');
  ApplyRc4(0x1234ABCD ^ 1, {reinterpret_cast<std::uint8_t*>(stream.data()), stream.size()});
  EXPECT_EQ(stream, Hex("EDCC174621262FD1"));
}

TEST_P(OldFileTest, EveryTypeComesWithItsLimitsApartFromNull) {
  JetFileWriter writer(GetParam());
  writer.Begin({"Types",
                {{"b", ColumnType::Byte},
                 {"i", ColumnType::Integer},
                 {"l", ColumnType::Long},
                 {"c", ColumnType::Currency},
                 {"s", ColumnType::Single},
                 {"d", ColumnType::Double},
                 {"t", ColumnType::Date},
                 {"x", ColumnType::Binary},
                 {"g", ColumnType::Guid},
                 {"n", ColumnType::Numeric, 0, 4},
                 {"v", ColumnType::Long, 0, 0, true},
                 {"o", ColumnType::Ole}}});
  const std::string guid = Hex("78563412BC9AF0DE1122334455667788");
  constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
  const auto none = Value();
  writer.Add({255, 32767, 2147483647, kMost, 1.1, 0.1 + 0.2, 36585.999988425926, "ab", guid,
              "123456", 5, "pic"});
  writer.Add({0, -32768, -2147483648.0, -kMost - 1, -0.5, 5e-324, -1.75, "", none, "-1", -1, ""});
  writer.Add(std::vector<Value>(12));
  writer.Add({1, 0, 0, std::int64_t{-1}, 16777216, 1e308, 2958465.999988426, none, none,
              "1234567890123456789012345678"});
  writer.Add({1, 0, 0, 0, 0, 0, 2958466, none, none, none, none, none});
  EXPECT_EQ(
      DumpOf(writer.Finish()),
      "Types\n"
      " 255 32767 2147483647 922337203685478 1.1 0.3 2000-02-29 23:59:59 'ab' "
      "'{12345678-9ABC-DEF0-1122-334455667788}' 12.3456 5 'pic'\n"
      " 0 -32768 -2147483648 -922337203685478 -0.5 4.94065645841247E-324 1899-12-29 18:00:00 '' "
      "Null -0.0001 -1 ''\n"
      " Null Null Null Null Null Null Null Null Null Null Null Null\n"
      " 1 0 0 -0.0001 16777216 1E+308 9999-12-31 23:59:59 Null Null 1.23456789012346E+23 Null "
      "Null\n"
      " 1 0 0 0 0 0 Null Null Null Null Null Null\n"
      "! row 5, t: no date of the calendar\n");
}

TEST_P(OldFileTest, TextsAndMemosOfEveryLengthAndScript) {
  const bool isJet4 = GetParam() == Version::Jet4;
  JetFileWriter writer(GetParam());
  writer.Begin({"Notes", {{"text"}, {"memo", ColumnType::Memo}}});
  std::string expected = "Notes\n";
  const std::string tail = isJet4 ? "Жди € 😀" : "über €";
  for (const std::size_t length : {0, 1, 2, 3, 31, 64, 65, 2031, 2032, 2033, 4076, 4077, 70000}) {
    const std::string memo(length, 'm');
    writer.Add({tail, memo});
    writer.Add({"", memo + tail});
    expected += " '" + tail + "' '" + memo + "'\n '' '" + memo + tail + "'\n";
  }
  EXPECT_EQ(DumpOf(writer.Finish()), expected);
}

TEST(TextDecoderTest, CompressedTextChangesItsMode) {
  const TextDecoder jet4(Version::Jet4, 0), jet3(Version::Jet3, 1252),
      cyrillic(Version::Jet3, 1251);
  const auto text = [](const TextDecoder& decoder, const std::string& digits) {
    const std::string bytes = Hex(digits);
    return decoder.Value({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
  };
  EXPECT_EQ(text(jet4, "FFFE 4142 00 1604 3804 00 4344"), "ABЖиCD");
  EXPECT_EQ(text(jet4, "FFFE 00 1604 4100 3804 00 5A"), "ЖAиZ");
  EXPECT_EQ(text(jet4, "FFFE"), "");
  EXPECT_EQ(text(jet4, "3DD800DE"), "\U0001F600");
  EXPECT_EQ(text(jet4, "3DD8 4100 42"), "\uFFFDA\uFFFD");
  EXPECT_EQ(text(jet3, "80 81 E4"), "\u20AC\u0081ä");
  EXPECT_EQ(text(cyrillic, "C6E8"), "Жи");
}

// Rows as years of work leave them behind, in a file with a password and encoded pages.
TEST_P(OldFileTest, WhatTheYearsLeftBehind) {
  JetFileWriter writer(GetParam(), "Ägypten", 0x1234ABCD);
  NewTable parts = kParts;
  parts.Indexes = {{"byName", {"name"}, false}, {"key", {"id"}, true}, {"fk", {"qty"}, true, true}};
  parts.Backwards = parts.ReferencedMap = true;
  writer.Begin(parts);
  writer.Add({1, "gone", true, "", 1}, Fate::Deleted);
  writer.Add({2, "moved", true, "m", 2}, Fate::Moved);
  writer.Add({3, "twice", true, std::string(9000, 'x'), 3}, Fate::MovedTwice);
  writer.Add({4});
  NewTable wide{"Wide", {}};
  for (int i = 0; i < 200; ++i)
    wide.Columns.push_back({"a column with a long name " + std::to_string(i), ColumnType::Integer});
  writer.Begin(wide);
  std::vector<Value> row(200);
  row[0] = row[199] = 5;
  writer.Add(row);
  writer.Begin({.Name = "MSysOwn", .Columns = {{"a"}}, .Flags = 2});
  writer.Begin({.Name = "Hidden", .Columns = {{"a"}}, .Flags = 8});
  writer.AddLinked("Vendors", "C:\\DATA\\V.MDB", "Names");
  writer.AddQuery("Par list");
  const std::string bytes = writer.Finish();
  std::string empty;
  for (int i = 0; i < 198; ++i) empty += " Null";
  EXPECT_EQ(DumpOf(bytes, "Ägypten"), "Parts\n 2 'moved' True 'm' 2\n 3 'twice' True '" +
                                          std::string(9000, 'x') +
                                          "' 3\n 4 Null False Null Null\nWide\n 5" + empty +
                                          " 5\nHidden\nVendors is Names in C:\\DATA\\V.MDB\n"
                                          "Par list (query)\n");
  for (const char* wrong : {"", "ägypten", "Ägypten "})
    EXPECT_EQ(ErrorOf([&] { Dump(path_, wrong); }), 3031) << wrong;

  OldFile file(path_, "Ägypten");
  std::string indexes;
  for (const Index& index : ReadDefinition(file.Pages(), file.Objects()[0].Page).Indexes)
    indexes += index.Name + (index.Unique ? " unique" : "") + " on " +
               std::to_string(index.Parts.at(0).column) + "\n";
  EXPECT_EQ(indexes, "key unique on 0\nbyName on 1\n");
}

// What can be read of a damaged file, or why none of it.
std::string OldFileTest::ReadDamaged(const std::string& bytes) {
  try {
    return DumpOf(bytes);
  } catch (const FileError& error) {
    return "! " + error.Description + "\n";
  }
}

TEST_P(OldFileTest, ACutFileIsWholeOrToldOf) {
  const std::string file = SoundFile(GetParam()), whole = DumpOf(file);
  EXPECT_EQ(whole.find('!'), std::string::npos) << whole;
  for (std::size_t size = 0; size < file.size(); size += 512)
    EXPECT_NE(ReadDamaged(file.substr(0, size)).find("! "), std::string::npos) << size;
  EXPECT_EQ(DumpOf(file + "rubbish"), whole);
}

TEST_P(OldFileTest, RandomDamageEndsInRowsOrInAnError) {
  const std::string file = SoundFile(GetParam());
  constexpr std::uint64_t kFiles = 300;
  int told = 0;
  for (std::uint64_t seed = 1; seed <= kFiles; ++seed)
    told += ReadDamaged(Damaged(file, seed)).find("! ") != std::string::npos ? 1 : 0;
  EXPECT_GT(told, 100) << "most of it strikes something";
}

// Each fault of a structure by itself. In the small file the rows stand on page 6, the memos on
// page 5 and the last piece of the long one on page 7, the map on page 10.
TEST_P(OldFileTest, EachDamageIsNamed) {
  const bool isJet4 = GetParam() == Version::Jet4;
  const std::size_t pageSize = isJet4 ? 4096 : 2048, slots = isJet4 ? 14 : 10;
  JetFileWriter writer(GetParam());
  NewTable parts = kParts;
  parts.Indexes = {{"key", {"id"}, true}};
  writer.Begin(parts);
  writer.Add({1, "one", true, std::string(100, 'm'), 1});
  writer.Add({2, "two", true, std::string(5000, 'n'), 2});
  writer.Add({3, "three", true, "", 3});
  const std::string file = writer.Finish();
  ASSERT_EQ(DumpOf(file).find('!'), std::string::npos) << DumpOf(file);
  const auto last = [&](std::size_t at) { return pageSize - at; };
  const auto pick = [&](std::size_t jet3, std::size_t jet4) { return isJet4 ? jet4 : jet3; };
  const struct {
    std::uint32_t page;
    std::size_t at;
    const char *bytes, *told;
  } damages[] = {
      {2, 0, "00", "The file's catalogue of tables is damaged: page 2 is no definition"},
      {2, pick(25, 45), "0100", "catalogue"},
      {4, 0, "01", "page 4 is no definition of a table"},
      {4, 4, "04", "the definition's pages run in a circle"},
      {4, 4, "FF", "page 255 is beyond the end of the file"},
      {4, pick(25, 45), "FFFF", "the definition tells of 65535 columns"},
      {4, pick(27, 47), "FFFF", "the definition tells of 65535 indexes"},
      {4, pick(23, 43) + 2, "09", "! "},
      {4, pick(35, 55), "C8", "row 200 is not on its page"},
      {4, pick(35, 55) + 1, "FFFFFF", "page 16777215 is beyond the end"},
      {4, pick(12, 16), "04", "3 of 4 rows could be read"},
      {10, last(pick(133, 69)), "07", "the map of its pages is of an unknown kind"},
      {10, last(pick(133, 69)) + 5, "00", "0 of 3 rows could be read"},
      {10, last(1), "80", "is beyond the end of the file"},
      {6, 0, "00", "0 of 3 rows could be read"},
      {6, 4, "05", "0 of 3 rows could be read"},
      {6, slots - 2, "FFFF", "page 6 has 65535 rows"},
      {6, slots - 2, "00", "0 of 3 rows could be read"},
      {6, slots, "FF1F", "row 0 lies outside of its page"},
      {6, slots + 1, isJet4 ? "CF" : "C7", "2 of 3 rows could be read"},
      {6, slots + 1, isJet4 ? "4F" : "47", "page 6: "},
      {5, 4, "00", "row 1, note: page 5 holds no long values"},
      {5, slots + 1, isJet4 ? "CF" : "C7", "row 1, note: "},
      {5, slots - 2, "00", "row 1, note: row 0 is not on its page"},
      {7, last(pick(948, 1860)), "00090000", "row 2, note: a long value runs in a circle"},
  };
  for (const auto& damage : damages) {
    std::string bytes = file;
    const std::string patch = Hex(damage.bytes);
    bytes.replace(damage.page * pageSize + damage.at, patch.size(), patch);
    EXPECT_NE(ReadDamaged(bytes).find(damage.told), std::string::npos)
        << damage.told << " at " << damage.page << ", " << damage.at << " gives\n"
        << ReadDamaged(bytes);
  }
}

INSTANTIATE_TEST_SUITE_P(Versions, OldFileTest, ::testing::Values(Version::Jet3, Version::Jet4),
                         [](const auto& version) {
                           return version.param == Version::Jet3 ? "Jet3" : "Jet4";
                         });

}  // namespace
}  // namespace kvi::jetfile
