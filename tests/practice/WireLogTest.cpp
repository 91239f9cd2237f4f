// Tests of the record of what clients send.
#include "practice/wire/WireLog.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <sstream>

namespace practice {
namespace {

struct WireLogTest : testing::Test {
    std::string path = testing::TempDir() + "practice-wire-" + std::to_string(getpid());
    WireLog log;
    std::string partial;

    ~WireLogTest() override { std::remove(path.c_str()); }

    std::string content() const {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }
};

TEST_F(WireLogTest, LinesKeepTheirBytes) {
    ASSERT_TRUE(log.open(path));
    log.take("Ada", "Match fred 5 0 r \nSeek \n\xFF\xFB\x01\t\r\n", partial);
    EXPECT_EQ(content(), "Ada\tMatch fred 5 0 r \nAda\tSeek \nAda\t\xFF\xFB\x01\t\r\n");
}

TEST_F(WireLogTest, ALineIsWrittenWhenItEnds) {
    ASSERT_TRUE(log.open(path));
    log.take("", "gu", partial);
    EXPECT_EQ(content(), "");
    log.take("", "est\nwho", partial);
    EXPECT_EQ(content(), "-\tguest\n");
    EXPECT_EQ(partial, "who");
}

TEST_F(WireLogTest, AnEndlessLineIsCut) {
    ASSERT_TRUE(log.open(path));
    for (int i = 0; i < 100; ++i) log.take("Ada", std::string(1024, 'x'), partial);
    EXPECT_EQ(partial.size(), 65'536U);
}

TEST_F(WireLogTest, WithoutAFileNothingIsKept) {
    log.take("Ada", "who\nhalf", partial);
    EXPECT_EQ(partial, "");
    EXPECT_FALSE(log.open("/nonexistent/folder/log"));
}

} // namespace
} // namespace practice
