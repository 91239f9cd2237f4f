// A variable of the environment for the time of a test.
#pragma once

#include <QByteArray>
#include <QtGlobal>

// Sets the variable, or takes it away where `value` is null; puts back at the end what was there.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const QByteArray& value) : name_(name), before_(qgetenv(name)) { put(value); }
    ~EnvironmentVariable() { put(before_); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    void put(const QByteArray& value) const {
        if (value.isNull()) {
            qunsetenv(name_);
        } else {
            qputenv(name_, value);
        }
    }

    const char* name_;
    QByteArray before_; // null if it was not set
};
