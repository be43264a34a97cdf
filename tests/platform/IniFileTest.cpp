#include "platform/IniFile.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <random>

#include "base/ErrorOf.h"
#include "support/TemporaryFolder.h"

namespace kvi {
namespace {

namespace fs = std::filesystem;

class IniFileTest : public testing::Test {
 protected:
  fs::path Path() const { return folder_ / "KVI.INI"; }
  IniFile File() const { return IniFile(Path()); }

  IniFile FileWith(const std::string& bytes) const {
    test::WriteFile(Path(), bytes);
    return File();
  }
  std::string Bytes() const { return test::ReadFile(Path()); }
  std::ptrdiff_t FilesInFolder() const {
    return std::distance(fs::directory_iterator(folder_), fs::directory_iterator());
  }

  static int ErrorOfWrite(const IniFile& file, std::string_view value = "x") {
    return ErrorOf([&] { file.Write("A", "key", value); });
  }

  test::TemporaryFolder ownFolder_;
  const fs::path folder_ = ownFolder_.Path();
};

TEST_F(IniFileTest, ReadsByThePrivateProfileRules) {
  const IniFile file = FileWith(
      "\xEF\xBB\xBF; top\r\n[Kestvar]\r\nPlain=C:\\Data\r\n  Spaced  =  a b  \r\nEmpty=\r\n"
      "Quoted=\" a \"\r\nTwice=\"\"x\"\"\r\nSingle='y'\r\nOpen=\"z\r\nOne=\"\r\nPlain=second\r\n"
      "no key here\r\nEquals=a=b;c\r\n\r\n[other]\r\nPlain=of other\r\n[Bare]\r\n");
  const struct {
    const char *section, *key, *value;
  } cases[] = {
      {"Kestvar", "Plain", "C:\\Data"}, {"KESTVAR", "plain", "C:\\Data"},
      {"Kestvar", "Spaced", "a b"},     {"Kestvar", "Empty", ""},
      {"Kestvar", "Quoted", " a "},     {"Kestvar", "Twice", "\"x\""},
      {"Kestvar", "Single", "y"},       {"Kestvar", "Open", "\"z"},
      {"Kestvar", "One", "\""},         {"Kestvar", "Equals", "a=b;c"},
      {"Other", "Plain", "of other"},   {"Kestvar", "Missing", "fallback"},
      {"Missing", "Plain", "fallback"},
  };
  for (const auto& [section, key, value] : cases)
    EXPECT_EQ(file.Read(section, key, "fallback"), value) << section << " " << key;

  EXPECT_TRUE(file.HasSection("kestvar"));
  EXPECT_FALSE(file.HasSection("Bare"));
  EXPECT_FALSE(file.HasSection("Missing"));
}

TEST_F(IniFileTest, CutsAValueAt127Characters) {
  std::string characters;
  for (int i = 0; i < 127; ++i) characters += "é";
  const IniFile file =
      FileWith("[A]\nlong=" + characters + "tail\nnul=a" + std::string(1, '\0') + "b\nafter=1\n");
  EXPECT_EQ(file.Read("A", "long", ""), characters);
  EXPECT_EQ(file.Read("A", "nul", ""), "a");
}

TEST_F(IniFileTest, MissingOrUnreadableFileHasNoSection) {
  EXPECT_FALSE(File().HasSection("A"));
  EXPECT_EQ(File().Read("A", "key", "fallback"), "fallback");
  EXPECT_FALSE(IniFile(folder_).HasSection("A"));
  EXPECT_EQ(ErrorOfWrite(IniFile(folder_)), 75);
}

TEST_F(IniFileTest, NoiseHasNoSectionAndHarmsNothing) {
  std::mt19937 random(7);
  // Half of the bytes are those that mean something in an INI file.
  const std::string syntax = "[]=;#\"\r\n \\<A";
  for (int round = 0; round < 500; ++round) {
    std::string noise(random() % 300, '\0');
    for (char& byte : noise)
      byte = random() % 2 ? syntax[random() % syntax.size()] : static_cast<char>(random() % 256);
    const IniFile file = FileWith(noise);
    EXPECT_FALSE(file.HasSection("KestvarInventory"));
    file.Write("KestvarInventory", "SectionActive", "True");
    ASSERT_EQ(file.Read("KestvarInventory", "SectionActive", ""), "True") << round;
  }
}

TEST_F(IniFileTest, WritingKeepsOtherKeysCommentsAndOrder) {
  FileWith(
      "; of the file\n\n; of the section\n[Z]\nb=1\n; of "
      "c\nc=Z\xFCrich\nquoted=\"x\"\n\n[A]\nz=9\n")
      .Write("z", {{"B", "2"}, {"d", "new"}, {"e", ""}});
  EXPECT_EQ(Bytes(),
            "; of the file\n\n\n; of the section\n[Z]\nB=2\n\n; of c\nc=Z\xFCrich\nquoted=\"x\"\n"
            "d=new\ne=\n\n\n[A]\nz=9\n");
}

TEST_F(IniFileTest, RewritingSettlesAfterTheFirstTime) {
  const IniFile file = FileWith(
      "\xEF\xBB\xBF; top\r\n\r\n; A\r\n[A]\r\nkey=1\r\n\r\n; of two\r\ntwo=2\r\n[B]\r\nx=1");
  file.Write("A", "key", "3");
  const std::string once = Bytes();
  EXPECT_EQ(once.substr(0, 5), "; top");
  file.Write("A", "key", "3");
  EXPECT_EQ(Bytes(), once);
}

TEST_F(IniFileTest, WritesANewFileAndKeepsAnOldOnesPermissionsAndLink) {
  File().Write("A", "key", "größe");
  EXPECT_EQ(Bytes(), "[A]\nkey=größe\n");

  fs::permissions(Path(), fs::perms{0640});
  fs::create_symlink("KVI.INI", folder_ / "link");
  IniFile(folder_ / "link").Write("A", "key", "2");
  EXPECT_EQ(fs::status(Path()).permissions(), fs::perms{0640});
  EXPECT_TRUE(fs::is_symlink(folder_ / "link"));
  EXPECT_EQ(File().Read("A", "key", ""), "2");
  EXPECT_EQ(FilesInFolder(), 2);
}

TEST_F(IniFileTest, AValueCannotBringLinesOfItsOwn) {
  File().Write("A", "key", "1\r\n[B]\nx=2");
  EXPECT_EQ(File().Read("A", "key", ""), "1");
  EXPECT_FALSE(File().HasSection("B"));
}

TEST_F(IniFileTest, AFailureInTheMiddleLeavesTheOldFileWhole) {
  const IniFile file = FileWith("[A]\nkey=old\n");
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const auto handler = ::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{100, before.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &small);
  const int error = ErrorOfWrite(file, std::string(1000, 'x'));
  ::setrlimit(RLIMIT_FSIZE, &before);
  ::signal(SIGXFSZ, handler);

  EXPECT_EQ(error, 75);
  EXPECT_EQ(Bytes(), "[A]\nkey=old\n");
  EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(IniFileTest, RefusesAPlaceThatCannotBeWritten) {
  EXPECT_EQ(ErrorOfWrite(IniFile(folder_ / "no such folder" / "KVI.INI")), 75);
  if (::geteuid() == 0) GTEST_SKIP() << "permissions do not bind the superuser";
  const IniFile file = FileWith("[A]\nkey=old\n");
  for (const fs::perms mode : {fs::perms{0400}, fs::perms{0200}}) {
    fs::permissions(Path(), mode);
    EXPECT_EQ(ErrorOfWrite(file), 75);
  }
  fs::permissions(Path(), fs::perms{0600});
  fs::permissions(folder_, fs::perms{0500});
  EXPECT_EQ(ErrorOfWrite(file), 75);
  fs::permissions(folder_, fs::perms{0700});
  EXPECT_EQ(Bytes(), "[A]\nkey=old\n");
}

}  // namespace
}  // namespace kvi
