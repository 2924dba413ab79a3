// A value that is never destroyed: a client may destroy its widgets after main, when the statics of the
// libraries that it uses are gone. To be made within a function, at the first use.
#pragma once

#include <corvidlmw/toolkit/Memory.h>

namespace corvidlmw {

template <class T>
class Lasting {
public:
    T &operator*() const { return value_; }

private:
    T &value_ = *New<T>();
};

} // namespace corvidlmw
