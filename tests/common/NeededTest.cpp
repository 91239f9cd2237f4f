// A function that can not be left out.
#include "common/Needed.h"

#include <gtest/gtest.h>

namespace {

struct Hooks {
    Needed<int(int number)> twice;
    Needed<void()> ring;
};

constexpr auto doubled = [](int number) { return 2 * number; };
constexpr auto silent = [] {};

template <typename Struct>
concept CompilesWhole = requires {
    Struct{.twice = doubled, .ring = silent};
};
template <typename Struct>
concept CompilesWithoutOne = requires {
    Struct{.twice = doubled};
}
|| requires { Struct{.ring = silent}; };

} // namespace

TEST(Needed, AStructThatLeavesAMemberOutDoesNotCompile) {
    EXPECT_TRUE(CompilesWhole<Hooks>);
    EXPECT_FALSE(CompilesWithoutOne<Hooks>);
    EXPECT_FALSE(std::is_default_constructible_v<Hooks>);
}

TEST(Needed, NothingAndWhatCanNotBeCalledSoAreRefused) {
    EXPECT_FALSE((std::is_constructible_v<Needed<void()>, std::nullptr_t>));
    EXPECT_FALSE((std::is_constructible_v<Needed<void()>, decltype(doubled)>));
}

TEST(Needed, WhatIsGivenIsCalledAndCanBeReplaced) {
    Hooks hooks{.twice = doubled, .ring = silent};
    EXPECT_EQ(hooks.twice(21), 42);
    hooks.twice = [real = hooks.twice](int number) { return real(number) + 1; };
    EXPECT_EQ(hooks.twice(21), 43);
}
