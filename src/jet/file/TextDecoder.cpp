#include "jet/file/TextDecoder.h"

#include <iconv.h>

#include <cstdint>

#include "base/Utf8.h"

namespace kvi::jetfile {
namespace {

constexpr char32_t kNoCharacter = 0xFFFD;

// The part of 1252 that differs from Unicode. Its five gaps are the control characters of the same
// number, so that nothing gets lost.
constexpr char32_t k1252[] = {0x20AC, 0x81,   0x201A, 0x192,  0x201E, 0x2026, 0x2020, 0x2021,
                              0x2C6,  0x2030, 0x160,  0x2039, 0x152,  0x8D,   0x17D,  0x8F,
                              0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                              0x2DC,  0x2122, 0x161,  0x203A, 0x153,  0x9D,   0x17E,  0x178};

// Units of UTF-16 to characters; a surrogate without its partner is none.
class Utf16 {
 public:
  explicit Utf16(std::string& text) : text_(text) {}
  void Take(char32_t unit) {
    const bool low = unit >= 0xDC00 && unit <= 0xDFFF;
    if (high_ != 0 && low) {
      AppendCharacter(text_, 0x10000 + ((high_ - 0xD800) << 10) + (unit - 0xDC00));
      high_ = 0;
      return;
    }
    End();
    if (unit >= 0xD800 && unit <= 0xDBFF)
      high_ = unit;
    else
      AppendCharacter(text_, low ? kNoCharacter : unit);
  }
  void End() {
    if (high_ != 0) AppendCharacter(text_, kNoCharacter);
    high_ = 0;
  }

 private:
  std::string& text_;
  char32_t high_ = 0;
};

std::string Plain(Bytes bytes) {
  std::string text;
  Utf16 units(text);
  const std::size_t whole = bytes.Size() / 2 * 2;
  for (std::size_t at = 0; at < whole; at += 2) units.Take(bytes.U16(at));
  units.End();
  if (whole < bytes.Size()) AppendCharacter(text, kNoCharacter);
  return text;
}

// A zero byte changes between one byte and two bytes a character; in pairs it does so only where a
// pair would begin.
std::string Compressed(Bytes bytes) {
  std::string text;
  Utf16 units(text);
  bool inPairs = false;
  for (std::size_t at = 0; at < bytes.Size();) {
    if (bytes.U8(at) == 0) {
      inPairs = !inPairs;
      ++at;
    } else if (!inPairs) {
      units.Take(bytes.U8(at++));
    } else if (bytes.Size() - at == 1) {
      units.Take(kNoCharacter);
      ++at;
    } else {
      units.Take(bytes.U16(at));
      at += 2;
    }
  }
  units.End();
  return text;
}

// The character of a byte by the machine's own tables; none for the first half of a pair.
char32_t Converted(iconv_t tables, char byte) {
  char32_t character = 0;
  char *from = &byte, *to = reinterpret_cast<char*>(&character);
  std::size_t fromLeft = 1, toLeft = sizeof character;
  iconv(tables, nullptr, nullptr, nullptr, nullptr);
  const bool known = iconv(tables, &from, &fromLeft, &to, &toLeft) == 0 && toLeft == 0;
  return known ? character : kNoCharacter;
}

}  // namespace

TextDecoder::TextDecoder(Version version, unsigned codePage) : version_(version) {
  for (unsigned byte = 0; byte < 256; ++byte)
    characters_[byte] = byte >= 0x80 && byte < 0xA0 ? k1252[byte - 0x80] : byte;
  if (codePage == 1252 || version == Version::Jet4) return;
  const std::string name = "CP" + std::to_string(codePage);
  const iconv_t tables = iconv_open("UCS-4LE", name.c_str());
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the interface's own mark of failure
  if (tables == reinterpret_cast<iconv_t>(-1)) return;
  for (unsigned byte = 0x80; byte < 256; ++byte)
    characters_[byte] = Converted(tables, static_cast<char>(byte));
  iconv_close(tables);
}

std::string TextDecoder::OfCodePage(Bytes bytes) const {
  std::string text;
  text.reserve(bytes.Size());
  for (std::size_t at = 0; at < bytes.Size(); ++at)
    AppendCharacter(text, characters_[bytes.U8(at)]);
  return text;
}

std::string TextDecoder::Value(Bytes bytes) const {
  if (version_ == Version::Jet3) return OfCodePage(bytes);
  const bool compressed = bytes.Size() >= 2 && bytes.U16(0) == 0xFEFF;
  return compressed ? Compressed(bytes.From(2)) : Plain(bytes);
}

std::string TextDecoder::Name(Bytes bytes) const {
  return version_ == Version::Jet3 ? OfCodePage(bytes) : Plain(bytes);
}

}  // namespace kvi::jetfile
