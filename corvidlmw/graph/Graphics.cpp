// The graph's cursors and GCs: built at creation, given back at its end.

#include <corvidlmw/graph/GraphI.h>
#include <corvidlmw/toolkit/BlackAndWhite.h>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

struct CursorBits {
    const char *image;
    const char *mask;
};

constexpr int cursor_size = 16;

// A letter in a ring with a tail to the lower left: C for a child, P for a parent. 16 rows of 2
// bytes, the least significant bit leftmost.
constexpr char c_bits[] = "\x00\x00\xc0\x07\x30\x18\x08\x20\x88\x23\xc4\x44\xc4\x40\xc4\x40"
                          "\xc4\x40\xc4\x44\x88\x23\x08\x20\x3a\x18\xc6\x07\x0e\x00\x00\x00";
constexpr char p_bits[] = "\x00\x00\xc0\x07\x30\x18\x08\x20\xc8\x27\xc4\x4c\xc4\x4c\xc4\x4c"
                          "\xc4\x47\xc4\x40\xc8\x20\x08\x20\x3a\x18\xc6\x07\x0e\x00\x00\x00";
constexpr char c_mask_bits[] = "\xe0\x0f\xf8\x3f\xfc\x7f\xfc\x7f\xfe\xff\xfe\xff\xfe\xff\xfe\xff"
                               "\xfe\xff\xfe\xff\xfe\xff\xff\x7f\xff\x7f\xff\x3f\xff\x0f\x1f\x00";
constexpr const char *p_mask_bits = c_mask_bits;
static_assert(sizeof c_bits == 33 && sizeof p_bits == 33 && sizeof c_mask_bits == 33);

Cursor BuildCursor(Widget w, const CursorBits &bits) {
    Display *display = XtDisplay(w);
    Screen *screen = XtScreen(w);
    Window root = RootWindowOfScreen(screen);
    BlackAndWhite colors = BlackAndWhite::Of(screen);
    Pixmap image = XCreateBitmapFromData(display, root, bits.image, cursor_size, cursor_size);
    Pixmap mask = XCreateBitmapFromData(display, root, bits.mask, cursor_size, cursor_size);
    Cursor cursor = XCreatePixmapCursor(display, image, mask, &colors.black, &colors.white, 1, 14);
    XFreePixmap(display, image);
    XFreePixmap(display, mask);
    return cursor;
}

// A GC for windows of the graph's depth, which need not be that of the root window.
GC CreateGC(Widget w, unsigned long mask, XGCValues &values) {
    Display *display = XtDisplay(w);
    Window root = RootWindowOfScreen(XtScreen(w));
    if (w->core.depth == static_cast<Cardinal>(DefaultDepthOfScreen(XtScreen(w)))) {
        return XCreateGC(display, root, mask, &values);
    }
    Pixmap model = XCreatePixmap(display, root, 1, 1, w->core.depth);
    GC gc = XCreateGC(display, model, mask, &values);
    XFreePixmap(display, model);
    return gc;
}

GC BuildPrivateXorGC(Widget w, Pixel color) {
    XGCValues values{};
    values.function = GXxor;
    values.foreground = color ^ w->core.background_pixel;
    values.background = values.foreground;
    values.line_style = LineSolid;
    values.subwindow_mode = IncludeInferiors;
    return CreateGC(w, GCFunction | GCForeground | GCBackground | GCLineStyle | GCSubwindowMode,
                    values);
}

} // namespace

