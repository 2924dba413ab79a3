#include <corvidlmw/list/TextWidths.h>

#include <corvidlmw/toolkit/Toolkit.h>

#include <string>

namespace corvidlmw::list {

namespace {

// The only font of a table, if that is a core font of single bytes.
XFontStruct *OnlyFont(XmFontList fonts) {
    XmFontContext context = nullptr;
    if (!XmFontListInitFontContext(&context, fonts)) {
        return nullptr;
    }
    XmFontListEntry entry = XmFontListNextEntry(context);
    const bool single = entry && !XmFontListNextEntry(context);
    XmFontType type = XmFONT_IS_XFT;
    XtPointer font = single ? XmFontListEntryGetFont(entry, &type) : nullptr;
    XmFontListFreeFontContext(context);
    auto *core_font = type == XmFONT_IS_FONT ? static_cast<XFontStruct *>(font) : nullptr;
    return core_font && core_font->max_byte1 == 0 ? core_font : nullptr;
}

short WidthOf(XFontStruct *font, char character) {
    return CutToPosition(XTextWidth(font, &character, 1));
}

} // namespace

// What is used must agree with the toolkit about a string with every character.
void TextWidths::Take(XmFontList fonts) {
    usable_ = false;
    XFontStruct *font = OnlyFont(fonts);
    if (!font) {
        return;
    }
    std::string probe;
    for (char character = first; character <= last; character++) {
        widths_[static_cast<std::size_t>(character - first)] = WidthOf(font, character);
        probe += character;
    }
    const OwnedXmString string(XmStringCreateLocalized(probe.data()));
    Dimension width = 0;
    _XmStringExtent(fonts, string.get(), &width, &height_);
    int sum = 0;
    usable_ = AddText(probe.data(), static_cast<unsigned>(probe.size()), &sum) && sum == width;
}

bool TextWidths::AddText(const char *text, unsigned length, int *width) const {
    for (unsigned i = 0; i < length; i++) {
        const auto character = static_cast<unsigned char>(text[i]);
        if (character < first || character > last) {
            return false;
        }
        *width += widths_[static_cast<std::size_t>(character - first)];
    }
    return length > 0; // an empty text has no height
}

bool TextWidths::Measure(XmString string, Dimension *width, Dimension *height) const {
    XmStringContext context = nullptr;
    if (!usable_ || !string || !XmStringInitContext(&context, string)) {
        return false;
    }
    int sum = 0;
    int texts = 0;
    bool plain = true;
    while (plain) {
        unsigned length = 0;
        XtPointer value = nullptr;
        const XmStringComponentType type =
            XmeStringGetComponent(context, True, False, &length, &value);
        if (type == XmSTRING_COMPONENT_END) {
            break;
        }
        const bool is_text =
            type == XmSTRING_COMPONENT_TEXT || type == XmSTRING_COMPONENT_LOCALE_TEXT;
        texts += is_text ? 1 : 0;
        plain = is_text ? AddText(static_cast<const char *>(value), length, &sum)
                        : type == XmSTRING_COMPONENT_TAG;
    }
    XmStringFreeContext(context);
    if (!plain || texts != 1) {
        return false;
    }
    *width = CutToDimension(sum);
    *height = height_;
    return true;
}

} // namespace corvidlmw::list
