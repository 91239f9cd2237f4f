// A function that its owner can not do without: leaving it out does not compile.
#pragma once

#include <functional>
#include <type_traits>
#include <utility>

template <typename Signature>
class Needed;

// Has no empty state: a struct with such a member must be given each of them, and what is given is called as it is.
template <typename Result, typename... Arguments>
class Needed<Result(Arguments...)> {
public:
    template <typename Call>
    requires(!std::is_same_v<Call, Needed> && std::is_invocable_r_v<Result, Call&, Arguments...>) Needed(Call call)
        : call_(std::move(call)) {}

    Result operator()(Arguments... arguments) const { return call_(std::forward<Arguments>(arguments)...); }

private:
    std::function<Result(Arguments...)> call_;
};
