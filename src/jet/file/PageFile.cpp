#include "jet/file/PageFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cmath>
#include <limits>

#include "base/Text.h"

namespace kvi::jetfile {
namespace {

constexpr std::uint64_t kLargestFile = 1ULL << 31;
constexpr std::size_t kHeaderSize = 256;
constexpr std::uint32_t kFewestPages = 3;
constexpr std::size_t kCodePageAt = 0x3C, kKeyAt = 0x3E, kPasswordAt = 0x42, kCreatedAt = 0x72;
constexpr std::size_t kJet3PasswordSize = 20, kJet4PasswordSize = 40;

// Up to the first zero, which ends a password that is shorter than its room.
std::string_view UpToZero(std::string_view text) {
  return text.substr(0, text.find('\0'));
}

std::int64_t WrittenAt(const struct stat& info) {
  return std::int64_t{info.st_mtim.tv_sec} * 1'000'000'000 + info.st_mtim.tv_nsec;
}

// In Jet 4 the password stands under the day on which the file was made.
std::string Jet4Password(Bytes header, const TextDecoder& text) {
  const auto created = std::bit_cast<double>(header.U64(kCreatedAt));
  using Limits = std::numeric_limits<std::int32_t>;
  const bool isDay = created >= Limits::min() && created <= Limits::max();
  const auto day = isDay ? static_cast<std::uint32_t>(static_cast<std::int32_t>(created)) : 0;
  std::array<std::uint8_t, kJet4PasswordSize> plain{};
  for (std::size_t i = 0; i < plain.size(); ++i)
    plain[i] = static_cast<std::uint8_t>(header.U8(kPasswordAt + i) ^ (day >> (i % 4 * 8)));
  return std::string(UpToZero(text.Name({plain.data(), plain.size()})));
}

}  // namespace

PageFile::PageFile(const std::string& path, const std::string& password) : path_(path) {
  OpenFile(path);
  try {
    Buffer start(std::min<std::uint64_t>(size_, kHeaderSize));
    ReadAt(0, start);
    Recognise(start);
    ApplyRc4(kHeaderKey, std::span(start).subspan(kMaskedFrom, MaskedSize(version_)));
    const Bytes header{start.data(), start.size()};
    key_ = header.U32(kKeyAt);
    text_ = std::make_unique<TextDecoder>(version_, header.U16(kCodePageAt));
    CheckPassword(header, password);
  } catch (...) {
    close(file_);
    throw;
  }
}

PageFile::~PageFile() {
  close(file_);
}

void PageFile::OpenFile(const std::string& path) {
  // (Without O_NONBLOCK the opening of a pipe would wait for its other end.)
  file_ = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (file_ < 0) {
    if (errno == ENOENT) throw RunTimeError(3024, DescriptionOf(3024) + " ('" + path + "')");
    throw FileError(Fault::CannotRead, "'" + path + "' cannot be opened.");
  }
  struct stat info {};
  if (fstat(file_, &info) != 0 || !S_ISREG(info.st_mode)) {
    close(file_);
    throw FileError(Fault::CannotRead, "'" + path + "' is not a file that can be read.");
  }
  size_ = static_cast<std::uint64_t>(info.st_size);
  written_ = WrittenAt(info);
}

bool PageFile::WasWritten() const {
  struct stat info {};
  return fstat(file_, &info) != 0 || static_cast<std::uint64_t>(info.st_size) != size_ ||
         WrittenAt(info) != written_;
}

void PageFile::Recognise(const Buffer& start) {
  const Bytes bytes{start.data(), start.size()};
  const std::string quoted = "'" + path_ + "'";
  const bool known = start.size() == kHeaderSize && bytes.U32(0) == 0x100;
  const std::string_view name = known ? UpToZero(bytes.Text().substr(4, 16)) : "";
  if (name == "Standard ACE DB" || name == "MSISAM Database" ||
      (name == "Standard Jet DB" && bytes.U8(0x14) > 1))
    throw FileError(Fault::UnsupportedVersion,
                    quoted +
                        " is a database of a newer kind than Jet 4. Save it in the format of "
                        "2000 or 2002-2003 with the program that made it.");
  if (name != "Standard Jet DB") throw FileError(Fault::NotJet, quoted + " is no Jet database.");
  if (size_ > kLargestFile)
    throw FileError(Fault::TooLarge, quoted + " is larger than a Jet database can be (2 GB).");
  version_ = bytes.U8(0x14) == 0 ? jetfile::Version::Jet3 : jetfile::Version::Jet4;
  layout_ = version_ == jetfile::Version::Jet3 ? &kJet3Layout : &kJet4Layout;
  pageCount_ = static_cast<std::uint32_t>(size_ / layout_->pageSize);
  if (pageCount_ < kFewestPages)
    RaiseDamaged(quoted + " is cut off: it has " + std::to_string(pageCount_) + " pages.");
}

void PageFile::CheckPassword(Bytes header, const std::string& password) const {
  const std::string wanted =
      version_ == jetfile::Version::Jet4
          ? Jet4Password(header, *text_)
          : std::string(UpToZero(text_->Name(header.Part(kPasswordAt, kJet3PasswordSize))));
  if (wanted.empty() || wanted == password) return;
  throw FileError(Fault::Password, password.empty() ? "The file is protected by a password."
                                                    : "The password is not the file's.");
}

void PageFile::ReadAt(std::uint64_t offset, Buffer& buffer) const {
  std::size_t done = 0;
  while (done < buffer.size()) {
    const ssize_t count =
        pread(file_, buffer.data() + done, buffer.size() - done, static_cast<off_t>(offset + done));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0)
      throw FileError(Fault::CannotRead, "'" + path_ + "' could not be read to its end.");
    done += static_cast<std::size_t>(count);
  }
}

Page PageFile::Read(std::uint32_t number) {
  if (number == 0 || number >= pageCount_)
    RaiseDamaged("page " + std::to_string(number) + " is beyond the end of the file (" +
                 std::to_string(pageCount_) + " pages)");
  Kept& kept = cache_[number % cache_.size()];
  if (kept.number == number) return Page(kept.bytes);
  // A page that somebody still looks at keeps its room.
  if (!kept.bytes || kept.bytes.use_count() > 1)
    kept.bytes = std::make_shared<Buffer>(layout_->pageSize);
  kept.number = 0;
  ReadAt(std::uint64_t{number} * layout_->pageSize, *kept.bytes);
  if (key_ != 0) ApplyRc4(key_ ^ number, *kept.bytes);
  kept.number = number;
  return Page(kept.bytes);
}

}  // namespace kvi::jetfile
