#include <corvidlmw/list/TextWidths.h>

#include <corvidlmw/toolkit/Toolkit.h>

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

// Of a string of these components, as a stream of bytes: each has its type and its length before it, and
// the whole has a mark and its length. A length of 128 and more takes two bytes more.
class StreamLength {
public:
    void AddComponent(unsigned length) {
        body_ += 2 + More(length) + length;
        // What the toolkit makes of a length that two bytes cannot hold is its own.
        fits_ = fits_ && length <= longest && body_ <= longest;
    }
    int Of(XmString string) const {
        return fits_ ? static_cast<int>(mark + 1 + More(body_) + body_) : XmStringLength(string);
    }

private:
    static constexpr unsigned mark = 3;
    static constexpr unsigned longest = 32767;

    static unsigned More(unsigned length) { return length < 128 ? 0 : 2; }

    unsigned body_ = 0;
    bool fits_ = true;
};

// No sum of widths overflows.
constexpr unsigned longest_text = 1U << 20;

bool IsText(XmStringComponentType type) {
    return type == XmSTRING_COMPONENT_TEXT || type == XmSTRING_COMPONENT_LOCALE_TEXT;
}

} // namespace

// ---- Widths ---------------------------------------------------------------------------------------

// What is used must agree with the toolkit about a string with every character, and about a longer one.
void TextWidths::Take(XmFontList fonts) {
    constexpr unsigned char first = ' ';
    constexpr unsigned char last = '~';
    usable_ = false;
    XFontStruct *font = OnlyFont(fonts);
    if (!font) {
        return;
    }
    widths_.fill(not_plain);
    Text probe;
    for (char character = first; character <= last; character++) {
        widths_[static_cast<unsigned char>(character)] =
            CutToPosition(XTextWidth(font, &character, 1));
        probe += character;
    }
    height_ = CutToDimension(font->ascent + font->descent);
    usable_ = true;
    usable_ = AgreesWithToolkit(fonts, probe) && AgreesWithToolkit(fonts, probe + probe);
}

bool TextWidths::AgreesWithToolkit(XmFontList fonts, const Text &text) {
    Text writable = text;
    const OwnedXmString string(XmStringCreateLocalized(writable.data()));
    Dimension width = 0;
    Dimension height = 0;
    _XmStringExtent(fonts, string.get(), &width, &height);
    const auto measured = Measure(string.get());
    return measured && measured->width == width && measured->height == height &&
           measured->length == XmStringLength(string.get());
}

TextWidths::Width TextWidths::WidthOf(const char *text, unsigned length) const {
    Width width = 0;
    for (unsigned i = 0; i < length; i++) {
        width += widths_[static_cast<unsigned char>(text[i])];
    }
    return width;
}

// ---- Strings --------------------------------------------------------------------------------------

// A new context costs as much as a walk.
bool TextWidths::BeginWalk(XmString string) {
    if (context_) {
        _XmStringContextReInit(context_, string);
        return true;
    }
    return XmStringInitContext(&context_, string) != False;
}

void TextWidths::DropContext() {
    if (context_) {
        XmStringFreeContext(context_);
        context_ = nullptr;
    }
}

std::optional<LineMeasures> TextWidths::Measure(XmString string) {
    if (!usable_ || !string || !BeginWalk(string)) {
        return {};
    }
    StreamLength stream;
    Width width = 0;
    int texts = 0;
    bool plain = true;
    while (plain) {
        unsigned length = 0;
        XtPointer value = nullptr;
        const XmStringComponentType type =
            XmeStringGetComponent(context_, True, False, &length, &value);
        if (type == XmSTRING_COMPONENT_END) {
            break;
        }
        const bool is_only_text = IsText(type) && texts == 0 && length <= longest_text;
        plain = is_only_text || type == XmSTRING_COMPONENT_TAG;
        if (is_only_text) {
            // An empty text has no height.
            width += length > 0 ? WidthOf(static_cast<const char *>(value), length) : not_plain;
            texts++;
        }
        stream.AddComponent(length);
    }
    if (!plain || texts != 1 || width >= not_plain) {
        DropContext();
        return {};
    }
    return LineMeasures{CutToDimension(static_cast<int>(width)), height_, stream.Of(string)};
}

} // namespace corvidlmw::list
