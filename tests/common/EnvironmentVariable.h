// A variable of the environment for the time of a test.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

// Sets the variable, or takes it away where `value` is null; puts back at the end what was there.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const char* value) : name_(name) {
        if (const char* before = std::getenv(name)) before_ = before;
        put(value);
    }
    ~EnvironmentVariable() { put(before_ ? before_->c_str() : nullptr); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    void put(const char* value) const {
        if (value) {
            ::setenv(name_, value, 1);
        } else {
            ::unsetenv(name_);
        }
    }

    const char* name_;
    std::optional<std::string> before_; // none if it was not set
};
