#include <gtest/gtest.h>

#include <string>

#include "qnutil/qnutil.h"

TEST(Version, LibraryMatchesHeader) {
  EXPECT_EQ(QnUtil_GetVersion(), QNUTIL_VERSION);
  const std::string expected = std::to_string(QNUTIL_VERSION_MAJOR) + "." +
                               std::to_string(QNUTIL_VERSION_MINOR) + "." +
                               std::to_string(QNUTIL_VERSION_PATCH);
  EXPECT_EQ(QnUtil_GetVersionString(), expected);
}
