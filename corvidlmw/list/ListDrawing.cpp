// What reaches the window: the frame, all rows, a single row, the location cursor.
//
// A selected row is a raised bar around text in its usual colours. When all rows are drawn they are drawn
// unselected first, and selected ones once more as single rows. A row drawn alone is filled with its
// background first; a look of a row's own leaves its GC with the foreground it drew with, and that is what
// the row is drawn with from then on.

#include <corvidlmw/list/LmListI.h>
#include <corvidlmw/toolkit/TextClip.h>

#include <Xm/DrawP.h>

#include <algorithm>
#include <utility>

namespace corvidlmw::list {

namespace {

// ---- Primitives -----------------------------------------------------------------------------------

void ClearArea(Widget w, const Rectangle &area, Boolean exposures = False) {
    const Rectangle r = WithinShadow(FrameOf(w), area);
    // The server takes an extent of 0 for all that is left of the window.
    if (!IsEmpty(r)) {
        XClearArea(XtDisplay(w), XtWindow(w), r.x, r.y, static_cast<unsigned>(r.width),
                   static_cast<unsigned>(r.height), exposures);
    }
}

void ClearBorder(Widget w, const Rectangle &r, int thickness) {
    ClearArea(w, {r.x, r.y, r.width, thickness});
    ClearArea(w, {r.x, r.y + r.height - thickness, r.width, thickness});
    ClearArea(w, {r.x, r.y, thickness, r.height});
    ClearArea(w, {r.x + r.width - thickness, r.y, thickness, r.height});
}

void FillArea(Widget w, GC gc, const Rectangle &r) {
    if (!IsEmpty(r)) {
        XFillRectangle(XtDisplay(w), XtWindow(w), gc, r.x, r.y, static_cast<unsigned>(r.width),
                       static_cast<unsigned>(r.height));
    }
}

void DrawShadow(Widget w, GC top, GC bottom, const Rectangle &r) {
    if (!IsEmpty(r)) {
        XmeDrawShadows(XtDisplay(w), XtWindow(w), top, bottom, CutToPosition(r.x),
                       CutToPosition(r.y), CutToDimension(r.width), CutToDimension(r.height),
                       PrimitiveOf(w).shadow_thickness, XmSHADOW_OUT);
    }
}

// ---- Text -----------------------------------------------------------------------------------------

// Antialiased text is clipped apart from the GC, for as long as this lives.
class ClippedText {
public:
    ClippedText(Widget w, XmFontList fonts, const Rectangle &area)
        : region_(XCreateRegion()), clip_(XtDisplay(w), XtWindow(w), region_.get()) {
        XRectangle rectangle = {CutToPosition(area.x), CutToPosition(area.y),
                                CutToDimension(area.width), CutToDimension(area.height)};
        XUnionRectWithRegion(&rectangle, region_.get(), region_.get());
        clip_.Clip(fonts);
    }

private:
    OwnedRegion region_;
    TextClip clip_;
};

// A walk through the table is a fifth of what a row's text costs.
bool IsAntialiased(const LmListPart &list, XmFontList fonts) {
    if (fonts != list.font_list) {
        return HasAntialiasedFont(fonts);
    }
    auto &known = StateOf(list).antialiased;
    if (!known) {
        known = HasAntialiasedFont(fonts);
    }
    return *known;
}

class ClippedTextIfNeeded {
public:
    ClippedTextIfNeeded(Widget w, XmFontList fonts, const Rectangle &area) {
        if (IsAntialiased(ListOf(w), fonts)) {
            clip_.emplace(w, fonts, area);
        }
    }

private:
    std::optional<ClippedText> clip_;
};

Rectangle TextAreaOf(Widget w, bool own_look) {
    const Frame frame = FrameOf(w);
    return !own_look && StateOf(w).normal_clipped_to_bars ? BarArea(frame) : InnerArea(frame);
}

// What no row clears is cleared together with the next ones that are drawn.
void NoteReach(Widget w, const Layout &layout, const Row &row, const Rectangle &drawn) {
    auto &state = StateOf(w);
    state.rows_reach_out = state.rows_reach_out || ReachesOut(layout, row, drawn);
}

// A bar leaves its clip, in which text reaches into the margin.
void NoteText(Widget w, const Layout &layout, const Row &row, Point at) {
    if (StateOf(w).normal_clipped_to_bars) {
        NoteReach(w, layout, row, {at.x, at.y, row.width, layout.max_item_height});
    }
}

XmFontList FontsOf(const LmListPart &list, const LmListElement &element) {
    return element.gc && element.font_list ? element.font_list : list.font_list;
}

using DrawString = decltype(_XmStringDrawImage);

void DrawText(Widget w, DrawString *draw, const LmListElement &element, Point at, int width,
              const Rectangle &area) {
    auto &list = ListOf(w);
    const XmFontList fonts = FontsOf(list, element);
    const ClippedTextIfNeeded clipped(w, fonts, area);
    draw(XtDisplay(w), XtWindow(w), fonts, element.name, element.gc ? element.gc : list.normal_gc,
         CutToPosition(at.x), CutToPosition(at.y), CutToDimension(width), XmALIGNMENT_BEGINNING,
         XmSTRING_DIRECTION_L_TO_R, nullptr);
}

void DrawImage(Widget w, const LmListElement &element, Point at, int width) {
    DrawText(w, _XmStringDrawImage, element, at, width, TextAreaOf(w, element.gc != nullptr));
}

// ---- Icons ----------------------------------------------------------------------------------------

void DrawIcon(Widget w, const LmListElement &element, Point at) {
    if (ListOf(w).show_icons && HasIcon(element)) {
        XCopyArea(XtDisplay(w), element.icon, XtWindow(w), ListOf(w).icon_gc, 0, 0,
                  CutToDimension(element.icon_width), CutToDimension(element.icon_height), at.x,
                  at.y);
    }
}

// ---- Bars -----------------------------------------------------------------------------------------

// The text stands there already, but for its indent: antialiased text drawn over itself would get
// bolder outside of the cell.
void DrawCellText(Widget w, const LmListElement &element, const Layout &layout, const Row &row,
                  const Rectangle &cell) {
    const int row_width = RowWidthOfOne(layout);
    const Point at{TextX(layout, row, row_width), TextOrigin(layout, row, row_width).y};
    DrawText(w, _XmStringDraw, element, at, row_width,
             row.indent == 0 ? cell : TextAreaOf(w, element.gc != nullptr));
}

void DrawCell(Widget w, const LmListElement &element, const Layout &layout, const Row &row) {
    auto &list = ListOf(w);
    const auto fields = FieldsOf(list);
    if (list.current_field < 0 || static_cast<std::size_t>(list.current_field) >= fields.size()) {
        return;
    }
    const Rectangle cell = Cell(layout, row, fields, list.current_field);
    const int shadow = layout.frame.shadow;
    NoteReach(w, layout, row, cell);
    FillArea(w, list.arm_gc, {cell.x, cell.y + shadow, cell.width, cell.height - 2 * shadow});
    DrawCellText(w, element, layout, row, cell);
    DrawShadow(w, PrimitiveOf(w).bottom_shadow_GC, PrimitiveOf(w).top_shadow_GC, cell);
}

void DrawBar(Widget w, const LmListElement &element, const Layout &layout, const Row &row) {
    const Rectangle bar = Bar(layout, row);
    NoteReach(w, layout, row, bar);
    DrawShadow(w, PrimitiveOf(w).top_shadow_GC, PrimitiveOf(w).bottom_shadow_GC, bar);
    DrawCell(w, element, layout, row);
}

// ---- A single row -----------------------------------------------------------------------------------

struct Colours {
    Pixel foreground = 0;
    Pixel background = 0;
};

// Xlib knows them: no round trip.
Colours ColoursOf(Widget w, GC gc) {
    XGCValues values{};
    XGetGCValues(XtDisplay(w), gc, GCForeground | GCBackground, &values);
    return {values.foreground, values.background};
}

void SetColours(Widget w, GC gc, Colours colours) {
    XSetForeground(XtDisplay(w), gc, colours.foreground);
    XSetBackground(XtDisplay(w), gc, colours.background);
}

void DrawTextOfOwnLook(Widget w, const LmListElement &element, const Rectangle &fill, Point at,
                       int width) {
    const Colours own = ColoursOf(w, element.gc);
    const Colours usual = ColoursOf(w, ListOf(w).normal_gc);
    SetColours(w, element.gc, {own.background, own.foreground});
    FillArea(w, element.gc, fill);
    SetColours(w, element.gc, {usual.foreground, own.background});
    DrawImage(w, element, at, width);
    if (element.selected) {
        XSetForeground(XtDisplay(w), element.gc, own.foreground);
    }
}

void DrawUsualText(Widget w, const LmListElement &element, const Rectangle &fill, Point at,
                   int width) {
    const GC gc = ListOf(w).normal_gc;
    const Colours usual = ColoursOf(w, gc);
    SetColours(w, gc, {usual.background, usual.foreground});
    FillArea(w, gc, fill);
    SetColours(w, gc, usual);
    DrawImage(w, element, at, width);
}

void DrawRowAlone(Widget w, int row_number, const Layout &layout, BarClip &bar_clip) {
    auto &list = ListOf(w);
    LmListElement &element = ElementOf(list, row_number);
    if (element.selected == element.drawn_selected) {
        return;
    }
    element.drawn_selected = element.selected;
    const Row row = RowOf(w, row_number);
    const int row_width = RowWidthOfOne(layout);
    ClearArea(w, StateOf(list).rows_reach_out ? Strip(layout, row) : ClearedOfOne(layout, row));
    DrawIcon(w, element, IconOrigin(layout, row));
    const Point at = TextOrigin(layout, row, row_width);
    NoteText(w, layout, row, at);
    auto *const draw_text = element.gc ? DrawTextOfOwnLook : DrawUsualText;
    draw_text(w, element, Fill(layout, row, element.gc != nullptr), at,
              std::max(row_width - layout.icon_column_width, 0));
    if (element.selected) {
        bar_clip.Clip();
        DrawBar(w, element, layout, row);
    }
}

// ---- All rows ---------------------------------------------------------------------------------------

// With two pixels between rows no clearing of a row reaches what is drawn of the one above, so one request
// clears all of them. Fonts of a row's own can be taller than rows.
bool AreClearedAtOnce(const LmListPart &list, RowRange rows) {
    constexpr int text_drop = 2;
    const auto visible = ElementsOf(list).subspan(static_cast<std::size_t>(rows.first),
                                                  static_cast<std::size_t>(rows.end - rows.first));
    return list.item_spacing >= text_drop &&
           (StateOf(list).looks == 0 ||
            std::none_of(visible.begin(), visible.end(),
                         [](const LmListElement *element) { return element->gc != nullptr; }));
}

void ClearAllAtOnce(Widget w, RowRange rows, const Layout &layout) {
    Rectangle area = ClearedOfAll(layout, RowOf(w, rows.first));
    const Rectangle last = ClearedOfAll(layout, RowOf(w, rows.end - 1));
    area.height = last.y + last.height - area.y;
    ClearArea(w, area);
}

void DrawRowUnselected(Widget w, int row_number, const Layout &layout) {
    LmListElement &element = ElementOf(ListOf(w), row_number);
    const Row row = RowOf(w, row_number);
    const int row_width = RowWidthOfAll(layout);
    element.drawn_selected = False;
    DrawIcon(w, element, IconOrigin(layout, row));
    if (!element.selected) {
        const Point at = TextOrigin(layout, row, row_width);
        NoteText(w, layout, row, at);
        DrawImage(w, element, at, row_width);
    }
}

void DrawRowsUnselected(Widget w, RowRange rows, const Layout &layout) {
    const bool at_once = AreClearedAtOnce(ListOf(w), rows);
    if (at_once && rows.first < rows.end) {
        ClearAllAtOnce(w, rows, layout);
    }
    for (int row = rows.first; row < rows.end; row++) {
        if (!at_once) {
            ClearArea(w, ClearedOfAll(layout, RowOf(w, row)));
        }
        DrawRowUnselected(w, row, layout);
    }
}

void DrawSelectedRows(Widget w, RowRange rows, const Layout &layout) {
    const RowSet &selected = StateOf(w).selected;
    BarClip bar_clip(w);
    for (int row = selected.Next(rows.first); rows.Contains(row); row = selected.Next(row + 1)) {
        DrawRowAlone(w, row, layout, bar_clip);
    }
}

} // namespace

// ---- Methods ----------------------------------------------------------------------------------------

// The frame looks sunken: its shadows are exchanged.
void Redisplay(Widget w, XEvent *, Region) {
    const auto &primitive = PrimitiveOf(w);
    if (!HasWindow(w)) {
        return;
    }
    XmeDrawShadows(XtDisplay(w), XtWindow(w), primitive.bottom_shadow_GC, primitive.top_shadow_GC,
                   0, 0, w->core.width, w->core.height, primitive.shadow_thickness, XmSHADOW_OUT);
    SetClipRect(w);
    DrawList(w);
}

void DrawList(Widget w) {
    auto &list = ListOf(w);
    if (!HasWindow(w) || !list.update || list.element_count == 0) {
        return;
    }
    PlaceBaseY(w);
    const Layout layout = LayoutOf(w);
    const RowRange rows = RowsInView(list);
    if (std::exchange(StateOf(list).rows_reach_out, false)) {
        ClearArea(w, BarArea(layout.frame));
    }
    DrawRowsUnselected(w, rows, layout);
    // This reaches into the last row's box: a bar there would lose its lower edge if it came first.
    const int last_y = rows.first < rows.end ? RowOf(w, rows.end - 1).y : 0;
    ClearArea(w, ClearedBelow(layout, last_y));
    DrawSelectedRows(w, rows, layout);
    if (list.traversing) {
        list.current_keyboard_item = std::min(list.current_keyboard_item, list.element_count - 1);
        ShowCursor(w);
    }
}

void DrawItem(Widget w, int row) {
    if (HasWindow(w) && RowsInView(ListOf(w)).Contains(row)) {
        BarClip bar_clip(w);
        DrawRowAlone(w, row, LayoutOf(w), bar_clip);
    }
}

void DrawHighlight(Widget w, int row, bool on) {
    auto &list = ListOf(w);
    if (!HasWindow(w) || !list.traversing || list.row_highlight < 1 ||
        !RowsInView(list).Contains(row)) {
        return;
    }
    const Rectangle cursor = Cursor(LayoutOf(w), RowOf(w, row));
    if (IsEmpty(cursor)) {
        return;
    }
    const Dimension thickness = PrimitiveOf(w).highlight_thickness;
    if (on) {
        _XmDrawHighlight(XtDisplay(w), XtWindow(w), list.highlight_gc, CutToPosition(cursor.x),
                         CutToPosition(cursor.y), CutToDimension(cursor.width),
                         CutToDimension(cursor.height), thickness,
                         list.add_mode ? LineOnOffDash : LineSolid);
    } else {
        ClearBorder(w, cursor, thickness);
    }
}

void ClearRows(Widget w, Boolean exposures) {
    if (HasWindow(w)) {
        StateOf(w).rows_reach_out = false;
        ClearArea(w, {0, 0, w->core.width, w->core.height}, exposures);
    }
}

} // namespace corvidlmw::list
