#include <gtest/gtest.h>

extern "C" int qnutil_c_api_smoke(void);

TEST(CApi, HeaderCompilesAsCAndCallsWork) { EXPECT_EQ(qnutil_c_api_smoke(), 1); }
