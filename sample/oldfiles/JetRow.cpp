// How the writer puts a row's values.
#include <algorithm>
#include <bit>
#include <cmath>

#include "base/RunTimeError.h"
#include "base/Utf8.h"
#include "jet/file/Row.h"
#include "sample/oldfiles/JetFileWriter.h"

namespace kvi::jetfile {
namespace {

constexpr std::size_t kMostInline = 64;
constexpr std::size_t kMostCompressedMemo = 1024;
constexpr std::uint64_t kInline = 0x80000000, kOneRow = 0x40000000;

// The euro is what a stockroom needs of the part where 1252 is not Latin-1.
std::string Windows1252(const std::string& text) {
  constexpr char32_t kEuro = 0x20AC;
  std::string bytes;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t character = NextCharacter(text, at);
    if (character > 0xFF && character != kEuro) throw RunTimeError(3163);
    bytes += static_cast<char>(character == kEuro ? 0x80 : character);
  }
  return bytes;
}

std::string Utf16(const std::string& text) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t character = NextCharacter(text, at);
    if (character > 0xFFFF)
      bytes += LittleEndian(0xD800 + ((character - 0x10000) >> 10), 2) +
               LittleEndian(0xDC00 + (character & 0x3FF), 2);
    else
      bytes += LittleEndian(character, 2);
  }
  return bytes;
}

// Text of digits: a sign, then four words, the most significant one first.
std::string Decimal(const std::string& text) {
  std::uint32_t words[4] = {};
  for (const char digit : text) {
    std::uint64_t carry = digit == '-' ? 0 : static_cast<std::uint64_t>(digit - '0');
    for (int i = 3; i >= 0; --i) {
      carry += std::uint64_t{words[i]} * 10;
      words[i] = static_cast<std::uint32_t>(carry);
      carry >>= 32;
    }
  }
  std::string bytes = text.starts_with('-') ? "\x80" : std::string(1, '\0');
  for (const std::uint32_t word : words) bytes += LittleEndian(word, 4);
  return bytes;
}

std::uint64_t CurrencyBits(const Value& value) {
  return static_cast<std::uint64_t>(value.IsWhole() ? value.AsWhole()
                                                    : std::llround(value.Number() * 10000));
}

}  // namespace

// Compressed where every character is one byte that is not zero.
std::string JetFileWriter::Text(const std::string& text, std::size_t mostCompressed) const {
  if (!isJet4_) return Windows1252(text);
  const std::string plain = Utf16(text);
  const std::size_t length = plain.size() / 2;
  std::string compressed = "\xFF\xFE";
  for (std::size_t i = 0; i < length; ++i) {
    if (plain[2 * i] == 0 || plain[2 * i + 1] != 0) return plain;
    compressed += plain[2 * i];
  }
  return length > 2 && length <= mostCompressed ? compressed : plain;
}

// Chains are written from their end, so that each piece knows the next one.
std::string JetFileWriter::LongValue(const std::string& bytes) {
  const std::size_t mostInRow = isJet4_ ? 4076 : 2032, mostInPiece = mostInRow - 4;
  const auto head = [&](std::uint64_t kind, std::uint32_t pointer) {
    return LittleEndian(bytes.size() | kind, 4) + LittleEndian(pointer, 4) + LittleEndian(0, 4);
  };
  if (bytes.size() <= kMostInline) return head(kInline, 0) + bytes;
  if (bytes.size() <= mostInRow) return head(kOneRow, Append(longValues_, bytes));
  std::uint32_t next = 0;
  for (std::size_t piece = (bytes.size() - 1) / mostInPiece + 1; piece-- > 0;) {
    Rows page{longValues_.owner};
    next = Append(page, LittleEndian(next, 4) + bytes.substr(piece * mostInPiece, mostInPiece));
  }
  return head(0, next);
}

std::string JetFileWriter::Field(const NewColumn& column, const Value& value) {
  switch (column.Type) {
    case ColumnType::Currency:
      return LittleEndian(CurrencyBits(value), 8);
    case ColumnType::Single:
      return LittleEndian(std::bit_cast<std::uint32_t>(static_cast<float>(value.Number())), 4);
    case ColumnType::Double:
    case ColumnType::Date:
      return LittleEndian(std::bit_cast<std::uint64_t>(value.Number()), 8);
    case ColumnType::Numeric:
      return Decimal(value.AsText());
    case ColumnType::Text:
      return Text(value.AsText(), column.Size);
    case ColumnType::Memo:
      return LongValue(Text(value.AsText(), kMostCompressedMemo));
    case ColumnType::Ole:
      return LongValue(value.AsText());
    case ColumnType::Binary:
    case ColumnType::Guid:
      return value.AsText();
    default:
      return LittleEndian(static_cast<std::uint64_t>(std::llround(value.Number())),
                          LengthOf(column.Type));
  }
}

namespace {

// The list of where the varying values begin and end, behind them: from the last to the first.
std::string Jet3Tail(const std::vector<std::size_t>& offsets, std::size_t dataEnd,
                     std::size_t maskSize) {
  const std::size_t count = offsets.size() - 1;
  std::size_t jumps = 0;  // they are part of the length that tells how many they are
  while ((dataEnd + offsets.size() + jumps + 1 + maskSize - 1) / 256 > jumps) ++jumps;
  std::string tail;
  for (std::size_t i = offsets.size(); i-- > 0;) tail += LittleEndian(offsets[i], 1);
  for (std::size_t jump = jumps; jump > 0; --jump) {
    const auto first =
        std::ranges::find_if(offsets, [&](std::size_t offset) { return offset >= 256 * jump; });
    tail += LittleEndian(
        first == offsets.end() ? 0xFF : static_cast<std::uint64_t>(first - offsets.begin()), 1);
  }
  return tail + LittleEndian(count, 1);
}

std::string Jet4Tail(const std::vector<std::size_t>& offsets) {
  std::string tail;
  for (std::size_t i = offsets.size(); i-- > 0;) tail += LittleEndian(offsets[i], 2);
  return tail + LittleEndian(offsets.size() - 1, 2);
}

}  // namespace

std::string JetFileWriter::EncodeRow(const NewTable& table, const std::vector<Value>& row) {
  if (row.size() > table.Columns.size()) throw RunTimeError(3163);
  std::string fixed = LittleEndian(row.size(), isJet4_ ? 2 : 1), varying;
  std::string mask((row.size() + 7) / 8, '\0');
  std::vector<std::size_t> offsets;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const NewColumn& column = table.Columns[i];
    const bool isBoolean = column.Type == ColumnType::Boolean;
    const bool isSet = isBoolean ? row[i].Boolean() : !row[i].IsNull();
    if (isSet) mask[i / 8] = static_cast<char>(mask[i / 8] | 1 << i % 8);
    if (isBoolean) continue;
    if (IsVarying(column)) offsets.push_back(varying.size());
    if (IsVarying(column))
      varying += isSet ? Field(column, row[i]) : "";
    else
      fixed += isSet ? Field(column, row[i]) : std::string(LengthOf(column.Type), '\x5A');
  }
  if (offsets.empty()) return fixed + mask;
  offsets.push_back(varying.size());
  for (std::size_t& offset : offsets) offset += fixed.size();
  const std::size_t dataEnd = fixed.size() + varying.size();
  return fixed + varying + (isJet4_ ? Jet4Tail(offsets) : Jet3Tail(offsets, dataEnd, mask.size())) +
         mask;
}

}  // namespace kvi::jetfile
