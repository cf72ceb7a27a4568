// Opening plug-in modules: which property lists are accepted and what the
// caller gets back.
#include <gtest/gtest.h>

#include <string>

#include "filter_harness.h"

namespace {

using qnutil_test::LoadedFilter;
using qnutil_test::plugin_path;

// Each module with the name it is accepted with (null: rejected). A list
// abandoned late leaves its texts to the next one (texts_carried).
TEST(PluginDiscovery, AcceptsOnlyUsableFilterLists) {
  const std::pair<const char*, const char*> modules[] = {
      {"invert", "Invert"},         {"version_3_1", "Accept"},       {"two_lists", "Second"},
      {"texts_carried", "Carried"}, {"long_entry", "Long Name"},     {"kind_other", nullptr},
      {"version_4_1", nullptr},     {"no_category", nullptr},        {"no_name", nullptr},
      {"missing_entry", nullptr},   {"other_architecture", nullptr}, {"does_not_exist", nullptr}};
  for (const auto& [module, expectedName] : modules) {
    SCOPED_TRACE(module);
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
}

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

// The longest entry name a list can give, copied only into a buffer that
// holds it with its terminator.
TEST(PluginDiscovery, EntryNameAsTheListGivesIt) {
  const std::string entry(255, 'E');
  LoadedFilter filter("long_entry");
  char buffer[256] = "untouched";
  EXPECT_FALSE(AVGetPSFilterEntryName(filter.get(), buffer, 255));
  EXPECT_STREQ(buffer, "untouched");
  ASSERT_TRUE(AVGetPSFilterEntryName(filter.get(), buffer, 256));
  EXPECT_EQ(buffer, entry);
  EXPECT_FALSE(AVGetPSFilterEntryName(nullptr, buffer, sizeof buffer));
}

}  // namespace
