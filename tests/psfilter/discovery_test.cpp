// Opening plug-in modules: which property lists are accepted and what the
// caller gets back.
#include <gtest/gtest.h>

#include <string>

#include "filter_harness.h"

namespace {

using qnutil_test::LoadedFilter;
using qnutil_test::plugin_path;

// A module and the name it is accepted with (null: rejected).
using Discovery = std::pair<const char*, const char*>;

class PluginDiscovery : public ::testing::TestWithParam<Discovery> {};

TEST_P(PluginDiscovery, AcceptsOnlyUsableFilterLists) {
  const auto [module, expectedName] = GetParam();
  char* category = reinterpret_cast<char*>(1);
  char* name = reinterpret_cast<char*>(1);
  PSFilter_* filter = reinterpret_cast<PSFilter_*>(1);
  int32_t error = 77;
  ASSERT_EQ(AVGetPSFilterAndInfo(plugin_path(module).c_str(), &category, &name, &filter, &error),
            expectedName != nullptr);
  EXPECT_EQ(error, expectedName ? 0 : -1);
  EXPECT_EQ(filter != nullptr, expectedName != nullptr);
  EXPECT_STREQ(category, expectedName ? "QnUtil Tests" : nullptr);
  EXPECT_STREQ(name, expectedName);
  EXPECT_TRUE(AVFreeGotPSFilterInfo(&category, &name));
  EXPECT_EQ(category, nullptr);
  EXPECT_TRUE(AVFreeGotPSFilter(&filter));
  EXPECT_EQ(filter, nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Modules, PluginDiscovery,
    ::testing::Values(Discovery{"invert", "Invert"}, Discovery{"version_3_1", "Accept"},
                      Discovery{"two_lists", "Second"},
                      // A list abandoned late leaves its texts to the next one.
                      Discovery{"texts_carried", "Carried"}, Discovery{"long_entry", "Long Name"},
                      Discovery{"kind_other", nullptr}, Discovery{"version_4_1", nullptr},
                      Discovery{"no_category", nullptr}, Discovery{"no_name", nullptr},
                      Discovery{"missing_entry", nullptr}, Discovery{"other_architecture", nullptr},
                      Discovery{"does_not_exist", nullptr}),
    [](const ::testing::TestParamInfo<Discovery>& info) { return std::string(info.param.first); });

TEST(PluginDiscovery, UnusableArgumentsAndOptionalOutputs) {
  PSFilter_* filter = nullptr;
  int32_t error = 0;
  EXPECT_FALSE(AVGetPSFilterAndInfo(qnutil_test::own_path().string().c_str(), nullptr, nullptr,
                                    &filter, &error));
  EXPECT_EQ(error, -1);
  EXPECT_FALSE(
      AVGetPSFilterAndInfo(plugin_path("invert").c_str(), nullptr, nullptr, nullptr, &error));
  // Category, name and error are optional.
  ASSERT_TRUE(
      AVGetPSFilterAndInfo(plugin_path("invert").c_str(), nullptr, nullptr, &filter, nullptr));
  AVFreeGotPSFilter(&filter);
  // The release functions accept null.
  EXPECT_TRUE(AVFreeGotPSFilter(nullptr));
  EXPECT_TRUE(AVFreeGotPSFilterInfo(nullptr, nullptr));
  EXPECT_TRUE(AVFreeGotPSFilterImage(nullptr));
}

TEST(PluginDiscovery, EntryNameAsTheListGivesIt) {
  for (const std::string module : {"invert", "long_entry"}) {
    const std::string entry = module == "invert" ? "PluginMain" : std::string(255, 'E');
    LoadedFilter filter(module);
    char buffer[256] = "untouched";
    EXPECT_FALSE(AVGetPSFilterEntryName(filter.get(), buffer, static_cast<int32_t>(entry.size())));
    EXPECT_STREQ(buffer, "untouched");
    ASSERT_TRUE(
        AVGetPSFilterEntryName(filter.get(), buffer, static_cast<int32_t>(entry.size() + 1)));
    EXPECT_EQ(buffer, entry) << module;
  }
  char buffer[8];
  EXPECT_FALSE(AVGetPSFilterEntryName(nullptr, buffer, sizeof buffer));
}

}  // namespace
