// The base64 text against coreutils' base64 -w0 on random files of every
// length from 0 to 100 bytes and a few large ones (POSIX only).
#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

namespace {

std::string coreutils_base64(const std::string& path) {
  const std::string command = "base64 -w0 '" + path + "'";
  std::FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return "<no base64>";
  std::string text;
  char chunk[65536];
  for (std::size_t got; (got = std::fread(chunk, 1, sizeof chunk, pipe)) > 0;) text.append(chunk, got);
  pclose(pipe);
  return text;
}

// The copied text is coreutils' text without its final character, and the
// byte where that character would go stays as the caller left it.
void expect_matches_coreutils(const std::string& path, std::size_t size) {
  const std::string expected = coreutils_base64(path);
  unsigned int length = 0;
  ASSERT_EQ(jpgToXML(path.c_str(), nullptr, &length, 1), 1);
  ASSERT_EQ(length, expected.size()) << size;
  std::vector<unsigned char> buffer(length + 1, 0);
  ASSERT_EQ(jpgToXML(path.c_str(), buffer.data(), nullptr, 0), 1);
  const std::string copied(buffer.begin(), buffer.begin() + (length > 0 ? length - 1 : 0));
  EXPECT_EQ(copied, expected.substr(0, copied.size())) << size;
  EXPECT_EQ(buffer[length > 0 ? length - 1 : 0], 0) << "the last character must not be copied";
}

std::string random_bytes(std::mt19937& random, std::size_t size) {
  std::string bytes(size, '\0');
  for (char& c : bytes) c = static_cast<char>(random());
  return bytes;
}

TEST(CoreutilsPeer, EveryLengthUpTo100) {
  qnutil_test::ScratchDir dir;
  std::mt19937 random(1);
  for (std::size_t size = 0; size <= 100; ++size) {
    const std::string path = dir.file("f" + std::to_string(size));
    qnutil_test::write_file(path, random_bytes(random, size));
    expect_matches_coreutils(path, size);
  }
}

TEST(CoreutilsPeer, LargeFiles) {
  qnutil_test::ScratchDir dir;
  std::mt19937 random(2);
  for (const std::size_t size : {65536u, 1000001u, 3u << 20, (5u << 20) + 2}) {
    const std::string path = dir.file("large" + std::to_string(size));
    qnutil_test::write_file(path, random_bytes(random, size));
    expect_matches_coreutils(path, size);
  }
}

}  // namespace
