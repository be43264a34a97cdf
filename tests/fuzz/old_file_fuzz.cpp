// Reads damaged files for as long as one likes: old_file_fuzz FIRST COUNT. What is wrong ends it
// with the number of the file, under which it can be made again; so does one that lasts.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>

#include "fuzz/DamagedFiles.h"
#include "jet/Conversion.h"
#include "jet/file/FileError.h"
#include "support/TemporaryFolder.h"

namespace {

constexpr unsigned kLongestSeconds = 20;

// What the reader refuses, and what a conversion refuses, are typed errors; anything else is a
// finding.
void Try(const std::string& folder, const std::string& bytes) {
  const std::string path = folder + "/old.mdb", made = folder + "/new.mdb";
  kvi::test::WriteFile(path, bytes);
  try {
    kvi::jetfile::Dump(path);
  } catch (const kvi::jetfile::FileError&) {
  }
  try {
    kvi::jet::ConvertOldFile({path}, made);
  } catch (const kvi::RunTimeError&) {
  }
  unlink(made.c_str());
}

}  // namespace

int main(int argc, char** argv) {
  using kvi::jetfile::Version;
  if (argc != 3) return EXIT_FAILURE;
  const unsigned long long first = std::strtoull(argv[1], nullptr, 10);
  const unsigned long long count = std::strtoull(argv[2], nullptr, 10);
  const kvi::test::TemporaryFolder folder;
  const std::string files[] = {kvi::jetfile::SoundFile(Version::Jet3),
                               kvi::jetfile::SoundFile(Version::Jet4)};
  for (unsigned long long seed = first; seed < first + count; ++seed) {
    if (seed % 1000 == 0) std::printf("%llu\n", seed), std::fflush(stdout);
    alarm(kLongestSeconds);
    try {
      Try(folder.Path().string(), kvi::jetfile::Damaged(files[seed % 2], seed));
    } catch (const std::exception& error) {
      std::printf("file %llu: %s\n", seed, error.what());
      return EXIT_FAILURE;
    }
  }
}
