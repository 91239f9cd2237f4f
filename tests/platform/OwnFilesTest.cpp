// What another user of the machine could have put somewhere. Tests run as anybody, so other owners are tried where the
// user may give files away.
#include "platform/OwnFiles.h"

#include "common/InChild.h"
#include "settings/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr uid_t Nobody = 65534;

struct OwnFiles : testing::Test {
    TemporaryFolder folder;
    fs::path before = fs::current_path();
    fs::path program = folder.path() / "relay";

    OwnFiles() {
        folder.write("relay", "x");
        mode(program, 0755);
        mode(folder.path(), 0755);
    }
    ~OwnFiles() override { fs::current_path(before); }

    static void mode(const fs::path& path, mode_t wanted) { EXPECT_EQ(::chmod(path.c_str(), wanted), 0); }
    std::string reason() const { return strangersHand(program.string()).value_or("none"); }
    // False where only an administrator could do it.
    static bool giveAway(const fs::path& path) { return ::lchown(path.c_str(), Nobody, Nobody) == 0; }
    std::string belongs(const fs::path& path) const { return path.string() + " belongs to another user"; }
};

} // namespace

TEST_F(OwnFiles, AProgramOfTheUsersOwnInAFolderOfHisOwnIsHis) { EXPECT_EQ(reason(), "none"); }

TEST_F(OwnFiles, OneOfTheSystemIsTrustedByItsOwnerAndByEverybodyElse) {
    EXPECT_EQ(strangersHand("/bin/sh"), std::nullopt);
    EXPECT_TRUE(inChild([] {
        if (::geteuid() == 0 && ::setuid(Nobody) != 0) ::_exit(2);
        if (strangersHand("/bin/sh")) ::_exit(1);
    }));
}

TEST_F(OwnFiles, OneThatEverybodyMayWriteIsNot) {
    mode(program, 0757);
    EXPECT_EQ(reason(), program.string() + " can be written by everybody");
}

TEST_F(OwnFiles, OneInAFolderThatEverybodyMayWriteIsNot) {
    mode(folder.path(), 0777);
    EXPECT_EQ(reason(), fs::canonical(folder.path()).string() + " can be written by everybody");
    mode(folder.path(), 01777);
    EXPECT_EQ(reason(), "none") << "others cannot replace what is ours there";
}

TEST_F(OwnFiles, OneBehindALinkIsJudgedWhereItStands) {
    const fs::path other = folder.path() / "other";
    fs::create_directory(other);
    fs::rename(program, other / "relay");
    fs::create_symlink(other / "relay", program);
    EXPECT_EQ(reason(), "none");
    mode(other, 0777);
    EXPECT_EQ(reason(), fs::canonical(other).string() + " can be written by everybody");
    mode(other, 0755);
    mode(other / "relay", 0757);
    EXPECT_EQ(reason(), (fs::canonical(other) / "relay").string() + " can be written by everybody");
    mode(other / "relay", 0755);
    mode(folder.path(), 0777);
    EXPECT_EQ(reason(), fs::canonical(folder.path()).string() + " can be written by everybody") << "who led there?";
}

TEST_F(OwnFiles, ALinkToNowhereOrToItselfIsNobodysProgram) {
    fs::remove(program);
    fs::create_symlink(program, program);
    EXPECT_EQ(reason(), program.string() + " cannot be looked at");
    fs::remove(program);
    fs::create_symlink(folder.path() / "gone", program);
    EXPECT_EQ(reason(), program.string() + " cannot be looked at");
}

TEST_F(OwnFiles, WhatBelongsToAnotherUserIsNotTrusted) {
    if (!giveAway(program)) GTEST_SKIP() << "only an administrator can give files away";
    EXPECT_EQ(reason(), belongs(program));
}

TEST_F(OwnFiles, ALinkOrAFolderOfAnotherUserIsNotTrusted) {
    const fs::path link = folder.path() / "link";
    fs::create_symlink("/bin/sh", link);
    EXPECT_EQ(strangersHand(link.string()), std::nullopt);
    if (!giveAway(link)) GTEST_SKIP() << "only an administrator can give files away";
    EXPECT_EQ(strangersHand(link.string()), belongs(link)) << "to a program of the system, with a name of his choice";
    ASSERT_TRUE(giveAway(folder.path()));
    EXPECT_EQ(reason(), belongs(fs::canonical(folder.path())));
}

TEST_F(OwnFiles, AFolderOfOnesOwnIsMadeAndClosedToOthers) {
    const fs::path own = folder.path() / "a" / "b";
    EXPECT_TRUE(goToOwnFolder(own.string()));
    EXPECT_EQ(fs::current_path(), fs::canonical(own));
    EXPECT_EQ(fs::status(own).permissions(), fs::perms(0700));
    fs::current_path(before);
    mode(own, 0777);
    EXPECT_TRUE(goToOwnFolder(own.string()));
    EXPECT_EQ(fs::status(own).permissions(), fs::perms(0700));
}

TEST_F(OwnFiles, WhereNoFolderCanBeTheCurrentOneStays) {
    EXPECT_FALSE(goToOwnFolder((program / "below").string())) << "a file is in the way";
    EXPECT_EQ(fs::current_path(), before);
}
