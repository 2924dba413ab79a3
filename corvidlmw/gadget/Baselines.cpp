// Where the lines of the text stand.

#include <corvidlmw/gadget/IconGI.h>

#include <algorithm>
#include <span>

using namespace corvidlmw;
using namespace corvidlmw::icon_gadget;

namespace {

// Walks through the parts of a string and tells of each of its lines.
template <class Visit>
bool ForEachLine(XmString string, Visit visit) {
    XmStringContext context = nullptr;
    if (!XmStringInitContext(&context, string)) {
        return false;
    }
    XmString line = nullptr;
    for (;;) {
        unsigned length = 0;
        XtPointer value = nullptr;
        const XmStringComponentType type = XmStringGetNextTriple(context, &length, &value);
        const OwnedXtBlock<void> owned(value);
        if (type == XmSTRING_COMPONENT_SEPARATOR || type == XmSTRING_COMPONENT_END) {
            visit(line);
            XmStringFree(line);
            line = nullptr;
        } else {
            line = XmStringConcatAndFree(line, XmStringComponentCreate(type, length, value));
        }
        if (type == XmSTRING_COMPONENT_END) {
            break;
        }
    }
    XmStringFreeContext(context);
    return true;
}

} // namespace

// The array has one entry at least: whoever asks may read the first without counting.
extern "C" Boolean XmvIconGadgetGetBaselines(Widget w, Dimension **baselines, int *line_count) {
    if (!IsIconGadget(w) || !baselines || !line_count) {
        return False;
    }
    const auto &icon = IconOf(w);
    const int count = XmStringLineCount(icon.label_string);
    const auto room = static_cast<Cardinal>(std::max(count, 1));
    OwnedXtBlock<Dimension> found(reinterpret_cast<Dimension *>(XtCalloc(room, sizeof(Dimension))));
    int y = w->core.y + icon.text_y;
    Cardinal index = 0;
    const auto note = [&](XmString line) {
        if (index < room) {
            found.get()[index++] = CutToDimension(y + XmStringBaseline(icon.font_list, line));
            y += XmStringHeight(icon.font_list, line);
        }
    };
    if (!ForEachLine(icon.label_string, note)) {
        return False;
    }
    *baselines = found.release();
    *line_count = count;
    return True;
}
