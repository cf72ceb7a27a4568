// The two-call base64 rendering of files, on POSIX also against coreutils'
// base64 -w0 on random files of every length from 0 to 100 bytes and a few
// large ones.
#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

namespace {

using qnutil_test::ScratchDir;
using qnutil_test::write_file;

constexpr unsigned char kUntouched = 0x55;
constexpr unsigned int kUntouchedLength = 0xDEADBEEF;

struct Result {
  int size_status = -1, copy_status = -1;
  unsigned int length = kUntouchedLength;
  std::string text;      // the buffer up to the reported length
  bool overran = false;  // a byte beyond length - 1 was written
};

// Runs the caller's protocol: ask for the size, allocate it plus a guard
// area, fill. The text comes without its final character, and the byte
// where that character would go stays as the caller left it.
Result convert(const std::string& path) {
  Result r;
  r.size_status = jpgToXML(path.c_str(), nullptr, &r.length, 1);
  const std::size_t n = r.size_status == 1 ? r.length : 16;
  std::vector<unsigned char> buffer(n + 16, kUntouched);
  unsigned int length_on_copy = kUntouchedLength;
  r.copy_status = jpgToXML(path.c_str(), buffer.data(), &length_on_copy, 0);
  EXPECT_EQ(length_on_copy, kUntouchedLength) << "the copying call must not touch length";
  for (std::size_t i = n > 0 ? n - 1 : 0; i < buffer.size(); ++i)
    r.overran |= buffer[i] != kUntouched;
  r.text.assign(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(n > 0 ? n - 1 : 0));
  return r;
}

TEST(JpgToXml, ReportsTheLengthThenCopiesAllButTheLastCharacter) {
  const struct {
    std::string content;
    unsigned int length;
    std::string copied;  // the text without its final character
  } rows[] = {{"M", 4, "TQ="},
              {"", 0, ""},
              {std::string("\0\xFF\xFE\x01", 4), 8, "AP/+AQ="},
              {"any carnal pleasure.", 28, "YW55IGNhcm5hbCBwbGVhc3VyZS4"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.copied);
    ScratchDir dir;
    write_file(dir.file("picture.jpg"), row.content);
    const Result r = convert(dir.file("picture.jpg"));
    EXPECT_EQ(r.size_status, 1);
    EXPECT_EQ(r.copy_status, 1);
    EXPECT_EQ(r.length, row.length);
    EXPECT_EQ(r.text, row.copied);
    EXPECT_FALSE(r.overran);
  }
}

#ifndef _WIN32
std::string coreutils_base64(const std::string& path) {
  std::FILE* pipe = popen(("base64 -w0 '" + path + "'").c_str(), "r");
  if (!pipe) return "<no base64>";
  std::string text;
  char chunk[65536];
  for (std::size_t got; (got = std::fread(chunk, 1, sizeof chunk, pipe)) > 0;)
    text.append(chunk, got);
  pclose(pipe);
  return text;
}

TEST(JpgToXml, MatchesCoreutils) {
  std::vector<std::size_t> sizes = {65536u, 1000001u, 3u << 20, (5u << 20) + 2};
  for (std::size_t size = 0; size <= 100; ++size) sizes.push_back(size);
  ScratchDir dir;
  std::mt19937 random(1);
  for (const std::size_t size : sizes) {
    std::string bytes(size, '\0');
    for (char& c : bytes) c = static_cast<char>(random());
    const std::string path = dir.file("f" + std::to_string(size));
    write_file(path, bytes);
    const std::string expected = coreutils_base64(path);
    const Result r = convert(path);
    ASSERT_EQ(r.size_status, 1) << size;
    ASSERT_EQ(r.length, expected.size()) << size;
    EXPECT_EQ(r.copy_status, 1) << size;
    EXPECT_EQ(r.text, expected.substr(0, r.text.size())) << size;
    EXPECT_FALSE(r.overran) << size;
  }
}
#endif

}  // namespace
