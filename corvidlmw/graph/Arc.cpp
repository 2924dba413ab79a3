// XmArc: class record, resources and life. How it is attached to nodes stands in ArcLinks.cpp.
//
// An arc has no window. Realising one would still enter it in the toolkit's table of windows, under
// None, where it is never found and never taken out. Two things keep that harmless. VeilArcs keeps
// the toolkit from realising arcs that are managed in a realised graph, so that the table does not
// grow with every arc that ever was. And should a client realise one by itself, the memory of an arc
// never becomes anything else: freed records are kept, zeroed, for new arcs only.

#include <corvidlmw/graph/GraphI.h>
#include <corvidlmw/toolkit/BlackAndWhite.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

void ClassPartInitialize(WidgetClass widget_class);
void AllocateArc(WidgetClass widget_class, Cardinal *constraint_size, Cardinal *more_bytes,
                 ArgList args, Cardinal *num_args, XtTypedArgList typed_args,
                 Cardinal *num_typed_args, Widget *new_w, XtPointer *more_bytes_return);
void DeallocateArc(Widget w, XtPointer more_bytes);
void Initialize(Widget request, Widget new_w, ArgList args, Cardinal *num_args);
void RealizeStub(Widget w, XtValueMask *mask, XSetWindowAttributes *attributes);
void Destroy(Widget w);
Boolean SetValues(Widget current, Widget request, Widget new_w, ArgList args, Cardinal *num_args);
void GetValuesHook(Widget w, ArgList args, Cardinal *num_args);

// ---- Resources ----------------------------------------------------------------------------------

// clang-format off
#define TEXT(value) const_cast<char *>(XmRString), const_cast<char *>(value)
#define IMMEDIATE(value) const_cast<char *>(XmRImmediate), reinterpret_cast<XtPointer>(static_cast<XtArgVal>(value))
#define COMPUTED(value) const_cast<char *>(XmRCallProc), reinterpret_cast<XtPointer>(value)
#define ROW(name, class, type, ctype, field, ...) \
    {Name(name), Name(class), Name(type), sizeof(ctype), offsetof(XmArcRec, arc.field), __VA_ARGS__}
#define CALLBACK(name, field) \
    {Name(name), Name(XmCCallback), Name(XmRCallback), sizeof(XtCallbackList), offsetof(XmArcRec, arc.field), Name(XmRCallback), nullptr}

XtResource resources[] = {
    // Ends
    ROW(XmNto, XmCTo, XmRPointer, Widget, to, IMMEDIATE(0)),
    ROW(XmNfrom, XmCFrom, XmRPointer, Widget, from, IMMEDIATE(0)),
    ROW(XmNtoPosition, XmCPosition, XmRShort, short, to_position, IMMEDIATE(50)),
    ROW(XmNfromPosition, XmCPosition, XmRShort, short, from_position, IMMEDIATE(50)),
    ROW(XmNfromSide, XmCSide, XmRShort, short, from_side, IMMEDIATE(XmARC_RIGHT)),
    ROW(XmNtoSide, XmCSide, XmRShort, short, to_side, IMMEDIATE(XmARC_LEFT)),
    ROW(XmNarcDirection, XmCDirection, XmRArcDirection, unsigned char, arc_direction, TEXT("undirected")),

    // Look
    ROW(XmNforeground, XmCForeground, XmRPixel, Pixel, foreground, COMPUTED(BlackDefault)),
    ROW(XmNhighlight, XmCHighlight, XmRBoolean, Boolean, highlight, TEXT("False")),
    ROW(XmNfontList, XmCFontList, XmRFontList, XmFontList, font_list, IMMEDIATE(0)),
    ROW(XmNlabelString, XmCLabelString, XmRXmString, _XmString, label_string, IMMEDIATE(0)),
    ROW(XmNmapLabel, XmCMapLabel, XmRBoolean, Boolean, map_label, TEXT("False")),
    ROW(XmNarcWidth, XmCArcWidth, XmRInt, int, arc_width, TEXT("0")),
    ROW(XmNstyle, XmCStyle, XmRLineStyle, unsigned char, style, TEXT("LineSolid")),
    ROW(XmNcapStyle, XmCCapStyle, XmRCapStyle, unsigned char, cap_style, TEXT("CapNotLast")),
    ROW(XmNdashes, XmCDashes, XmRInt, int, dashes, TEXT("4")),
    ROW(XmNdashOffset, XmCDashOffset, XmRInt, int, dash_offset, TEXT("0")),

    // Callbacks, and what is kept for the application
    CALLBACK(XmNarmCallback, arm_callback),
    CALLBACK(XmNdisarmCallback, disarm_callback),
    CALLBACK(XmNactivateCallback, activate_callback),
    ROW(XmNuserData, XmCUserData, XmRPointer, XtPointer, user_data, IMMEDIATE(0)),
    ROW(XmNattribute, XmCAttribute, XmRAtom, Atom, attribute, IMMEDIATE(None)),
};
// clang-format on

