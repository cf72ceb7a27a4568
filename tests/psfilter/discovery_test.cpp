// Opening plug-in modules: which property lists are accepted and what the
// caller gets back.
#include <gtest/gtest.h>

#include <string>

#include "filter_harness.h"

namespace {

using qnutil_test::LoadedFilter;
using qnutil_test::plugin_path;

struct Discovery {
  const char* module;
  bool accepted;
  const char* name;  // expected name when accepted
};

class PluginDiscovery : public ::testing::TestWithParam<Discovery> {};

TEST_P(PluginDiscovery, AcceptsOnlyUsableFilterLists) {
  const Discovery& c = GetParam();
  char* category = reinterpret_cast<char*>(1);
  char* name = reinterpret_cast<char*>(1);
  PSFilter_* filter = reinterpret_cast<PSFilter_*>(1);
  int32_t error = 77;
  const bool ok = AVGetPSFilterAndInfo(plugin_path(c.module).c_str(), &category, &name, &filter, &error);
  ASSERT_EQ(ok, c.accepted) << c.module;
  if (c.accepted) {
    EXPECT_EQ(error, 0);
    ASSERT_NE(filter, nullptr);
    EXPECT_STREQ(category, "QnUtil Tests");
    EXPECT_STREQ(name, c.name);
  } else {
    EXPECT_EQ(error, -1);
    EXPECT_EQ(filter, nullptr);
    EXPECT_EQ(category, nullptr);
    EXPECT_EQ(name, nullptr);
  }
  EXPECT_TRUE(AVFreeGotPSFilterInfo(&category, &name));
  EXPECT_EQ(category, nullptr);
  EXPECT_TRUE(AVFreeGotPSFilter(&filter));
  EXPECT_EQ(filter, nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Modules, PluginDiscovery,
    ::testing::Values(Discovery{"invert", true, "Invert"}, Discovery{"version_3_1", true, "Accept"},
                      Discovery{"two_lists", true, "Second"},
                      // A list abandoned late leaves its texts to the next one.
                      Discovery{"texts_carried", true, "Carried"}, Discovery{"long_entry", true, "Long Name"},
                      Discovery{"kind_other", false, nullptr}, Discovery{"version_4_1", false, nullptr},
                      Discovery{"version_5_0", false, nullptr}, Discovery{"no_category", false, nullptr},
                      Discovery{"no_name", false, nullptr}, Discovery{"missing_entry", false, nullptr},
                      Discovery{"other_architecture", false, nullptr}, Discovery{"does_not_exist", false, nullptr}),
    [](const ::testing::TestParamInfo<Discovery>& info) { return std::string(info.param.module); });

TEST(PluginDiscovery, UnusableArgumentsAndOptionalOutputs) {
  PSFilter_* filter = nullptr;
  int32_t error = 0;
  EXPECT_FALSE(AVGetPSFilterAndInfo(qnutil_test::test_program_path().c_str(), nullptr, nullptr, &filter, &error));
  EXPECT_EQ(error, -1);
  EXPECT_FALSE(AVGetPSFilterAndInfo(nullptr, nullptr, nullptr, &filter, &error));
  EXPECT_FALSE(AVGetPSFilterAndInfo(plugin_path("invert").c_str(), nullptr, nullptr, nullptr, &error));
  // Category, name and error are optional.
  ASSERT_TRUE(AVGetPSFilterAndInfo(plugin_path("invert").c_str(), nullptr, nullptr, &filter, nullptr));
  AVFreeGotPSFilter(&filter);
  // The release functions accept null.
  EXPECT_TRUE(AVFreeGotPSFilter(nullptr));
  EXPECT_TRUE(AVFreeGotPSFilterInfo(nullptr, nullptr));
  EXPECT_TRUE(AVFreeGotPSFilterImage(nullptr));
  unsigned char* image = nullptr;
  EXPECT_TRUE(AVFreeGotPSFilterImage(&image));
}

TEST(PluginDiscovery, EntryNameAsTheListGivesIt) {
  for (const std::string module : {"invert", "long_entry"}) {
    const std::string entry = module == "invert" ? "PluginMain" : std::string(255, 'E');
    LoadedFilter filter(module);
    char buffer[256] = "untouched";
    EXPECT_FALSE(AVGetPSFilterEntryName(filter.get(), buffer, static_cast<int32_t>(entry.size())));
    EXPECT_STREQ(buffer, "untouched");
    ASSERT_TRUE(AVGetPSFilterEntryName(filter.get(), buffer, static_cast<int32_t>(entry.size() + 1)));
    EXPECT_EQ(buffer, entry) << module;
  }
  char buffer[8];
  EXPECT_FALSE(AVGetPSFilterEntryName(nullptr, buffer, sizeof buffer));
}

}  // namespace
