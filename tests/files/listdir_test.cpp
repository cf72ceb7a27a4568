// Folder listing: the record layout, matching, flags, sizes and times.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <string>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

namespace fs = std::filesystem;
using qnutil_test::ScratchDir;
using qnutil_test::write_file;

constexpr std::uint32_t kKindBits = QNUTIL_ENTRY_FILE | QNUTIL_ENTRY_FOLDER;

struct Listing {
  int result = 0;
  std::map<std::string, QnUtilDirEntry> entries;
  unsigned count = 0;
};

Listing list(const std::string& dir, const char* pattern) {
  Listing listing;
  QnUtilDirEntry* block = nullptr;
  listing.result = QnUtil_Listdir(dir.c_str(), pattern, 0, &block, &listing.count);
  for (unsigned i = 0; i < listing.count; ++i) listing.entries[block[i].name] = block[i];
  QnUtil_FreeEntries(&block);
  EXPECT_EQ(block, nullptr);
  return listing;
}

// Sets the last write time; false when the file system did not take it.
bool set_mtime(const fs::path& path, std::int64_t seconds) {
#ifdef _WIN32
  // The run-time's own time setter refuses times before 1970.
  const std::int64_t ticks = (seconds + 11644473600LL) * 10000000LL;
  FILETIME time{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
  HANDLE file = CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES | FILE_READ_ATTRIBUTES, 0, nullptr,
                            OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  FILETIME stored{};
  const bool ok =
      SetFileTime(file, nullptr, nullptr, &time) && GetFileTime(file, nullptr, nullptr, &stored) &&
      stored.dwLowDateTime == time.dwLowDateTime && stored.dwHighDateTime == time.dwHighDateTime;
  CloseHandle(file);
  return ok;
#else
  const auto when = std::chrono::sys_seconds(std::chrono::seconds(seconds));
  fs::last_write_time(path, std::chrono::file_clock::from_sys(when));
  return true;
#endif
}

TEST(Listdir, MissingFolderNoMatchAndNullOutputsFail) {
  ScratchDir dir;
  QnUtilDirEntry* block = reinterpret_cast<QnUtilDirEntry*>(&dir);
  unsigned count = 99;
  EXPECT_EQ(QnUtil_Listdir(dir.file("missing").c_str(), nullptr, 0, &block, &count), -1);
  EXPECT_EQ(block, nullptr);
  EXPECT_EQ(count, 0u);
  write_file(dir.file("a.txt"), "a");
  EXPECT_EQ(list(dir.path().string(), "*.dat").result, -1);
  EXPECT_EQ(QnUtil_Listdir(dir.path().string().c_str(), nullptr, 0, nullptr, &count), -1);
  EXPECT_EQ(QnUtil_Listdir(dir.path().string().c_str(), nullptr, 0, &block, nullptr), -1);
  QnUtil_FreeEntries(nullptr);
}

// 25 matches cross two enlargements of the block; the default pattern
// lists folders and the folder itself too.
TEST(Listdir, ListsEveryMatchWithItsKindAndSize) {
  ScratchDir dir;
  for (int i = 0; i < 25; ++i)
    write_file(dir.file("f" + std::to_string(i) + ".dat"), std::string(i, 'x'));
  fs::create_directory(dir.path() / "sub");
  for (const char* pattern : {"*.dat", "", static_cast<const char*>(nullptr)}) {
    const bool everything = pattern == nullptr || *pattern == '\0';
    const Listing listing = list(dir.path().string(), pattern);
    ASSERT_EQ(listing.result, 0);
    EXPECT_EQ(listing.count, everything ? 28u : 25u);
    for (int i = 0; i < 25; ++i) {
      const auto found = listing.entries.find("f" + std::to_string(i) + ".dat");
      ASSERT_NE(found, listing.entries.end()) << i;
      EXPECT_EQ(found->second.size, static_cast<std::uint32_t>(i));
      EXPECT_EQ(found->second.flags & kKindBits, QNUTIL_ENTRY_FILE);
    }
    if (!everything) continue;
    for (const char* folder : {".", "..", "sub"})
      EXPECT_EQ(listing.entries.at(folder).flags & kKindBits, QNUTIL_ENTRY_FOLDER) << folder;
  }
}

struct PatternCase {
  const char* pattern;
  std::vector<std::string> matches;  // among the files below
};

class ListdirPattern : public ::testing::TestWithParam<PatternCase> {};

TEST_P(ListdirPattern, MatchesLikeWindows) {
  ScratchDir dir;
  for (const char* name : {"alpha.txt", "beta.TXT", "gamma", "a1.dat", "ab.dat", "x.y.z"}) {
    write_file(dir.file(name), "");
  }
  const Listing listing = list(dir.path().string(), GetParam().pattern);
  std::vector<std::string> names;
  for (const auto& [name, entry] : listing.entries) {
    if (name != "." && name != "..") names.push_back(name);
  }
  EXPECT_EQ(names, GetParam().matches);
}

INSTANTIATE_TEST_SUITE_P(
    Wildcards, ListdirPattern,
    ::testing::Values(PatternCase{"*.*",
                                  {"a1.dat", "ab.dat", "alpha.txt", "beta.TXT", "gamma", "x.y.z"}},
                      PatternCase{"*.txt", {"alpha.txt", "beta.TXT"}},
                      PatternCase{"a?.dat", {"a1.dat", "ab.dat"}}, PatternCase{"GAMMA", {"gamma"}},
                      PatternCase{"*.z", {"x.y.z"}}, PatternCase{"x.*", {"x.y.z"}}));

TEST(Listdir, ReportsAttributes) {
  ScratchDir dir;
  write_file(dir.file("plain"), "");
  write_file(dir.file("locked"), "");
  fs::permissions(dir.path() / "locked",
                  fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                  fs::perm_options::remove);
#ifdef _WIN32
  write_file(dir.file("hidden"), "");
  SetFileAttributesA(dir.file("hidden").c_str(), FILE_ATTRIBUTE_HIDDEN);
  const char* hidden = "hidden";
#else
  write_file(dir.file(".hidden"), "");
  const char* hidden = ".hidden";
#endif
  const Listing listing = list(dir.path().string(), nullptr);
  EXPECT_EQ(listing.entries.at("plain").flags & (QNUTIL_ENTRY_READONLY | QNUTIL_ENTRY_HIDDEN), 0u);
  EXPECT_EQ(listing.entries.at("locked").flags & QNUTIL_ENTRY_READONLY, QNUTIL_ENTRY_READONLY);
  EXPECT_EQ(listing.entries.at(hidden).flags & QNUTIL_ENTRY_HIDDEN, QNUTIL_ENTRY_HIDDEN);
  for (const auto& [name, entry] : listing.entries) {
    const std::uint32_t kind = entry.flags & kKindBits;
    EXPECT_TRUE(kind == QNUTIL_ENTRY_FILE || kind == QNUTIL_ENTRY_FOLDER) << name;
  }
  fs::permissions(dir.path() / "locked", fs::perms::owner_write, fs::perm_options::add);
}

// Before 1970 the run-time cannot tell the time: such files list as
// New Year 1980.
TEST(Listdir, ReportsLastWriteTimeOrNewYear1980) {
  ScratchDir dir;
  write_file(dir.file("known"), "");
  ASSERT_TRUE(set_mtime(dir.path() / "known", 1700000000));
  EXPECT_EQ(list(dir.path().string(), nullptr).entries.at("known").mtime, 1700000000u);
  write_file(dir.file("ancient"), "");
#ifdef _WIN32
  // Wine's run-time converts such times to an arbitrary value, not -1.
  if (GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr) {
    GTEST_SKIP() << "Wine's run-time does not report unknown times";
  }
#endif
  if (!set_mtime(dir.path() / "ancient", -86400 * 365))
    GTEST_SKIP() << "file system keeps no time before 1970";
  EXPECT_EQ(list(dir.path().string(), nullptr).entries.at("ancient").mtime, 315529200u);
}

}  // namespace