static_assert(XtNumber(resources) == 22);

ObjectClassExtensionRec object_extension = {
    .next_extension = nullptr,
    .record_type = NULLQUARK,
    .version = XtObjectExtensionVersion,
    .record_size = sizeof(ObjectClassExtensionRec),
    .allocate = AllocateArc,
    .deallocate = DeallocateArc,
};

} // namespace

// ---- Class record --------------------------------------------------------------------------------

extern "C" {

XmArcClassRec xmArcClassRec = {
    .core_class =
        {
            .superclass = reinterpret_cast<WidgetClass>(&widgetClassRec),
            .class_name = Name("XmArc"),
            .widget_size = sizeof(XmArcRec),
            .class_initialize = nullptr,
            .class_part_initialize = ClassPartInitialize,
            .class_inited = False,
            .initialize = Initialize,
            .initialize_hook = nullptr,
            .realize = RealizeStub,
            .actions = nullptr,
            .num_actions = 0,
            .resources = resources,
            .num_resources = XtNumber(resources),
            .xrm_class = NULLQUARK,
            .compress_motion = True,
            .compress_exposure = XtExposeCompressSeries,
            .compress_enterleave = True,
            .visible_interest = False,
            .destroy = Destroy,
            .resize = nullptr,
            .expose = ArcRedisplay,
            .set_values = SetValues,
            .set_values_hook = nullptr,
            .set_values_almost = XtInheritSetValuesAlmost,
            .get_values_hook = GetValuesHook,
            .accept_focus = nullptr,
            .version = XtVersion,
            .callback_private = nullptr,
            .tm_table = nullptr,
            .query_geometry = nullptr,
            .display_accelerator = nullptr,
            .extension = &object_extension,
        },
    .arc_class = {.input_dispatch = ArcDispatchInput},
};

WidgetClass xmArcWidgetClass = reinterpret_cast<WidgetClass>(&xmArcClassRec);

} // extern "C"

