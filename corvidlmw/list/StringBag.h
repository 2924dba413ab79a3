// Strings that are to be found among many others. Strings that the toolkit finds equal have the same text,
// so a look at the text passes over nearly all that are not.
#pragma once

#include <corvidlmw/toolkit/Memory.h>

#include <Xm/Xm.h>

#include <cstdint>

namespace corvidlmw::list {

class StringBag {
public:
    // The string must live as long as it is in the bag.
    void Add(XmString string);
    bool empty() const { return strings_.empty(); }
    int size() const { return static_cast<int>(strings_.size()); }

    bool Contains(XmString string) const;
    // Takes out one that is equal; false if there is none.
    bool Take(XmString string);

private:
    using Strings = UnorderedMultimap<std::uint64_t, XmString>;

    Strings::const_iterator Find(XmString string) const;

    Strings strings_;
};

} // namespace corvidlmw::list
