// The converter of XmNiconPlacement.

#include <corvidlmw/gadget/IconGI.h>

#include <algorithm>
#include <string_view>

using namespace corvidlmw;

namespace {

struct PlacementName {
    std::string_view name;
    int value;
};
constexpr PlacementName placement_names[] = {
    {"icon_left", XmICON_LEFT},
    {"icon_right", XmICON_RIGHT},
    {"icon_top", XmICON_TOP},
    {"icon_bottom", XmICON_BOTTOM},
};

// Of ASCII, whatever the locale.
char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool EqualFolded(std::string_view text, std::string_view lower) {
    return std::equal(text.begin(), text.end(), lower.begin(), lower.end(),
                      [](char a, char b) { return Lower(a) == b; });
}

std::string_view WithoutPrefix(std::string_view text) {
    return text.size() >= 2 && EqualFolded(text.substr(0, 2), "xm") ? text.substr(2) : text;
}

} // namespace

extern "C" void _XmCvtStringToIconPlacement(XrmValue *, Cardinal *, XrmValue *from, XrmValue *to) {
    static int value;
    const char *text = from->addr ? from->addr : "";
    const std::string_view name = WithoutPrefix(text);
    const auto *found = std::find_if(std::begin(placement_names), std::end(placement_names),
                                     [&](auto &one) { return EqualFolded(name, one.name); });
    if (found == std::end(placement_names)) {
        to->size = 0;
        to->addr = nullptr;
        XtStringConversionWarning(text, XmRIconPlacement);
        return;
    }
    value = found->value;
    to->size = sizeof value;
    to->addr = reinterpret_cast<XPointer>(&value);
}
