// Sashes dragged by the pointer, with lines that show where the panes would come to stand, and moved by
// keys, which are gathered for the length of a double click and then applied at once.
//
// The lines are drawn by inversion over everything, so they must be taken away by the same strokes: before
// any layout that is not the drag's own, and with the clip that they were drawn with.

#include <corvidlmw/managers/HPanedWI.h>

#include <Xm/SashP.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <limits>
#include <utility>

namespace corvidlmw::managers {

// ---- Graphics ---------------------------------------------------------------------------------------

void FreeFlipGC(Widget w) {
    if (PanedOf(w).flipgc) {
        XFreeGC(XtDisplay(w), PanedOf(w).flipgc);
        PanedOf(w).flipgc = nullptr;
    }
}

// A window that was unrealised still has one.
void MakeFlipGC(Widget w) {
    FreeFlipGC(w);
    Display *display = XtDisplay(w);
    Screen *screen = XtScreen(w);
    const unsigned depth = w->core.depth;
    const bool needs_pixmap = depth != static_cast<unsigned>(DefaultDepthOfScreen(screen));
    const Drawable drawable = needs_pixmap
                                  ? XCreatePixmap(display, RootWindowOfScreen(screen), 1, 1, depth)
                                  : RootWindowOfScreen(screen);
    XGCValues values{};
    values.function = GXinvert;
    values.subwindow_mode = IncludeInferiors;
    values.foreground = w->core.background_pixel;
    PanedOf(w).flipgc =
        XCreateGC(display, drawable, GCFunction | GCSubwindowMode | GCForeground, &values);
    if (needs_pixmap) {
        XFreePixmap(display, drawable);
    }
    StateOf(w).clip_is_stale = true;
}

namespace {

// A region holds the far ends of its rectangles in 16 bits as well.
XRectangle RegionRectangle(Position x, Position y, int width, int height) {
    constexpr int farthest = std::numeric_limits<Position>::max();
    return {x, y, CutToDimension(std::min(width, farthest - x)),
            CutToDimension(std::min(height, farthest - y))};
}

XRectangle OutlineOf(Widget sash) {
    const auto &core = sash->core;
    return RegionRectangle(core.x, core.y, core.width + 2 * core.border_width,
                           core.height + 2 * core.border_width);
}

// The lines do not run over sashes.
void AdjustGC(Widget w) {
    const OwnedRegion window(XCreateRegion());
    const OwnedRegion sashes(XCreateRegion());
    XRectangle all = RegionRectangle(0, 0, w->core.width, w->core.height);
    XUnionRectWithRegion(&all, window.get(), window.get());
    for (Cardinal i = 0; i < NumChildrenOf(w); ++i) {
        Widget child = ChildrenOf(w)[i];
        if (XtIsManaged(child) && XmIsSash(child)) {
            XRectangle outline = OutlineOf(child);
            XUnionRectWithRegion(&outline, sashes.get(), sashes.get());
        }
    }
    XSubtractRegion(window.get(), sashes.get(), window.get());
    XSetRegion(XtDisplay(w), PanedOf(w).flipgc, window.get());
    StateOf(w).clip_is_stale = false;
}

XSegment LineAt(Widget w, Widget pane, Position x) {
    constexpr int without_separator = 2;
    Widget separator = ConstraintOf(pane).separator;
    const int width = separator ? separator->core.width : without_separator;
    const short at = CutToPosition(TrackPlace(x, width, PanedOf(w).spacing));
    return {at, 0, at, CutToPosition(StateOf(w).line_height)};
}

void Invert(Widget w, Vector<XSegment> &lines) {
    if (!lines.empty() && PanedOf(w).flipgc && HasWindow(w)) {
        XDrawSegments(XtDisplay(w), XtWindow(w), PanedOf(w).flipgc, lines.data(),
                      static_cast<int>(lines.size()));
    }
}

// Only lines that move are drawn.
void MoveTrack(Widget w) {
    auto &state = StateOf(w);
    if (!state.lines_shown) {
        state.line_height = w->core.height;
        if (state.clip_is_stale && PanedOf(w).flipgc) {
            AdjustGC(w);
        }
    }
    Vector<XSegment> lines;
    for (int i = 1; i < PanedOf(w).pane_count; ++i) {
        auto &constraint = ConstraintOf(PaneAt(w, i));
        if (constraint.dx == constraint.olddx) {
            continue;
        }
        if (constraint.olddx != no_line) {
            lines.push_back(LineAt(w, PaneAt(w, i), constraint.olddx));
        }
        lines.push_back(LineAt(w, PaneAt(w, i), constraint.dx));
        constraint.olddx = constraint.dx;
    }
    Invert(w, lines);
    state.lines_shown = true;
}

} // namespace

void EraseTrack(Widget w) {
    if (!StateOf(w).lines_shown) {
        return;
    }
    Vector<XSegment> lines;
    ForEachRectangle(w, [&](Widget child) {
        auto &constraint = ConstraintOf(child);
        if (constraint.is_pane && constraint.olddx != no_line) {
            lines.push_back(LineAt(w, child, constraint.olddx));
            constraint.olddx = no_line;
        }
    });
    Invert(w, lines);
    StateOf(w).lines_shown = false;
}

// ---- Choosing panes -----------------------------------------------------------------------------------

namespace {

// The first pane from `position` on that can change its width.
int FlexiblePane(Widget w, int position, Direction direction, int preset) {
    const int step = static_cast<int>(direction);
    for (int i = position; i >= 0 && i < PanedOf(w).pane_count; i += step) {
        if (!HasFixedWidth(PaneAt(w, i))) {
            return i;
        }
    }
    return preset;
}

int LeftPane(Widget w, int position) {
    return FlexiblePane(w, position, Direction::Left, 0);
}

int RightPane(Widget w, int position) {
    return FlexiblePane(w, position + 1, Direction::Right, PanedOf(w).pane_count - 1);
}

// ---- Drag ---------------------------------------------------------------------------------------------

void StartDrag(Widget w, int position, int x) {
    auto &paned = PanedOf(w);
    EraseTrack(w);
    paned.left_pane = RecordOf(PaneAt(w, LeftPane(w, position)));
    paned.right_pane = RecordOf(PaneAt(w, RightPane(w, position)));
    paned.startx = x;
    ForEachPane(w, [](Widget pane) { ConstraintOf(pane).olddx = no_line; });
}

void MoveDrag(Widget w, int position, int x) {
    auto &paned = PanedOf(w);
    const int difference = x - paned.startx;
    DesirePresentWidths(w);
    if (difference > 0 && paned.left_pane) {
        paned.left_pane->horz_paned_window.dwidth += difference;
        RefigureLocations(w, position, Direction::Right, {.adjust_all = true});
    } else if (paned.right_pane) {
        int &width = paned.right_pane->horz_paned_window.dwidth;
        width = std::max(width - difference, 1);
        RefigureLocations(w, position, Direction::Left, {.adjust_all = true});
    }
    MoveTrack(w);
}

// Where the window must not be laid out nothing moves, also not by the next layout.
void CommitDrag(Widget w) {
    EraseTrack(w);
    if (PanedOf(w).refiguremode) {
        CommitNewLocations(w, nullptr);
    } else {
        DesirePresentWidths(w);
    }
}

int RootXOf(const XEvent &event, int preset) {
    switch (event.type) {
    case ButtonPress:
    case ButtonRelease: return event.xbutton.x_root;
    case MotionNotify: return event.xmotion.x_root;
    default: return preset;
    }
}

char FirstLetter(const char *word) {
    return static_cast<char>(std::toupper(static_cast<unsigned char>(word ? *word : '\0')));
}

void HandleDrag(Widget w, Widget pane, const SashCallDataRec &call) {
    const int position = PositionOf(w, pane);
    if (position < 0) {
        return;
    }
    const int x = call.event ? RootXOf(*call.event, PanedOf(w).startx) : PanedOf(w).startx;
    switch (FirstLetter(call.params[0])) {
    case 'S': StartDrag(w, position, x); break;
    case 'M': MoveDrag(w, position, x); break;
    case 'C': CommitDrag(w); break;
    default: XmeWarning(w, Name(_XmMsgPanedW_0005));
    }
}

// ---- Keys ---------------------------------------------------------------------------------------------

void ApplyKeys(Widget w, int position, int pixels) {
    PanedOf(w).left_pane = PanedOf(w).right_pane = nullptr;
    EraseTrack(w);
    if (position < 0 || !PanedOf(w).refiguremode) {
        return;
    }
    DesirePresentWidths(w);
    const bool leftward = pixels < 0;
    const int chosen = leftward ? RightPane(w, position) : LeftPane(w, position);
    ConstraintOf(PaneAt(w, chosen)).dwidth += std::abs(pixels);
    RefigureLocations(w, position, leftward ? Direction::Left : Direction::Right, {});
    CommitNewLocations(w, nullptr);
}

void ProcessKeyEvent(XtPointer closure, XtIntervalId *) {
    auto sash = static_cast<Widget>(closure);
    Widget w = XtParent(sash);
    Widget pane = ConstraintOf(sash).sash;
    StateOf(w).key_timer = 0;
    const int pixels = std::exchange(PanedOf(w).increment_count, short{0});
    ApplyKeys(w, pane ? PositionOf(w, pane) : -1, pixels);
}

// Up and Down are like Right, by one pixel.
int StepOf(const SashCallDataRec &call) {
    constexpr int large_step = 10;
    const char *direction = call.params[2];
    const char *size = call.params[1];
    const char letter = direction ? *direction : '\0';
    const int pixels = size && *size == 'L' ? large_step : 1;
    switch (letter) {
    case 'L': return -pixels;
    case 'R': return pixels;
    default: return 1;
    }
}

// Keys on another sash meanwhile count for the first one.
void HandleKey(Widget w, Widget sash, const SashCallDataRec &call) {
    constexpr int most = std::numeric_limits<short>::max();
    auto &state = StateOf(w);
    auto &pixels = PanedOf(w).increment_count;
    pixels = static_cast<short>(std::clamp(pixels + StepOf(call), -most, most));
    if (!state.key_timer) {
        const auto interval = static_cast<unsigned long>(XtGetMultiClickTime(XtDisplay(w)));
        state.key_sash = sash;
        state.key_timer =
            XtAppAddTimeOut(XtWidgetToApplicationContext(w), interval, ProcessKeyEvent, sash);
    }
}

} // namespace

void CancelKeys(Widget w, Widget sash) {
    auto &state = StateOf(w);
    if (state.key_timer && (!sash || sash == state.key_sash)) {
        XtRemoveTimeOut(state.key_timer);
        state.key_timer = 0;
        PanedOf(w).increment_count = 0;
    }
}

void HandleSash(Widget sash, XtPointer closure, XtPointer call_data) {
    constexpr Cardinal key_params = 3;
    Widget w = XtParent(sash);
    auto pane = static_cast<Widget>(closure);
    const auto &call = *static_cast<SashCallData>(call_data);
    if (ConstraintOf(sash).sash != pane) {
        return;
    }
    const int type = call.event ? call.event->type : 0;
    if (call.num_params == 0 || (type == KeyPress && call.num_params < key_params)) {
        XmeWarning(w, Name(_XmMsgPanedW_0004));
    } else if (type == KeyPress) {
        HandleKey(w, sash, call);
    } else if (type != KeyRelease) {
        HandleDrag(w, pane, call);
    }
}

} // namespace corvidlmw::managers
