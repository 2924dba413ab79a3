// Typing the first character of a row moves the location cursor there.

#include <corvidlmw/list/LmListI.h>

#include <Xm/XmIm.h>

#include <cwchar>
#include <cwctype>

namespace corvidlmw::list {

namespace {

// The first character of a text in the locale's encoding, in lower case; 0 if it has none.
wchar_t FirstOf(const char *text, std::size_t size) {
    std::mbstate_t state{};
    wchar_t first = 0;
    const std::size_t used = std::mbrtowc(&first, text, size, &state);
    const bool valid = used != 0 && used <= size;
    return valid ? static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(first))) : 0;
}

wchar_t TypedIn(Widget w, XEvent *event) {
    char text[32];
    KeySym keysym;
    int status;
    const int size = XmImMbLookupString(w, &event->xkey, text, sizeof text, &keysym, &status);
    const wchar_t typed = size > 0 && size <= static_cast<int>(sizeof text)
                              ? FirstOf(text, static_cast<std::size_t>(size))
                              : 0;
    return std::iswprint(static_cast<std::wint_t>(typed)) ? typed : 0;
}

bool BeginsWith(XmString item, wchar_t first) {
    const OwnedXtBlock<char> text(static_cast<char *>(XmStringUnparse(
        item, nullptr, XmCHARSET_TEXT, XmMULTIBYTE_TEXT, nullptr, 0, XmOUTPUT_ALL)));
    return text && FirstOf(text.get(), std::char_traits<char>::length(text.get())) == first;
}

// From the row behind the cursor on and around, to the cursor's own; -1 if there is none.
int RowThatBeginsWith(const LmListPart &list, wchar_t first) {
    const int count = list.element_count;
    const int start = IsRow(list, list.current_keyboard_item) ? list.current_keyboard_item : -1;
    for (int i = 1; i <= count; i++) {
        const int row = (start + i) % count;
        if (BeginsWith(list.items[row], first)) {
            return row;
        }
    }
    return -1;
}

} // namespace

void ListQuickNavigate(Widget w, XEvent *event, String *, Cardinal *) {
    const auto &list = ListOf(w);
    if (!list.traversing || !event || event->type != KeyPress) {
        return;
    }
    const wchar_t first = TypedIn(w, event);
    const int row = first ? RowThatBeginsWith(list, first) : -1;
    if (row >= 0) {
        StepPlainly(w, row - list.current_keyboard_item);
    }
}

} // namespace corvidlmw::list
