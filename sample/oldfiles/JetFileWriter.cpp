#include "sample/oldfiles/JetFileWriter.h"

#include <algorithm>
#include <bit>

#include "base/RunTimeError.h"
#include "base/Utf8.h"

namespace kvi::jetfile {
namespace {

constexpr std::uint32_t kLongValueOwner = 0x4C41564C;  // "LVAL"
constexpr std::uint32_t kTablesFolder = 0x0F000001;
constexpr std::uint32_t kSystemFlag = 0x80000000;
constexpr unsigned kGone = 0x8000, kMoved = 0x4000, kDeleted = 0xC000;
constexpr std::size_t kMostSlots = 255;
constexpr std::uint32_t kCataloguePage = 2;
constexpr double kCreated = 37000.0;

const std::vector<NewColumn> kCatalogueColumns = {
    {"Id", ColumnType::Long},         {"ParentId", ColumnType::Long},
    {"Name", ColumnType::Text, 255},  {"Type", ColumnType::Integer},
    {"DateCreate", ColumnType::Date}, {"DateUpdate", ColumnType::Date},
    {"Flags", ColumnType::Long},      {"Database", ColumnType::Memo},
    {"Connect", ColumnType::Memo},    {"ForeignName", ColumnType::Text, 255},
    {"LvProp", ColumnType::Ole}};

}  // namespace

std::string LittleEndian(std::uint64_t number, std::size_t size) {
  std::string bytes;
  for (; size > 0; --size, number >>= 8) bytes += static_cast<char>(number & 0xFF);
  return bytes;
}

JetFileWriter::JetFileWriter(Version version, std::string password, std::uint32_t key)
    : version_(version),
      isJet4_(version == Version::Jet4),
      pageSize_(isJet4_ ? 4096 : 2048),
      password_(std::move(password)),
      key_(key),
      longValues_{kLongValueOwner} {
  NewPage("");                          // the header comes last
  NewPage(std::string("\x01\x01", 2));  // the file's own page map: a page of no rows
  catalogue_ = {{"MSysObjects", kCatalogueColumns}, NewPage(""), 0, {kCataloguePage}};
  AddObject("Tables", kTablesFolder, 3, std::int64_t{kSystemFlag});
  AddObject("Databases", kTablesFolder + 1, 3, std::int64_t{kSystemFlag});
}

void JetFileWriter::Begin(NewTable table) {
  Close(table_);
  table_ = {std::move(table), NewPage("")};
  table_.rows.owner = table_.page;
  AddObject(table_.design.Name, table_.page, 1, std::int64_t{table_.design.Flags});
}

void JetFileWriter::Add(const std::vector<Value>& row, Fate fate) {
  AddTo(table_, row, fate);
}

void JetFileWriter::AddLinked(const std::string& name, const std::string& place,
                              const std::string& within) {
  AddObject(name, -1 - static_cast<std::int64_t>(catalogue_.count), 6, std::int64_t{0}, place,
            within);
}

void JetFileWriter::AddQuery(const std::string& name) {
  AddObject(name, -1 - static_cast<std::int64_t>(catalogue_.count), 5, {});
}

void JetFileWriter::AddObject(const std::string& name, std::int64_t id, int type,
                              const Value& flags, const Value& place, const Value& within) {
  AddTo(catalogue_,
        {id, std::int64_t{kTablesFolder}, name, type, kCreated, kCreated, flags, place, {}, within},
        Fate::Stays);
}

void JetFileWriter::AddTo(OpenTable& table, const std::vector<Value>& row, Fate fate) {
  const std::string bytes = EncodeRow(table.design, row);
  if (fate != Fate::Deleted) ++table.count;
  switch (fate) {
    case Fate::Stays:
      Append(table.rows, bytes);
      break;
    case Fate::Deleted:
      Append(table.rows, "", kDeleted);
      break;
    case Fate::Moved:
      Append(table.rows, LittleEndian(Append(table.rows, bytes, kGone), 4) + bytes, kMoved);
      break;
    case Fate::MovedTwice: {
      const std::uint32_t far = Append(table.rows, bytes, kGone);
      const std::uint32_t near = Append(table.rows, LittleEndian(far, 4), kGone | kMoved);
      Append(table.rows, LittleEndian(near, 4), kMoved);
      break;
    }
    case Fate::MovedInACircle: {
      const std::uint32_t here = Append(table.rows, "none", kMoved);
      const std::size_t slots = isJet4_ ? 14 : 10;
      Put(here >> 8, Get(here >> 8, slots + 2 * (here & 0xFF), 2) & 0x1FFF, here, 4);
      break;
    }
  }
}

std::uint32_t JetFileWriter::NewPage(const std::string& start) {
  pages_.push_back(start);
  pages_.back().resize(pageSize_);
  return static_cast<std::uint32_t>(pages_.size() - 1);
}

void JetFileWriter::Put(std::uint32_t page, std::size_t at, std::uint64_t number,
                        std::size_t size) {
  pages_[page].replace(at, size, LittleEndian(number, size));
}

std::uint64_t JetFileWriter::Get(std::uint32_t page, std::size_t at, std::size_t size) const {
  std::uint64_t number = 0;
  while (size-- > 0) number = number << 8 | static_cast<std::uint8_t>(pages_[page][at + size]);
  return number;
}

void JetFileWriter::OpenPage(Rows& rows) {
  rows.page = NewPage("\x01\x01" + LittleEndian(pageSize_ - (isJet4_ ? 14 : 10), 2) +
                      LittleEndian(rows.owner, 4));
  rows.pages.push_back(rows.page);
}

// Rows fill a page from its end, their slots from its beginning.
std::uint32_t JetFileWriter::Append(Rows& rows, const std::string& bytes, unsigned flags) {
  const std::size_t countAt = isJet4_ ? 12 : 8, slots = countAt + 2;
  if (bytes.size() + slots + 2 > pageSize_) throw RunTimeError(3163);
  if (rows.page == 0 || Get(rows.page, 2, 2) < bytes.size() + 2 ||
      Get(rows.page, countAt, 2) >= kMostSlots)
    OpenPage(rows);
  const std::uint64_t count = Get(rows.page, countAt, 2), free = Get(rows.page, 2, 2);
  const std::size_t start = slots + 2 * count + free - bytes.size();
  pages_[rows.page].replace(start, bytes.size(), bytes);
  Put(rows.page, slots + 2 * count, start | flags, 2);
  Put(rows.page, countAt, count + 1, 2);
  Put(rows.page, 2, free - bytes.size() - 2, 2);
  return static_cast<std::uint32_t>(rows.page << 8 | count);
}

// Inline a bit for each page from page 0 on; where there are more, entries name pages of bits.
std::string JetFileWriter::MapOf(const std::vector<std::uint32_t>& pages, bool referenced) {
  const std::size_t inlineBytes = isJet4_ ? 64 : 128, perPage = (pageSize_ - 4) * 8;
  if (!referenced && (pages.empty() || pages.back() < inlineBytes * 8)) {
    std::string bits(inlineBytes, '\0');
    for (const std::uint32_t page : pages)
      bits[page / 8] = static_cast<char>(bits[page / 8] | 1 << page % 8);
    return std::string(5, '\0') + bits;
  }
  std::vector<std::uint32_t> maps;
  for (const std::uint32_t page : pages) {
    while (maps.size() <= page / perPage) maps.push_back(NewPage("\x05\x01"));
    char& byte = pages_[maps.back()][4 + page % perPage / 8];
    byte = static_cast<char>(byte | 1 << page % 8);
  }
  std::string entries = "\x01";
  for (const std::uint32_t map : maps) entries += LittleEndian(map, 4);
  return entries;
}

void JetFileWriter::Close(OpenTable& table) {
  if (table.page == 0) return;
  const std::size_t indexes = table.design.Indexes.size();
  Rows maps;
  Append(maps, MapOf(table.rows.pages, table.design.ReferencedMap));
  for (std::size_t i = 0; i <= indexes; ++i) Append(maps, MapOf({}, false));
  std::string rest = Definition(table, maps.page);
  // Further pages have a head of their own, and the first one is a page as a whole.
  std::uint32_t page = table.page;
  pages_[page].replace(0, std::min(rest.size(), pageSize_), rest.substr(0, pageSize_));
  rest.erase(0, pageSize_);
  while (!rest.empty()) {
    const std::uint32_t next = NewPage("\x02\x01" + LittleEndian(0x4356, 2) + std::string(4, '\0') +
                                       rest.substr(0, pageSize_ - 8));
    Put(page, 4, next, 4);
    page = next;
    rest.erase(0, pageSize_ - 8);
  }
}

std::string JetFileWriter::Header() const {
  std::string page = LittleEndian(0x100, 4) + std::string("Standard Jet DB\0", 16);
  page += static_cast<char>(isJet4_ ? 1 : 0);
  page.resize(pageSize_);
  const auto put = [&](std::size_t at, std::uint64_t number, std::size_t size) {
    page.replace(at, size, LittleEndian(number, size));
  };
  put(0x18, 0x100, 4);
  put(isJet4_ ? 0x6E : 0x3A, 0x0409, 2);
  put(0x3C, 1252, 2);
  put(0x3E, key_, 4);
  std::string word;
  for (std::size_t at = 0; at < password_.size();) {
    const char32_t character = NextCharacter(password_, at);
    word += LittleEndian(character, isJet4_ ? 2 : 1);
  }
  word.resize(isJet4_ ? 40 : 20);
  if (isJet4_) {
    put(0x72, std::bit_cast<std::uint64_t>(kCreated), 8);
    const std::string day = LittleEndian(static_cast<std::uint32_t>(kCreated), 4);
    for (std::size_t i = 0; i < word.size(); ++i) word[i] = static_cast<char>(word[i] ^ day[i % 4]);
  }
  page.replace(0x42, word.size(), word);
  const std::span bytes(reinterpret_cast<std::uint8_t*>(page.data()), page.size());
  ApplyRc4(kHeaderKey, bytes.subspan(kMaskedFrom, MaskedSize(version_)));
  return page;
}

std::string JetFileWriter::Finish() {
  Close(table_);
  Close(catalogue_);
  pages_[0] = Header();
  std::string file;
  for (std::size_t number = 0; number < pages_.size(); ++number) {
    std::string& page = pages_[number];
    if (number > 0 && key_ != 0)
      ApplyRc4(key_ ^ static_cast<std::uint32_t>(number),
               {reinterpret_cast<std::uint8_t*>(page.data()), page.size()});
    file += page;
  }
  return file;
}

}  // namespace kvi::jetfile
