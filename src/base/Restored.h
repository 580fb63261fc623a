#pragma once

#include <utility>

namespace tarvex {

/// Gives a variable another value for the life of this object, however it ends.
template <class Value> class Restored {
public:
    Restored(Value& variable, Value meanwhile)
        : variable_(variable), before_(std::exchange(variable, std::move(meanwhile)))
    {}
    ~Restored() { variable_ = std::move(before_); }
    Restored(const Restored&) = delete;
    Restored& operator=(const Restored&) = delete;

private:
    Value& variable_;
    Value before_;
};

}
