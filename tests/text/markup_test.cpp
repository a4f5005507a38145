#include "text/markup.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(MarkupTest, MarksOfTheFormatAreEscapedAndForbiddenCharactersBlanks) {
    EXPECT_EQ(MarkupText(L"a<b> & \"\u00E9\""), L"a&lt;b&gt; &amp; \"\u00E9\"");
    EXPECT_EQ(MarkupText(L"a\x01\t\n\uFFFEz"), L"a    z");
}

}  // namespace
}  // namespace corvane
