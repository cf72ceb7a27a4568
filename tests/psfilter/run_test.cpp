// Running test plug-ins over images: the selector sequence, tiles and
// their write-back, progress and cancel, the suites, and failures in each
// step.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "filter_harness.h"
#include "support/test_support.h"

namespace {

using namespace qnutil_test;

// One run of the invert plug-in: its tiles and planes, a step told to fail,
// and what the run gives back.
struct InvertCase {
  int width, height;          // image
  int tileWidth, tileHeight;  // tiles the plug-in asks for
  int lo, hi;                 // planes
  const char* fail;           // QNUTIL_PLUGIN_FAIL
  std::string trace;
  bool ok = true;
  int32_t status = 0;
  int invertedRows = -1;  // from the top; -1: all
  bool noTiles = false;   // start sets no tile
};

// The selector trace of a successful run over n tiles: finish is not called.
std::string tiles(int n) { return "123" + std::string(n, '4'); }

// Tiles: the last column and row reaching past the edge, fitting exactly,
// one tile larger than the image; green, blue and transparency; transparency
// only. Then two tiles (top and bottom half of a 6 x 8 image) with a failing
// step: a positive prepare result still runs, start's result is the status,
// a failing continue is followed by finish and is not the run's status, and
// without a tile the run ends after start.
TEST(InvertRun, StatusTraceAndEveryTileWrittenBackInsideTheImage) {
  const InvertCase cases[] = {{20, 13, 7, 5, 0, 2, "", tiles(9)},
                              {16, 8, 4, 4, 0, 2, "", tiles(8)},
                              {20, 13, 256, 256, 0, 2, "", tiles(1)},
                              {9, 6, 4, 4, 1, 3, "", tiles(6)},
                              {9, 6, 5, 2, 3, 3, "", tiles(6)},
                              {6, 8, 256, 4, 0, 2, "1:-5", "1", false, -5, 0},
                              {6, 8, 256, 4, 0, 2, "2:3", tiles(2)},
                              {6, 8, 256, 4, 0, 2, "3:7", "123", true, 7, 0},
                              {6, 8, 256, 4, 0, 2, "4:-9", "12345", true, 0, 4},
                              {6, 8, 256, 4, 0, 2, "", "123", true, 0, 0, true}};
  for (const InvertCase& c : cases) {
    SCOPED_TRACE(c.trace + " " + c.fail);
    const ScopedEnvironmentVariable settings[] = {
        {"QNUTIL_PLUGIN_TILE_W", std::to_string(c.tileWidth).c_str()},
        {"QNUTIL_PLUGIN_TILE_H", std::to_string(c.tileHeight).c_str()},
        {"QNUTIL_PLUGIN_LO", std::to_string(c.lo).c_str()},
        {"QNUTIL_PLUGIN_HI", std::to_string(c.hi).c_str()},
        {"QNUTIL_PLUGIN_FAIL", c.fail},
        {"QNUTIL_PLUGIN_NO_TILES", c.noTiles ? "1" : "0"}};
    LoadedFilter filter("invert");
    ASSERT_NE(filter.get(), nullptr);
    const Image source = pattern_image(c.width, c.height);
    const RunOutcome outcome = run(filter.get(), source);
    EXPECT_EQ(outcome.ok, c.ok);
    EXPECT_EQ(outcome.status, c.status);  // -20xx: a record field the host set wrongly
    EXPECT_EQ(outcome.trace, c.trace);
    EXPECT_EQ(first_difference(outcome.image,
                               with_planes_changed(source, c.lo, c.hi, inverted, c.invertedRows)),
              "");
  }
}

// Progress reports seen by the host's caller; each run starts a new log.
struct ProgressLog {
  std::vector<float> fractions;
  float cancelAt = 2.0f;  // answer false from this fraction on
};
ProgressLog g_log;

bool QNUTIL_CALL record_progress(float fraction, int32_t userValue) {
  if (userValue != 4711) return false;
  g_log.fractions.push_back(fraction);
  return fraction < g_log.cancelAt;
}

// Reports reach the caller in order; false from the callback cancels
// through abortProc.
TEST(Progress, ReportsReachTheCallerAndFalseCancels) {
  LoadedFilter filter("progress");
  const Image source = pattern_image(6, 10);
  const RunOutcome quiet = run(filter.get(), source);  // without a callback: never cancelled
  EXPECT_TRUE(quiet.ok);
  EXPECT_EQ(quiet.trace, "123");
  g_log = ProgressLog{};
  const RunOutcome outcome = run(filter.get(), source, false, record_progress, 4711);
  ASSERT_TRUE(outcome.ok) << outcome.status;
  EXPECT_EQ(first_difference(outcome.image, with_planes_changed(source, 0, 2, inverted)), "");
  // Each row: the report itself, then abortProc asking with the last fraction.
  ASSERT_EQ(g_log.fractions.size(), 20u);
  for (size_t i = 0; i < g_log.fractions.size(); ++i)
    EXPECT_FLOAT_EQ(g_log.fractions[i], float(i / 2 + 1) / 10.0f);

  g_log = ProgressLog{};
  g_log.cancelAt = 0.5f;
  const RunOutcome cancelled = run(filter.get(), source, false, record_progress, 4711);
  EXPECT_FALSE(cancelled.ok);
  EXPECT_EQ(cancelled.status, -128);
  // Fifth report answered false: abortProc answers true without asking again.
  EXPECT_EQ(g_log.fractions.size(), 9u);
  // Rows handed back before the cancel are in the result; the row in hand is not.
  EXPECT_EQ(first_difference(cancelled.image, with_planes_changed(source, 0, 2, inverted, 4)), "");

  // The next run, over another image, gets nothing of the abandoned tile.
  g_log = ProgressLog{};
  const Image other = pattern_image(6, 10, 4);
  const RunOutcome next = run(filter.get(), other, false, record_progress, 4711);
  EXPECT_TRUE(next.ok);
  EXPECT_EQ(first_difference(next.image, with_planes_changed(other, 0, 2, inverted)), "");
}

TEST(Suites, BufferAndHandleSuitesServeHostAndPluginMemory) {
  LoadedFilter filter("suites");
  const Image source = pattern_image(5, 4);
  const RunOutcome outcome = run(filter.get(), source);
  ASSERT_EQ(outcome.status, 0) << "-100x: check x of the plug-in failed";
  // Plane p was filled with 10 * (p + 1): red 10, green 20, blue 30, transparency 40.
  Image expected = source;
  for (int y = 0; y < source.height; ++y)
    for (int x = 0; x < source.width; ++x) std::memcpy(expected.pixel(x, y), "\x1E\x14\x0A\x28", 4);
  EXPECT_EQ(first_difference(outcome.image, expected), "");
}

TEST(UnusableArguments, FailWithoutCallingThePlugin) {
  LoadedFilter filter("invert");
  bool canRepeat = true;
  EXPECT_FALSE(AVPSFilterCanDoLastFilter(nullptr, &canRepeat));
  const Image source = pattern_image(4, 4);
  unsigned char* result = nullptr;
  int32_t status = 0;
  EXPECT_FALSE(AVApplyPSFilter(nullptr, false, nullptr, 0, source.bytes.data(), 4, 4,
                               source.rowBytes, &result, &status));
  EXPECT_EQ(status, -1);
  EXPECT_FALSE(AVApplyPSFilter(filter.get(), false, nullptr, 0, source.bytes.data(), 4, 4,
                               source.rowBytes, nullptr, &status));
  EXPECT_FALSE(AVApplyPSFilter(filter.get(), false, nullptr, 0, source.bytes.data(), 4, 4, 15,
                               &result, &status));
  EXPECT_FALSE(AVApplyPSFilter(filter.get(), false, nullptr, 0, source.bytes.data(), 40000, 1,
                               160000, &result, &status));
  EXPECT_EQ(status, -1);
  EXPECT_EQ(result, nullptr);
}

}  // namespace
