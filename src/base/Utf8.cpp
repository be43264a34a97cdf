#include "base/Utf8.h"

namespace kvi {
namespace {

constexpr char32_t kBadByte = 0xDC00;

unsigned ByteAt(std::string_view text, std::size_t position) {
  return static_cast<unsigned char>(text[position]);
}

// The length that the first byte announces, 0 when no sequence starts with it.
std::size_t SequenceLength(unsigned first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first <= 0xDF) return 2;
  if (first >= 0xE0 && first <= 0xEF) return 3;
  if (first >= 0xF0 && first <= 0xF4) return 4;
  return 0;
}

bool IsScalar(char32_t character, std::size_t length) {
  if (length == 3) return character >= 0x800 && (character < 0xD800 || character > 0xDFFF);
  if (length == 4) return character >= 0x10000 && character <= 0x10FFFF;
  return true;
}

}  // namespace

char32_t NextCharacter(std::string_view text, std::size_t& position) {
  const unsigned first = ByteAt(text, position);
  const std::size_t length = SequenceLength(first);
  const std::size_t start = position++;
  if (length == 1) return first;
  if (length == 0 || text.size() - start < length) return kBadByte + first;

  char32_t character = first & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const unsigned next = ByteAt(text, start + i);
    if ((next & 0xC0) != 0x80) return kBadByte + first;
    character = (character << 6) | (next & 0x3F);
  }
  if (!IsScalar(character, length)) return kBadByte + first;
  position = start + length;
  return character;
}

void AppendCharacter(std::string& text, char32_t character) {
  const auto append = [&text](char32_t byte) { text += static_cast<char>(byte & 0xFF); };
  if (character >= kBadByte + 0x80 && character <= kBadByte + 0xFF) {
    append(character - kBadByte);
  } else if (character < 0x80) {
    append(character);
  } else if (character < 0x800) {
    append(0xC0 | (character >> 6));
    append(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    append(0xE0 | (character >> 12));
    append(0x80 | ((character >> 6) & 0x3F));
    append(0x80 | (character & 0x3F));
  } else {
    append(0xF0 | (character >> 18));
    append(0x80 | ((character >> 12) & 0x3F));
    append(0x80 | ((character >> 6) & 0x3F));
    append(0x80 | (character & 0x3F));
  }
}

}  // namespace kvi