namespace corvidlmw::graph {

// ---- Cursors ------------------------------------------------------------------------------------

// Shapes of the cursor font, by their numbers in <X11/cursorfont.h>.
void CreateSweepCursors(Widget w) {
    auto &graph = GraphOf(w);
    Display *display = XtDisplay(w);
    graph.top_right_cursor = XCreateFontCursor(display, 136);
    graph.top_left_cursor = XCreateFontCursor(display, 134);
    graph.bottom_right_cursor = XCreateFontCursor(display, 14);
    graph.bottom_left_cursor = XCreateFontCursor(display, 12);
}

void CreateIndicateCursors(Widget w) {
    auto &graph = GraphOf(w);
    GraphState &state = StateOf(w);
    if (graph.indicate_child_cursor == None) {
        graph.indicate_child_cursor = BuildCursor(w, {c_bits, c_mask_bits});
        state.built_cursors[0] = graph.indicate_child_cursor;
    }
    if (graph.indicate_parent_cursor == None) {
        graph.indicate_parent_cursor = BuildCursor(w, {p_bits, p_mask_bits});
        state.built_cursors[1] = graph.indicate_parent_cursor;
    }
}

void FreeCursors(Widget w) {
    auto &graph = GraphOf(w);
    const GraphState &state = StateOf(w);
    Display *display = XtDisplay(w);
    for (Cursor cursor : {graph.top_right_cursor, graph.top_left_cursor, graph.bottom_right_cursor,
                          graph.bottom_left_cursor}) {
        XFreeCursor(display, cursor);
    }
    for (Cursor cursor : state.built_cursors) {
        if (cursor != None) {
            XFreeCursor(display, cursor);
        }
    }
}

// ---- GCs ------------------------------------------------------------------------------------------

GC BuildPlainGC(Widget w, Pixel foreground) {
    XGCValues values{};
    values.foreground = foreground;
    values.background = w->core.background_pixel;
    return XtGetGC(w, GCForeground | GCBackground, &values);
}

// A server may draw the corners of rectangles of width 0 differently where the window is partly covered;
// of width 1 each pixel is drawn once.
GC BuildXorGC(Widget w) {
    XGCValues values{};
    values.line_width = 1;
    values.function = GXxor;
    values.foreground = ManagerOf(w).foreground ^ w->core.background_pixel;
    values.background = w->core.background_pixel;
    values.line_style = LineSolid;
    values.subwindow_mode = IncludeInferiors;
    return XtGetGC(
        w, GCFunction | GCForeground | GCBackground | GCLineWidth | GCLineStyle | GCSubwindowMode,
        &values);
}

GC BuildOverviewGC(Widget w, Pixel color) {
    XGCValues values{};
    values.function = GXcopy;
    values.foreground = color;
    values.background = color;
    values.line_style = LineSolid;
    values.fill_style = FillSolid;
    return XtGetGC(w, GCFunction | GCForeground | GCBackground | GCLineStyle | GCFillStyle,
                   &values);
}

void BuildGraphGCs(Widget w) {
    auto &graph = GraphOf(w);
    auto &manager = ManagerOf(w);
    graph.gc = BuildPlainGC(w, manager.foreground);

    XGCValues values{};
    values.function = GXcopy;
    values.foreground = manager.foreground;
    values.background = w->core.background_pixel;
    graph.overview_mark_gc = CreateGC(w, GCFunction | GCForeground | GCBackground, values);
    graph.xor_gc = BuildXorGC(w);
    graph.overview_viewport_bottom_gc = BuildPrivateXorGC(w, manager.bottom_shadow_color);
    graph.overview_viewport_top_gc = BuildPrivateXorGC(w, manager.top_shadow_color);
    graph.overview_node_gc = BuildOverviewGC(w, graph.overview_node_color);
    graph.overview_line_gc = BuildOverviewGC(w, graph.overview_line_color);
    graph.highlight_gc = BuildPlainGC(w, graph.highlight_color);
}

void FreeGraphGCs(Widget w) {
    auto &graph = GraphOf(w);
    for (GC gc : {graph.gc, graph.xor_gc, graph.highlight_gc, graph.overview_node_gc,
                  graph.overview_line_gc}) {
        XtReleaseGC(w, gc);
    }
    for (GC gc : {graph.overview_viewport_bottom_gc, graph.overview_viewport_top_gc,
                  graph.overview_mark_gc}) {
        XFreeGC(XtDisplay(w), gc);
    }
}

} // namespace corvidlmw::graph