namespace {

// ---- Memory -----------------------------------------------------------------------------------------

struct ArcBlock {
    XmArcRec record;
    XmGraphConstraintRec constraints;
};

// A free block is zero but for this link, which lies over a field that the toolkit's table of
// windows does not read.
struct FreeBlock {
    FreeBlock *next;
};

// The free blocks of one size: those of XmArc, and those of each size of a subclass's records.
struct Pool {
    std::size_t block_size;
    FreeBlock *free;
    Pool *next;
};
Pool arc_pool = {sizeof(ArcBlock), nullptr, nullptr};

Pool &PoolFor(std::size_t block_size) {
    Pool *pool = &arc_pool;
    while (pool->block_size != block_size) {
        if (!pool->next) {
            pool->next = New<Pool>(block_size, nullptr, nullptr);
        }
        pool = pool->next;
    }
    return *pool;
}

void *TakeBlock(Pool &pool) {
    if (!pool.free) {
        return XtCalloc(1, static_cast<Cardinal>(pool.block_size));
    }
    FreeBlock *block = pool.free;
    pool.free = block->next;
    block->next = nullptr;
    return block;
}

void GiveBack(Pool &pool, void *memory) {
    std::memset(memory, 0, pool.block_size);
    auto *block = static_cast<FreeBlock *>(memory);
    block->next = pool.free;
    pool.free = block;
}

Pool &PoolOf(WidgetClass widget_class) {
    return widget_class == xmArcWidgetClass ? arc_pool
                                            : PoolFor(widget_class->core_class.widget_size);
}

// Constraints larger than a graph's belong to a parent that is no graph, which creation refuses.
void AllocateArc(WidgetClass widget_class, Cardinal *constraint_size, Cardinal *more_bytes, ArgList,
                 Cardinal *, XtTypedArgList, Cardinal *, Widget *new_w,
                 XtPointer *more_bytes_return) {
    const bool plain = widget_class == xmArcWidgetClass;
    const bool fits = plain && *constraint_size <= sizeof(XmGraphConstraintRec);
    auto w = static_cast<Widget>(TakeBlock(PoolOf(widget_class)));
    if (*constraint_size == 0) {
        w->core.constraints = nullptr;
    } else if (fits) {
        w->core.constraints = &reinterpret_cast<ArcBlock *>(w)->constraints;
    } else {
        w->core.constraints = XtCalloc(1, *constraint_size);
    }
    if (more_bytes_return) {
        *more_bytes_return = *more_bytes ? XtCalloc(1, *more_bytes) : nullptr;
    }
    *new_w = w;
}

void DeallocateArc(Widget w, XtPointer more_bytes) {
    XtFree(static_cast<char *>(more_bytes));
    const bool plain = XtClass(w) == xmArcWidgetClass;
    auto *block = reinterpret_cast<ArcBlock *>(w);
    if (!plain || w->core.constraints != &block->constraints) {
        XtFree(static_cast<char *>(w->core.constraints));
    }
    GiveBack(PoolOf(XtClass(w)), w);
}

// A subclass that leaves the procedure out gets this class's.
void ClassPartInitialize(WidgetClass widget_class) {
    auto &arc_class = reinterpret_cast<XmArcClassRec *>(widget_class)->arc_class;
    if (!arc_class.input_dispatch) {
        arc_class.input_dispatch = ArcDispatchInput;
    }
}

// ---- GCs -------------------------------------------------------------------------------------------------

XGCValues ValuesFor(Widget arc) {
    const auto &part = ArcOf(arc);
    XGCValues values{};
    values.foreground = part.foreground;
    values.background = XtParent(arc)->core.background_pixel;
    // The server would answer a number out of range with an error.
    values.line_width = std::clamp(part.arc_width, 0, widest_arc);
    values.line_style = part.style <= LineDoubleDash ? part.style : LineSolid;
    values.dash_offset = std::clamp(part.dash_offset, 0, 32767);
    values.dashes = static_cast<char>(static_cast<unsigned char>(std::clamp(part.dashes, 1, 255)));
    return values;
}

int CapStyleOf(const XmArcPart &part) {
    return part.cap_style <= CapProjecting ? part.cap_style : CapButt;
}

// At creation, and then only, CapNotLast is taken as CapButt.
int CapStyleAtCreation(const XmArcPart &part) {
    return part.cap_style == CapNotLast ? CapButt : CapStyleOf(part);
}

void BuildGCs(Widget arc, int cap_style) {
    auto &part = ArcOf(arc);
    XtGCMask mask = GCForeground | GCBackground | GCLineWidth | GCLineStyle | GCCapStyle |
                    GCDashOffset | GCDashList;
    XGCValues values = ValuesFor(arc);
    values.cap_style = cap_style;
    short index = 0;
    XFontStruct *font = nullptr;
    if (_XmFontListSearch(part.font_list, Name(XmFONTLIST_DEFAULT_TAG), &index, &font) && font) {
        mask |= GCFont;
        values.font = font->fid;
    }
    part.gc = XtGetGC(XtParent(arc), mask, &values);
    std::swap(values.foreground, values.background);
    // A double-dashed line paints both: erased with the two exchanged, its odd dashes would stay.
    if (values.line_style == LineDoubleDash) {
        values.background = values.foreground;
    }
    part.clear_gc = XtGetGC(XtParent(arc), mask, &values);
}

void ReleaseGCs(Widget arc) {
    auto &part = ArcOf(arc);
    for (GC *gc : {&part.gc, &part.clear_gc}) {
        if (*gc) {
            XtReleaseGC(arc, *gc);
            *gc = nullptr;
        }
    }
}

// ---- Life ---------------------------------------------------------------------------------------------------

void ClearFields(Widget arc) {
    arc->core.x = arc->core.y = 0;
    arc->core.width = arc->core.height = 1;
    arc->core.border_width = 0;
    auto &part = ArcOf(arc);
    part.siblings = nullptr;
    part.drawn = False;
    part.armed = False;
    part.sibling_rank = 0;
    part.gc = part.clear_gc = nullptr;
    part.internal = nullptr;
}

void Initialize(Widget, Widget new_w, ArgList, Cardinal *) {
    ClearFields(new_w);
    auto &part = ArcOf(new_w);
    Widget parent = XtParent(new_w);
    if (XtClass(parent) != xmGraphWidgetClass) {
        XtAppError(XtWidgetToApplicationContext(new_w),
                   "Arc widget can only be managed by an XmGraph widget");
    }
    TakeFontList(new_w, part.font_list ? part.font_list
                                       : XmeGetDefaultRenderTable(new_w, XmLABEL_FONTLIST));
    TakeLabel(new_w);
    MeasureLabel(new_w);
    BuildGCs(new_w, CapStyleAtCreation(part));
    if (part.to && part.from) {
        _SetupArcInternal(parent, new_w);
        return;
    }
    if (part.to) {
        XtAppWarning(XtWidgetToApplicationContext(new_w),
                     "You must specify both a to and from widget when creating an XmArcWidget");
    }
    Detach(part);
}

// No window is ever made.
void RealizeStub(Widget, XtValueMask *, XSetWindowAttributes *) {}

void LeaveDoomed(Widget arc) {
    auto &doomed = StateOf(XtParent(arc)).doomed_arcs;
    if (!doomed.empty() && doomed.front().arc == arc) {
        StopWaiting(doomed.front());
        doomed.pop_front();
        return;
    }
    auto found = std::find_if(doomed.rbegin(), doomed.rend(),
                              [&](const DoomedArc &d) { return d.arc == arc; });
    if (found != doomed.rend()) {
        StopWaiting(*found);
        doomed.erase(std::next(found).base());
    }
}

void Destroy(Widget arc) {
    auto &part = ArcOf(arc);
    // An orphan has left its graph already.
    if (XtClass(XtParent(arc)) == xmGraphWidgetClass) {
        LeaveDoomed(arc);
        LeaveSiblings(XtParent(arc), arc, false);
        ReleaseFontList(XtParent(arc), part.font_list);
    }
    Detach(part);
    ReleaseGCs(arc);
    if (part.label_string) {
        _XmStringFree(part.label_string);
        part.label_string = nullptr;
    }
    for (const char *name : {XmNarmCallback, XmNactivateCallback, XmNdisarmCallback}) {
        XtRemoveAllCallbacks(arc, name);
    }
}

// ---- Resource changes ---------------------------------------------------------------------------------------

bool LookChanged(const XmArcPart &old, const XmArcPart &part) {
    const bool label_changed =
        old.font_list != part.font_list || old.label_string != part.label_string;
    return old.foreground != part.foreground || old.arc_width != part.arc_width ||
           old.style != part.style || old.cap_style != part.cap_style ||
           old.dash_offset != part.dash_offset || old.highlight != part.highlight ||
           old.map_label != part.map_label || old.to_side != part.to_side ||
           old.from_side != part.from_side || old.to_position != part.to_position ||
           old.from_position != part.from_position || old.arc_direction != part.arc_direction ||
           (old.dashes != part.dashes && old.style != LineSolid) ||
           (label_changed && old.map_label);
}

bool GCsChanged(const XmArcPart &old, const XmArcPart &part) {
    return old.foreground != part.foreground || old.font_list != part.font_list ||
           old.arc_width != part.arc_width || old.style != part.style ||
           old.cap_style != part.cap_style || old.dash_offset != part.dash_offset ||
           old.dashes != part.dashes;
}

void UpdateLabel(Widget current, Widget request, Widget new_w) {
    _XmString old = ArcOf(current).label_string;
    TakeLabel(new_w);
    _XmStringFree(old);
    ArcOf(current).label_string = nullptr;
    ArcOf(request).label_string = nullptr;
}

void UpdateFont(Widget current, Widget new_w) {
    auto &part = ArcOf(new_w);
    if (part.font_list) {
        TakeFontList(new_w, part.font_list);
    } else {
        TakeFixedFontList(new_w);
    }
    ReleaseFontList(XtParent(new_w), ArcOf(current).font_list);
    _XmStringUpdate(part.font_list, part.label_string);
}

// What the look needs anew: label, font, extent and GCs. True if the arc must be drawn.
bool UpdateLook(Widget current, Widget request, Widget new_w) {
    const auto &old = ArcOf(current);
    auto &part = ArcOf(new_w);
    const bool label_changed = old.label_string != part.label_string;
    const bool font_changed = old.font_list != part.font_list;
    const bool look_changed = LookChanged(old, part);
    const bool gcs_changed = GCsChanged(old, part);
    if (look_changed && HasWindow(XtParent(new_w)) && XtIsManaged(new_w)) {
        // `current` is a copy of the record, as it was drawn.
        _EraseArc(current);
        part.drawn = False;
    }
    if (label_changed) {
        UpdateLabel(current, request, new_w);
    }
    if (font_changed) {
        UpdateFont(current, new_w);
    }
    const bool measured = look_changed || label_changed || font_changed;
    if (measured) {
        MeasureLabel(new_w);
    }
    if (gcs_changed) {
        ReleaseGCs(new_w);
        BuildGCs(new_w, CapStyleOf(part));
    }
    return measured || gcs_changed;
}

// Both ends of a detached arc attach it; other ends move it.
void ChangeEnds(Widget new_w, Widget old_from, Widget old_to) {
    auto &part = ArcOf(new_w);
    Widget graph = XtParent(new_w);
    if (!old_from && !old_to) {
        _SetupArcInternal(graph, new_w);
        DrawArc(new_w);
        return;
    }
    Widget from = std::exchange(part.from, old_from);
    Widget to = std::exchange(part.to, old_to);
    // A change of the look has erased it, and a refused move does not draw it.
    if (!XmGraphMoveArc(graph, new_w, from, to) && !part.drawn) {
        DrawArc(new_w);
    }
}

// An application cannot place an arc: x, y, width and height follow from its ends. They are stored at
// the end in any case, so that an arc that is not drawn can still be picked.
Boolean SetValues(Widget current, Widget request, Widget new_w, ArgList, Cardinal *) {
    auto &part = ArcOf(new_w);
    const auto &old = ArcOf(current);
    if (XtClass(XtParent(new_w)) != xmGraphWidgetClass) {
        part = old; // an orphan, which has no graph to be drawn on
        return False;
    }
    ForgetArcIndex(XtParent(new_w));
    Widget old_from = old.from;
    Widget old_to = old.to;
    new_w->core.x = new_w->core.y = 0;
    new_w->core.width = new_w->core.height = 1;
    const bool draw = UpdateLook(current, request, new_w);
    if (!part.to || !part.from) {
        Warn(new_w, "Arc widget should have non-null to and from widgets");
        part.to = old_to;
        part.from = old_from;
    }
    if (part.to != old_to || part.from != old_from) {
        ChangeEnds(new_w, old_from, old_to);
    } else if (draw) {
        DrawArc(new_w);
    }
    if (HasBothEnds(new_w)) {
        StoreEnds(new_w, EndsOf(new_w));
    }
    return False;
}

// A client gets a copy of the label, as from the toolkit's own labels.
void GetValuesHook(Widget w, ArgList args, Cardinal *num_args) {
    for (const Arg &arg : Span(args, num_args)) {
        if (std::strcmp(arg.name, XmNlabelString) == 0 && arg.value) {
            *reinterpret_cast<XmString *>(arg.value) = XmStringCopy(ArcOf(w).label_string);
        }
    }
}

} // namespace

