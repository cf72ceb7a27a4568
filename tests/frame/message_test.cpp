#include <gtest/gtest.h>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

using qnutil_test::MessageCapture;

struct BoxCase {
  const char* text;
  const char* extra1;
  const char* extra2;
  const char* source;
  int line;
  const char* caption;
  const char* body;
};

class MessageBoxTest : public testing::TestWithParam<BoxCase> {};

TEST_P(MessageBoxTest, CaptionAndBody) {
  const BoxCase& c = GetParam();
  MessageCapture capture;
  QnUtil_Message(c.text, c.extra1, c.extra2, c.source, c.line);
  ASSERT_EQ(capture.boxes().size(), 1u);
  EXPECT_EQ(capture.boxes()[0].caption, c.caption);
  EXPECT_EQ(capture.boxes()[0].text, c.body);
}

INSTANTIATE_TEST_SUITE_P(
    Messages, MessageBoxTest,
    testing::Values(BoxCase{"a", "b", nullptr, nullptr, 0, "MESSAGE", "ab"},
                    BoxCase{"a", nullptr, "c", nullptr, 7, "MESSAGE", "ac"},
                    BoxCase{nullptr, nullptr, nullptr, nullptr, 0, "MESSAGE", ""},
                    BoxCase{"x", "y", "z", "qnutilenv", 42,
                            "MESSAGE in \"qnutilenv\" line 42:", "xyz"},
                    BoxCase{"", nullptr, nullptr, "", -1, "MESSAGE in \"\" line -1:", ""}));
