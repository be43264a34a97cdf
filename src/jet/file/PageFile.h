#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "jet/file/Bytes.h"
#include "jet/file/Format.h"
#include "jet/file/TextDecoder.h"

namespace kvi::jetfile {

// One page in memory, pinned for as long as it is held: what is read meanwhile does not push it
// out.
class Page {
 public:
  explicit Page(std::shared_ptr<const std::vector<std::uint8_t>> bytes)
      : bytes_(std::move(bytes)) {}
  Bytes All() const { return {bytes_->data(), bytes_->size()}; }

 private:
  std::shared_ptr<const std::vector<std::uint8_t>> bytes_;
};

// The pages of one file, decoded, and what its first page says of the whole. Reads only, and no
// further than the file's size at its opening. A few pages stay in memory.
class PageFile {
 public:
  // Raises CannotRead, NotJet, UnsupportedVersion, Password, TooLarge and Damaged. A password that
  // the file does not ask for does no harm.
  PageFile(const std::string& path, const std::string& password);
  ~PageFile();
  PageFile(const PageFile&) = delete;
  PageFile& operator=(const PageFile&) = delete;

  // Raises Damaged for the first page and for one beyond the end, CannotRead where the file gives
  // less than its size promised.
  Page Read(std::uint32_t number);

  // Whether somebody wrote to the file since its opening: what was read may not fit together.
  bool WasWritten() const;

  const Layout& Fields() const { return *layout_; }
  jetfile::Version Version() const { return version_; }
  const TextDecoder& Text() const { return *text_; }
  std::uint64_t Size() const { return size_; }
  std::uint32_t PageCount() const { return pageCount_; }

 private:
  using Buffer = std::vector<std::uint8_t>;

  void OpenFile(const std::string& path);
  void Recognise(const Buffer& start);
  void CheckPassword(Bytes header, const std::string& password) const;
  void ReadAt(std::uint64_t offset, Buffer& buffer) const;

  const std::string path_;
  int file_ = -1;
  std::int64_t written_ = 0;  // when it was, in nanoseconds
  std::uint64_t size_ = 0;
  std::uint32_t pageCount_ = 0;
  std::uint32_t key_ = 0;  // of the pages' encoding, 0 for none
  jetfile::Version version_ = jetfile::Version::Jet4;
  const Layout* layout_ = nullptr;
  std::unique_ptr<const TextDecoder> text_;

  struct Kept {
    std::uint32_t number = 0;
    std::shared_ptr<Buffer> bytes;
  };
  std::array<Kept, 64> cache_;
};

// Where rows, maps and pieces of long values lie: the low byte is the slot, the rest the page.
struct RowPointer {
  std::uint32_t page, slot;
};
inline RowPointer PointerOf(std::uint32_t number) {
  return {number >> 8, number & 0xFF};
}

}  // namespace kvi::jetfile
