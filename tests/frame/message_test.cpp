#include <gtest/gtest.h>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

using qnutil_test::MessageCapture;

TEST(MessageBox, CaptionAndBody) {
  const struct {
    const char *text, *extra1, *extra2, *source;
    int line;
    const char *caption, *body;
  } rows[] = {{"a", "b", nullptr, nullptr, 0, "MESSAGE", "ab"},
              {"a", nullptr, "c", nullptr, 7, "MESSAGE", "ac"},
              {nullptr, nullptr, nullptr, nullptr, 0, "MESSAGE", ""},
              {"x", "y", "z", "qnutilenv", 42, "MESSAGE in \"qnutilenv\" line 42:", "xyz"},
              {"", nullptr, nullptr, "", -1, "MESSAGE in \"\" line -1:", ""}};
  for (const auto& row : rows) {
    MessageCapture capture;
    QnUtil_Message(row.text, row.extra1, row.extra2, row.source, row.line);
    ASSERT_EQ(capture.boxes().size(), 1u);
    EXPECT_EQ(capture.boxes()[0].caption, row.caption);
    EXPECT_EQ(capture.boxes()[0].text, row.body);
  }
}
