// Game files as lines, and the one number under which they are open.
#include "records/LineFile.h"

#include "records/PgnRig.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <iterator>
#include <sys/resource.h>
#include <sys/stat.h>

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::string_literals;

namespace {

long peakKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

auto openFiles() {
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
}

} // namespace

TEST(LineFile, AFileWithoutAByteHasNoLine) { EXPECT_THAT(PgnRig().lines(""), IsEmpty()); }

TEST(LineFile, ReturnAndFeedEndALineTogetherAndEachByItself) {
    EXPECT_THAT(PgnRig().lines("a\r\nb\r\n"), ElementsAre("a", "b"));
    EXPECT_THAT(PgnRig().lines("a\nb\n"), ElementsAre("a", "b"));
    EXPECT_THAT(PgnRig().lines("a\rb\r"), ElementsAre("a", "b"));
    EXPECT_THAT(PgnRig().lines("a\rb\nc\r\nd"), ElementsAre("a", "b", "c", "d"));
}

TEST(LineFile, AnEndBehindAnEndGivesAnEmptyLine) {
    EXPECT_THAT(PgnRig().lines("a\r\n\r\nb"), ElementsAre("a", "", "b"));
    EXPECT_THAT(PgnRig().lines("a\n\rb"), ElementsAre("a", "", "b"));
    EXPECT_THAT(PgnRig().lines("a\r\r\nb"), ElementsAre("a", "", "b"));
    EXPECT_THAT(PgnRig().lines("\n"), ElementsAre(""));
}

TEST(LineFile, TheEndOfTheFileEndsTheLastLine) { EXPECT_THAT(PgnRig().lines("a\nb"), ElementsAre("a", "b")); }

TEST(LineFile, NulAndEveryOtherByteBelongToTheirLine) {
    EXPECT_THAT(PgnRig().lines("a\0b\x1A\xFF\t \nc"s), ElementsAre("a\0b\x1A\xFF\t "s, "c"));
}

TEST(LineFile, ALineAndAnEndMayLieAcrossTwoPieces) {
    const std::string before(65535, 'x');
    EXPECT_THAT(PgnRig().lines(before + "\r\ny\r\n"), ElementsAre(before, "y")) << "CR last in its piece";
    EXPECT_THAT(PgnRig().lines(before + "\r"), ElementsAre(before));
    EXPECT_THAT(PgnRig().lines(before + "zz\n"), ElementsAre(before + "zz"));
    EXPECT_THAT(PgnRig().lines(before + "zz"), ElementsAre(before + "zz")) << "one byte in the second piece";
    EXPECT_THAT(PgnRig().lines(before + "\r\n"), ElementsAre(before)) << "nothing behind the LF";
}

TEST(LineFile, TakingALineBehindTheLastOneIsAFault) {
    const PgnRig rig;
    rig.file("a\n");
    LineFile file(rig.path());
    std::string line;
    file.take(line);
    EXPECT_EQ(line, "a");
    EXPECT_EQ(faultOf([&] { file.take(line); }), "file");
}

TEST(LineFile, AFileThatIsNotThereAndAFolderAreFaults) {
    const PgnRig rig;
    EXPECT_EQ(faultOf([&] { const LineFile file(rig.path()); }), "file");
    EXPECT_EQ(faultOf([&] { const LineFile file(rig.folder.path().string()); }), "file");
    EXPECT_EQ(modChess.FileOneHolder, nullptr) << "and nothing stays open";
}

