#pragma once

#include <string>

#include "jet/file/Bytes.h"
#include "jet/file/Format.h"

namespace kvi::jetfile {

// Texts of one file as UTF-8. What is no character comes as U+FFFD, never as nothing.
class TextDecoder {
 public:
  // The code page counts for Jet 3 alone; an unknown one is read as 1252.
  TextDecoder(Version version, unsigned codePage);

  // A text of a row: in Jet 4 compressed or plain, which its first two bytes tell.
  std::string Value(Bytes bytes) const;
  // A name of a definition, in Jet 4 never compressed.
  std::string Name(Bytes bytes) const;

 private:
  std::string OfCodePage(Bytes bytes) const;

  const Version version_;
  // What each byte of the code page stands for.
  char32_t characters_[256];
};

}  // namespace kvi::jetfile
