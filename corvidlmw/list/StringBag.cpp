#include <corvidlmw/list/StringBag.h>

#include <corvidlmw/toolkit/MotifPrivate.h>

#include <span>

namespace corvidlmw::list {

namespace {

// Of the text alone, however it is parted into components.
class TextHash {
public:
    void Add(std::span<const unsigned char> text) {
        constexpr std::uint64_t prime = 1099511628211U;
        for (const unsigned char character : text) {
            hash_ = (hash_ ^ character) * prime;
        }
    }
    std::uint64_t value() const { return hash_; }

private:
    std::uint64_t hash_ = 14695981039346656037U;
};

bool IsText(XmStringComponentType type) {
    return type == XmSTRING_COMPONENT_TEXT || type == XmSTRING_COMPONENT_LOCALE_TEXT;
}

std::uint64_t HashOf(XmString string) {
    TextHash hash;
    XmStringContext context = nullptr;
    if (!string || !XmStringInitContext(&context, string)) {
        return hash.value();
    }
    unsigned length = 0;
    XtPointer value = nullptr;
    XmStringComponentType type = XmSTRING_COMPONENT_UNKNOWN;
    while ((type = XmeStringGetComponent(context, True, False, &length, &value)) !=
           XmSTRING_COMPONENT_END) {
        if (IsText(type)) {
            hash.Add({static_cast<const unsigned char *>(value), length});
        }
    }
    XmStringFreeContext(context);
    return hash.value();
}

} // namespace

void StringBag::Add(XmString string) {
    strings_.emplace(HashOf(string), string);
}

bool StringBag::Contains(XmString string) const {
    return Find(string) != strings_.end();
}

bool StringBag::Take(XmString string) {
    const auto found = Find(string);
    if (found == strings_.end()) {
        return false;
    }
    strings_.erase(found);
    return true;
}

StringBag::Strings::const_iterator StringBag::Find(XmString string) const {
    const auto [first, last] = strings_.equal_range(HashOf(string));
    for (auto found = first; found != last; ++found) {
        if (XmStringCompare(found->second, string)) {
            return found;
        }
    }
    return strings_.end();
}

} // namespace corvidlmw::list
