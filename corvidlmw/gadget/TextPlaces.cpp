// Where the text and its lines stand.

#include <corvidlmw/gadget/IconGI.h>

#include <Xm/RowColumn.h>

#include <algorithm>

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

// From `y`, where the text begins. The array has one entry at least: whoever asks may read the first
// without counting.
bool FindBaselines(Widget w, int y, Dimension **baselines, int *line_count) {
    const auto &icon = IconOf(w);
    const int count = XmStringLineCount(icon.label_string);
    const auto room = static_cast<Cardinal>(std::max(count, 1));
    OwnedXtBlock<Dimension> found(reinterpret_cast<Dimension *>(XtCalloc(room, sizeof(Dimension))));
    Cardinal index = 0;
    const auto note = [&](XmString line) {
        if (index < room) {
            found.get()[index++] = CutToDimension(y + XmStringBaseline(icon.font_list, line));
            y += XmStringHeight(icon.font_list, line);
        }
    };
    if (!ForEachLine(icon.label_string, note)) {
        return false;
    }
    *baselines = found.release();
    *line_count = count;
    return true;
}

} // namespace

namespace corvidlmw::icon_gadget {

// A row column counts from the entry's own corner. From the parent's, it would take the entry's place for
// a part of its height, and give its neighbours more margin with each layout.
Boolean BaselinesForParent(Widget w, Dimension **baselines, int *line_count) {
    if (!XmIsRowColumn(XtParent(w))) {
        return XmvIconGadgetGetBaselines(w, baselines, line_count);
    }
    return FindBaselines(w, IconOf(w).text_y, baselines, line_count);
}

Boolean DisplayRectForParent(Widget w, XRectangle *rect) {
    if (!XmvIconGadgetGetDisplayRect(w, rect)) {
        return False;
    }
    if (XmIsRowColumn(XtParent(w))) {
        rect->x = IconOf(w).text_x;
        rect->y = IconOf(w).text_y;
    }
    return True;
}

} // namespace corvidlmw::icon_gadget

extern "C" {

Boolean XmvIconGadgetGetBaselines(Widget w, Dimension **baselines, int *line_count) {
    return IsIconGadget(w) && baselines && line_count &&
           FindBaselines(w, w->core.y + IconOf(w).text_y, baselines, line_count);
}

Boolean XmvIconGadgetGetDisplayRect(Widget w, XRectangle *rect) {
    if (!IsIconGadget(w) || !rect) {
        return False;
    }
    const auto &icon = IconOf(w);
    *rect = {CutToPosition(w->core.x + icon.text_x), CutToPosition(w->core.y + icon.text_y),
             icon.text_width, icon.text_height};
    return True;
}

} // extern "C"
