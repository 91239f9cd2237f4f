// Tests of text as it goes over the wire.
#include "practice/wire/Telnet.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

TEST(Telnet, WireLinesEndWithLineFeedAndReturn) { EXPECT_EQ(wireText("a\n\nb"), "a\n\r\n\rb"); }

TEST(Telnet, TheCommandByteIsDoubledInText) { EXPECT_EQ(wireText("\xFF\xFB\xFE"), "\xFF\xFF\xFB\xFE"); }

} // namespace
} // namespace practice
