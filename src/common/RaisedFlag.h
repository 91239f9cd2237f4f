// A flag that is up as long as a routine runs.
#pragma once

// Lowers the flag in whatever way the routine ends, by a fault too.
class RaisedFlag {
public:
    explicit RaisedFlag(bool& flag) : flag_(flag) { flag_ = true; }
    ~RaisedFlag() { flag_ = false; }
    RaisedFlag(const RaisedFlag&) = delete;
    RaisedFlag& operator=(const RaisedFlag&) = delete;

private:
    bool& flag_;
};
