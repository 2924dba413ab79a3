#include <corvidlmw/gadget/SharedFonts.h>

#include <corvidlmw/toolkit/Lasting.h>

namespace corvidlmw::icon_gadget {

namespace {

// A table is a handle, and its copy another handle of the same body. A body that is in here lives on
// through our copy, so none can come to lie at its address.
struct Entry {
    XmFontList copy = nullptr;
    long references = 0;
};

auto BodyOf(XmFontList fonts) {
    return *fonts;
}

using Entries = UnorderedMap<decltype(BodyOf(nullptr)), Entry>;

Entries &AllFonts() {
    static const Lasting<Entries> entries;
    return *entries;
}

} // namespace

XmFontList AcquireFonts(XmFontList fonts) {
    Entries &entries = AllFonts();
    auto found = entries.find(BodyOf(fonts));
    if (found == entries.end()) {
        XmFontList copy = XmFontListCopy(fonts);
        found = entries.try_emplace(BodyOf(copy), Entry{copy, 0}).first;
    }
    ++found->second.references;
    return found->second.copy;
}

void ReleaseFonts(XmFontList copy) {
    Entries &entries = AllFonts();
    const auto found = entries.find(BodyOf(copy));
    if (found != entries.end() && --found->second.references == 0) {
        XmFontListFree(copy);
        entries.erase(found);
    }
}

} // namespace corvidlmw::icon_gadget