namespace corvidlmw::graph {

void RebuildArcGCs(Widget arc) {
    // The cap style that is in use: it differs from the resource until that is set again.
    XGCValues values{};
    XGetGCValues(XtDisplay(arc), ArcOf(arc).gc, GCCapStyle, &values);
    ReleaseGCs(arc);
    BuildGCs(arc, values.cap_style);
}

// ---- Realisation ----------------------------------------------------------------------------------

// After a change of the managed set the toolkit realises each new child that has no window yet, right
// after the graph's change_managed, and then calls the display's change hooks. In between, an arc bears
// the graph's window and so counts as realised. Nothing is mapped: an arc's mapped_when_managed is
// kept False. Should an arc be destroyed in between, unmanaging it lifts the veil first.
// Other changes are told in between, such as of each child that is realised.
static void LiftVeil(Widget, XtPointer client_data, XtPointer call_data) {
    const auto *change = static_cast<XtChangeHookData>(call_data);
    const char *const ends[] = {XtHmanageChildren, XtHunmanageChildren, XtHmanageSet,
                                XtHunmanageSet};
    const bool at_end = std::any_of(std::begin(ends), std::end(ends), [&](const char *type) {
        return std::strcmp(change->type, type) == 0;
    });
    if (at_end && change->widget == static_cast<Widget>(client_data)) {
        UnveilArcs(change->widget);
    }
}

static void SetArcWindows(Widget w, Window window) {
    for (Widget arc : Arcs(w)) {
        arc->core.mapped_when_managed = False;
        arc->core.window = IsManaged(arc) ? window : None;
    }
}

void VeilArcs(Widget w) {
    if (!HasWindow(w) || IsBeingDestroyed(w) || Arcs(w).empty()) {
        return;
    }
    SetArcWindows(w, XtWindow(w));
    StateOf(w).veiled = true;
    XtAddCallback(XtHooksOfDisplay(XtDisplay(w)), XtNchangeHook, LiftVeil, w);
}

void UnveilArcs(Widget w) {
    if (!StateOf(w).veiled) {
        return;
    }
    StateOf(w).veiled = false;
    SetArcWindows(w, None);
    XtRemoveCallback(XtHooksOfDisplay(XtDisplay(w)), XtNchangeHook, LiftVeil, w);
}

} // namespace corvidlmw::graph

// ---- Public functions ---------------------------------------------------------------------------------------------------------------------

extern "C" {

Widget XmCreateArc(Widget parent, char *name, ArgList args, Cardinal argcount) {
    return XtCreateWidget(name, xmArcWidgetClass, parent, args, argcount);
}

Widget XmCreateAttachedArc(Widget parent, char *name, Widget from, Widget to, ArgList args,
                           Cardinal argcount) {
    Widget arc =
        XtVaCreateWidget(name, xmArcWidgetClass, parent, XmNto, to, XmNfrom, from, nullptr);
    if (argcount > 0) {
        XtSetValues(arc, args, argcount);
    }
    return arc;
}

} // extern "C"