TEST(LineFile, AFaultNamesTheFileAndWhatIsWrongWithIt) {
    const PgnRig rig;
    const auto said = [&](auto statement) {
        try {
            statement();
        } catch (const Fault& fault) {
            return std::string(fault.what());
        }
        return std::string();
    };
    EXPECT_EQ(said([&] { const LineFile file(rig.path()); }), rig.path() + ": No such file or directory");
    EXPECT_EQ(said([] { const LineFile file("/dev"); }), "/dev: Is a directory");
    EXPECT_EQ(said([] { const LineFile file("/dev/null"); }), "/dev/null: this is no plain file");
    EXPECT_EQ(said([] { const LineFile file("/proc/self/mem"); }), "/proc/self/mem: Input/output error")
        << "at 0 there is nothing to read";
    EXPECT_EQ(said([] { const LineFile file("/J\u00fcrgen/\u0141.pgn"); }),
              "/J\xfcrgen/?.pgn: No such file or directory")
        << "in the letters that the screen shows";
    rig.file("a\n");
    LineFile file(rig.path());
    EXPECT_EQ(said([&] { const LineFile other(rig.path()); }), "a game file is open already");
    std::string line;
    file.take(line);
    EXPECT_EQ(said([&] { file.take(line); }), rig.path() + ": the file ends within a game");
}

TEST(LineFile, APipeThatNobodyWritesAndADeviceWithoutEndAreFaults) {
    const PgnRig rig;
    ASSERT_EQ(::mkfifo(rig.path().c_str(), 0600), 0);
    EXPECT_EQ(faultOf([&] { const LineFile file(rig.path()); }), "file");
    EXPECT_EQ(faultOf([&] { const LineFile file("/dev/zero"); }), "file");
    EXPECT_EQ(modChess.FileOneHolder, nullptr) << "and nothing stays open";
}

TEST(LineFile, AFileMayStandBehindALink) {
    const PgnRig rig;
    rig.file("a\n");
    const auto link = rig.folder.path() / "link.pgn";
    std::filesystem::create_symlink(rig.path(), link);
    LineFile file(link.string());
    std::string line;
    EXPECT_TRUE(file.next(line));
    EXPECT_EQ(line, "a");
}

TEST(LineFile, ALinkToItselfIsAFault) {
    const PgnRig rig;
    std::filesystem::create_symlink(rig.path(), rig.path());
    EXPECT_EQ(faultOf([&] { const LineFile file(rig.path()); }), "file");
}

TEST(LineFile, OneIsOpenAtATime) {
    const PgnRig rig;
    rig.file("a\n");
    {
        const LineFile first(rig.path());
        EXPECT_EQ(faultOf([&] { const LineFile second(rig.path()); }), "file");
        EXPECT_EQ(faultOf([&] { const LineFile third(rig.path()); }), "file") << "the first is open still";
    }
    EXPECT_EQ(faultOf([&] { const LineFile file(rig.path()); }), "none");
}

TEST(LineFile, AFileThatIsLeftIsClosed) {
    const PgnRig rig;
    rig.file("a\n");
    const auto before = openFiles();
    { const LineFile file(rig.path()); }
    EXPECT_EQ(openFiles(), before);
}

TEST(LineFile, AFolderIsClosedBehindItsFault) {
    const auto before = openFiles();
    EXPECT_EQ(faultOf([] { const LineFile file("/dev"); }), "file");
    EXPECT_EQ(openFiles(), before);
}

TEST(LineFile, ClosingTheNumberLetsAnotherFileHaveIt) {
    const PgnRig rig;
    rig.file("a\n");
    auto first = std::make_unique<LineFile>(rig.path());
    FileOne::close();
    const LineFile second(rig.path());
    first.reset();
    EXPECT_EQ(faultOf([&] { const LineFile third(rig.path()); }), "file")
        << "the second has it, whatever became of the "
           "first";
}

TEST(LineFile, FiftyMegabytesOfLinesTakeNoMoreRoomThanOne) {
    const PgnRig rig;
    std::string part;
    while (part.size() < 1000000) part += "a line of a file that has many of them\n";
    {
        std::ofstream file(rig.path(), std::ios::binary);
        for (int count = 0; count < 50; ++count) file << part;
    }
    ASSERT_GE(std::filesystem::file_size(rig.path()), 50000000U);
    const long before = peakKilobytes();
    LineFile file(rig.path());
    long lines = 0;
    for (std::string line; file.next(line);) ++lines;
    EXPECT_EQ(lines, std::ranges::count(part, '\n') * 50);
    EXPECT_LE(peakKilobytes() - before, 2000);
}
