// XmGraph: class record, resources, life, and the children that become nodes and arcs.
//
// The first child is always the hidden super-root "dummy"; nodes follow it in `children`. Arcs never
// stand there but in `arcs`, sorted by the serial number that they got on entry. A child that is no
// RectObj is neither.
//
// Several lists name a node or an arc at once. Whoever dies leaves all of them before its memory
// goes: see destroy_node_callback and destroy_arc_callback.

#include <corvidlmw/graph/GraphI.h>
#include <corvidlmw/toolkit/BlackAndWhite.h>

#include <Xm/DrawingA.h>
#include <Xm/PushBG.h>
#include <Xm/ScrolledW.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace corvidlmw::graph {

XmGraphNodeList return_widget_list;
XmGraphNodeList subgraph_nodes;
unsigned short nn_width;
unsigned short nn_height;
LineBatch line_list;
LineBatch overview_line_list;
RectangleBatch rectangle_list;
RectangleBatch overview_rectangle_list;

} // namespace corvidlmw::graph

namespace {

void ClassInitialize();
void Initialize(Widget request, Widget new_w, ArgList args, Cardinal *num_args);
void Realize(Widget w, XtValueMask *mask, XSetWindowAttributes *attributes);
void Destroy(Widget w);
void GetValuesHook(Widget w, ArgList args, Cardinal *num_args);
Boolean SetValues(Widget current, Widget request, Widget new_w, ArgList args, Cardinal *num_args);
void InsertChild(Widget child);
void DeleteChild(Widget child);
void ConstraintInitialize(Widget request, Widget new_w, ArgList args, Cardinal *num_args);
void ConstraintDestroy(Widget child);
Boolean ConstraintSetValues(Widget current, Widget request, Widget new_w, ArgList args,
                            Cardinal *num_args);

// ---- Resources ------------------------------------------------------------------------------------

// clang-format off
#define GRAPH(field) static_cast<Cardinal>(offsetof(XmGraphRec, graph.field))
#define TEXT(value) const_cast<char *>(XmRString), const_cast<char *>(value)
#define IMMEDIATE(value) const_cast<char *>(XmRImmediate), reinterpret_cast<XtPointer>(static_cast<XtArgVal>(value))
#define PROCEDURE(value) const_cast<char *>(XmRImmediate), reinterpret_cast<XtPointer>(value)
#define COMPUTED(value) const_cast<char *>(XmRCallProc), reinterpret_cast<XtPointer>(value)
#define CALLBACK(name, field) \
    {Name(name), Name(XmCCallback), Name(XmRCallback), sizeof(XtCallbackList), GRAPH(field), Name(XmRCallback), nullptr}
#define ROW(name, class, type, ctype, field, ...) \
    {Name(name), Name(class), Name(type), sizeof(ctype), GRAPH(field), __VA_ARGS__}

XtResource resources[] = {
    // Layout
    ROW(XmNautoLayoutMode, XmCAutoLayoutMode, XmRAutoLayoutType, int, auto_layout_mode, TEXT("never")),
    ROW(XmNreLayout, XmCReLayout, XmRBoolean, Boolean, re_layout, TEXT("False")),
    ROW(XmNreorient, XmCReorient, XmRBoolean, Boolean, reorient, TEXT("False")),
    ROW(XmNtwinsVisible, XmCTwinsVisible, XmRBoolean, Boolean, twins_visible, TEXT("True")),
    ROW(XmNorientation, XmCOrientation, XmROrientation, unsigned char, orientation, IMMEDIATE(XmHORIZONTAL)),
    ROW(XmNlayoutStyle, XmCLayoutStyle, XmRLayoutStyle, unsigned char, layout_style, IMMEDIATE(XmGRAPH)),
    ROW(XmNarcDrawMode, XmCArcDrawMode, XmRArcDrawMode, unsigned char, arc_draw_mode, TEXT("position_relative")),
    ROW(XmNchildSpacing, XmCChildSpacing, XmRInt, int, child_spacing, TEXT("40")),
    ROW(XmNsiblingSpacing, XmCSiblingSpacing, XmRInt, int, sibling_spacing, TEXT("30")),
    ROW(XmNlayoutProc, XmCLayoutProc, XmRPointer, XmGraphLayoutProc, layout_proc, PROCEDURE(DoLayout)),
    // Interning the empty string would cost a round trip for what is None anyway.
    ROW(XmNlayoutKey, XmCLayoutKey, XmRAtom, Atom, layout_key, IMMEDIATE(None)),

    // Editing and selection
    ROW(XmNeditable, XmCEditable, XmRBoolean, Boolean, editable, TEXT("False")),
    ROW(XmNokToAdd, XmCOkToAdd, XmRBoolean, Boolean, ok_to_add, TEXT("True")),
    ROW(XmNmovableNodes, XmCMovableNodes, XmRBoolean, Boolean, movable_nodes, TEXT("TRUE")),
    ROW(XmNselectableArcs, XmCSelectableArcs, XmRBoolean, Boolean, selectable_arcs, TEXT("TRUE")),
    ROW(XmNeditableArcs, XmCEditableArcs, XmRBoolean, Boolean, editable_arcs, TEXT("TRUE")),
    ROW(XmNallowMultipleSelections, XmCAllowMultipleSelections, XmRBoolean, Boolean, allow_multiple_selections, TEXT("True")),
    ROW(XmNallowGrandchildInput, XmCAllowGrandchildInput, XmRBoolean, Boolean, allow_grandchild_input, TEXT("TRUE")),
    ROW(XmNinteractiveArcDirection, XmCInteractiveArcDirection, XmRArcDirection, unsigned char, interactive_arc_direction, IMMEDIATE(XmUNDIRECTED)),
    // Declared as an int, it holds a class pointer.
    ROW(XmNdefaultNodeClass, XmCDefaultNodeClass, XmRInt, WidgetClass, default_node_class, IMMEDIATE(0)),
    ROW(XmNdoubleClickInterval, XmCDoubleClickInterval, XmRInt, int, double_click_interval, IMMEDIATE(250)),
    ROW(XmNincrement, XmCIncrement, XmRInt, int, increment, IMMEDIATE(10)),
    ROW(XmNshowCrossingArcs, XmCShowCrossingArcs, XmRBoolean, Boolean, show_crossing_arcs, TEXT("True")),

    // Cursors
    ROW(XmNptrCursor, XmCCursor, XmRCursor, Cursor, ptr_cursor, TEXT("left_ptr")),
    ROW(XmNmotionCursor, XmCCursor, XmRCursor, Cursor, motion_cursor, TEXT("fleur")),
    ROW(XmNindicateCursor, XmCCursor, XmRCursor, Cursor, indicate_cursor, TEXT("crosshair")),
    ROW(XmNindicateChildCursor, XmCCursor, XmRCursor, Cursor, indicate_child_cursor, IMMEDIATE(None)),
    ROW(XmNindicateParentCursor, XmCCursor, XmRCursor, Cursor, indicate_parent_cursor, IMMEDIATE(None)),

    // Colours and the overview
    ROW(XmNhighlightColor, XmCHighlightColor, XmRPixel, Pixel, highlight_color, COMPUTED(WhiteDefault)),
    ROW(XmNoverviewLineColor, XmCOverviewColor, XmRPixel, Pixel, overview_line_color, COMPUTED(BlackDefault)),
    ROW(XmNoverviewNodeColor, XmCOverviewColor, XmRPixel, Pixel, overview_node_color, COMPUTED(WhiteDefault)),
    ROW(XmNoverviewViewportBottomShadowColor, XmCOverviewViewportColor, XmRPixel, Pixel, overview_viewport_bottom_shadow_color, COMPUTED(WhiteDefault)),
    ROW(XmNoverviewViewportTopShadowColor, XmCOverviewViewportColor, XmRPixel, Pixel, overview_viewport_top_shadow_color, COMPUTED(WhiteDefault)),
    ROW(XmNshowOverviewArcs, XmCShowOverviewArcs, XmRBoolean, Boolean, show_overview_arcs, TEXT("TRUE")),
    ROW(XmNskewOverviewScale, XmCSkewOverviewScale, XmRBoolean, Boolean, skew_overview_scale, TEXT("FALSE")),

    // Callbacks
    CALLBACK(XmNgraphTooBigCallback, graph_too_big_callback),
    CALLBACK(XmNgraphChangedCallback, graph_changed_callback),
    CALLBACK(XmNuserButtonCallback, user_button_callback),
    CALLBACK(XmNnewArcCallback, new_arc_callback),
    CALLBACK(XmNnewNodeCallback, new_node_callback),
    CALLBACK(XmNnodeMovedCallback, node_moved_callback),
    CALLBACK(XmNarcMovedCallback, arc_moved_callback),
    CALLBACK(XmNdefaultActionCallback, default_action_callback),
    CALLBACK(XmNselectNodeCallback, select_node_callback),
    CALLBACK(XmNdeselectCallback, deselect_callback),
    CALLBACK(XmNselectArcCallback, select_arc_callback),
    CALLBACK(XmNselectSubgraphCallback, select_subgraph_callback),
};

XtResource constraint_resources[] = {
    {Name(XmNmarkColor), Name(XmCMarkColor), Name(XmRPixel), sizeof(Pixel),
     offsetof(XmGraphConstraintRec, graph.mark_color), IMMEDIATE(-1)},
};

XmSyntheticResource synthetic_resources[] = {
    {Name(XmNchildSpacing), sizeof(int), GRAPH(child_spacing), _XmFromChildPixels, _XmToChildPixels},
    {Name(XmNsiblingSpacing), sizeof(int), GRAPH(sibling_spacing), _XmFromSiblingPixels, _XmToSiblingPixels},
};
// clang-format on

static_assert(XtNumber(resources) == 47);

} // namespace

// ---- Input ---------------------------------------------------------------------------------------

// XmManager asks at each motion which gadget is below the pointer; its own answer walks all children.
XmManagerClassExtRec manager_extension = {
    .next_extension = nullptr,
    .record_type = NULLQUARK,
    .version = XmManagerClassExtVersion,
    .record_size = sizeof(XmManagerClassExtRec),
    .traversal_children = XmInheritTraversalChildrenProc,
    .object_at_point = GadgetAt,
};

// ---- Class record --------------------------------------------------------------------------------

extern "C" {

XmGraphClassRec xmGraphClassRec = {
    .core_class =
        {
            .superclass = reinterpret_cast<WidgetClass>(&xmManagerClassRec),
            .class_name = Name("XmGraph"),
            .widget_size = sizeof(XmGraphRec),
            .class_initialize = ClassInitialize,
            .class_part_initialize = nullptr,
            .class_inited = False,
            .initialize = Initialize,
            .initialize_hook = nullptr,
            .realize = Realize,
            .actions = graph_actions,
            .num_actions = XtNumber(graph_actions),
            .resources = resources,
            .num_resources = XtNumber(resources),
            .xrm_class = NULLQUARK,
            .compress_motion = True,
            .compress_exposure = XtExposeCompressMaximal,
            .compress_enterleave = True,
            .visible_interest = True,
            .destroy = Destroy,
            .resize = GraphResize,
            .expose = GraphRedisplay,
            .set_values = SetValues,
            .set_values_hook = nullptr,
            .set_values_almost = XtInheritSetValuesAlmost,
            .get_values_hook = GetValuesHook,
            .accept_focus = nullptr,
            .version = XtVersion,
            .callback_private = nullptr,
            .tm_table = const_cast<char *>(graph_translations),
            .query_geometry = GraphQueryGeometry,
            .display_accelerator = nullptr,
            .extension = nullptr,
        },
    .composite_class =
        {
            .geometry_manager = GraphGeometryManager,
            .change_managed = GraphChangeManaged,
            .insert_child = InsertChild,
            .delete_child = DeleteChild,
            .extension = nullptr,
        },
    .constraint_class =
        {
            .resources = constraint_resources,
            .num_resources = XtNumber(constraint_resources),
            .constraint_size = sizeof(XmGraphConstraintRec),
            .initialize = ConstraintInitialize,
            .destroy = ConstraintDestroy,
            .set_values = ConstraintSetValues,
            .extension = nullptr,
        },
    .manager_class =
        {
            .translations = XtInheritTranslations,
            .syn_resources = synthetic_resources,
            .num_syn_resources = XtNumber(synthetic_resources),
            .syn_constraint_resources = nullptr,
            .num_syn_constraint_resources = 0,
            .parent_process = XmInheritParentProcess,
            .extension = &manager_extension,
        },
    .graph_class = {.extension = nullptr},
};

WidgetClass xmGraphWidgetClass = reinterpret_cast<WidgetClass>(&xmGraphClassRec);

} // extern "C"

// ---- Telling children apart -------------------------------------------------------------------------

namespace corvidlmw::graph {

NodePtr NodeIn(Widget graph, Widget w) {
    if (!w || XtParent(w) != graph || !XtIsRectObj(w) || XmIsArc(w)) {
        return nullptr;
    }
    NodePtr node = NodeOf(w);
    const bool super_root = NumChildrenOf(graph) == 0 || w == ChildrenOf(graph)[0];
    return node && node->widget && !super_root ? node : nullptr;
}

bool CheckGraph(Widget w, const char *warning) {
    if (w && XmIsGraph(w)) {
        return true;
    }
    if (w) {
        Warn(w, warning);
    } else {
        XtWarning(warning);
    }
    return false;
}

void CallGraphChanged(Widget graph, int reason, Widget object, bool interactive) {
    XmGraphCallbackStruct call_data{};
    call_data.reason = reason;
    call_data.widget = object;
    call_data.interactive = interactive ? True : False;
    XtCallCallbacks(graph, XmNgraphChangedCallback, &call_data);
}

void ForgetObject(Widget w, Widget object) {
    auto &graph = GraphOf(w);
    if (graph.indicated == object) {
        graph.indicated = nullptr;
    }
    if (graph.armed_gadget == object) {
        graph.armed_gadget = nullptr;
    }
    if (graph.current_arc == object) {
        graph.current_arc = nullptr;
    }
    if (graph.current_node && graph.current_node->widget == object) {
        graph.current_node = nullptr;
    }
    if (graph.current_subtree && graph.current_subtree->widget == object) {
        graph.current_subtree = nullptr;
    }
    auto &manager = ManagerOf(w);
    if (reinterpret_cast<Widget>(manager.selected_gadget) == object) {
        manager.selected_gadget = nullptr;
    }
    LivingCopy::Forget(StateOf(w), object);
}

void RemoveFromArcs(Widget w, Widget arc) {
    ForgetArcIndex(w);
    const unsigned long serial = SerialOf(arc);
    auto arcs = Arcs(w);
    auto found = std::lower_bound(arcs.begin(), arcs.end(), serial,
                                  [](Widget a, unsigned long s) { return SerialOf(a) < s; });
    if (found != arcs.end() && *found == arc) {
        std::copy(found + 1, arcs.end(), found);
        GraphOf(w).num_arcs -= 1;
        return;
    }
    for (TakenArcs *taken = StateOf(w).taken_arcs; taken; taken = taken->outer) {
        auto entry =
            std::lower_bound(taken->arcs.begin(), taken->arcs.end(), serial,
                             [](const TakenArc &t, unsigned long s) { return t.serial < s; });
        if (entry != taken->arcs.end() && entry->arc == arc) {
            entry->arc = nullptr;
        }
    }
}

} // namespace corvidlmw::graph

namespace {

bool IsNode(Widget child) {
    return XtIsRectObj(child) && !XmIsArc(child);
}

// ---- Class -------------------------------------------------------------------------------------------

void ClassInitialize() {
    struct {
        const char *type;
        XtConverter convert;
    } converters[] = {
        {XmRArcDirection, _XmCvtStringToArcDirection},
        {XmRLineStyle, _XmCvtStringToLineStyle},
        {XmRCapStyle, _XmCvtStringToCapStyle},
        {XmRArcDrawMode, _XmCvtStringToArcDrawMode},
        {XmRAutoLayoutType, _XmCvtStringToAutoLayoutType},
        {XmRLayoutStyle, _XmCvtStringToLayoutStyle},
    };
    for (auto &converter : converters) {
        XtAddConverter(XmRString, converter.type, converter.convert, nullptr, 0);
    }
    nn_width = 60;
    nn_height = 30;
    line_list.count = 0;
    overview_line_list.count = 0;
    overview_rectangle_list.count = 0;
    subgraph_nodes = {};
    return_widget_list = {};
}

// ---- Creation ------------------------------------------------------------------------------------------

// XmManager has a resource of the same name with a field of its own, and the toolkit gives an
// argument only to the first. So the graph takes its value from the arguments itself.
void TakeHighlightColor(XmGraphPart &graph, std::span<Arg> args) {
    for (const Arg &arg : args) {
        if (std::strcmp(arg.name, XmNhighlightColor) == 0) {
            graph.highlight_color = static_cast<Pixel>(arg.value);
        }
    }
}

} // namespace

namespace corvidlmw::graph {

// It passes through InsertChild like any node, and stands first. Without its own border width a
// Core widget has 1, which would move the roots of every layout.
void CreateSuperRoot(Widget w) {
    GraphOf(w).root = nullptr;
    Widget dummy =
        XtVaCreateWidget("dummy", coreWidgetClass, w, XmNwidth, nn_width, XmNheight, nn_height,
                         XmNborderWidth, 0, XmNmappedWhenManaged, False, nullptr);
    GraphOf(w).root = NodeOf(dummy);
}

} // namespace corvidlmw::graph

namespace {

// The toolkit does not promise zeroed records: all that no resource fills gets a value here.
void ClearFields(XmGraphPart &graph) {
    graph.cover_window = None;
    graph.cover_count = 0;
    graph.gesture_state = GESTURE_NONE;
    graph.last_click_time = 0;
    graph.start_x = graph.start_y = graph.end_x = graph.end_y = 0;
    graph.offset_x = graph.offset_y = 0;
    graph.arc_tolerance = 5;
    graph.arcs = nullptr;
    graph.num_arcs = graph.arcs_size = 0;
    graph.selected_arcs = graph.selected_nodes = graph.user_roots = {};
    graph.root = graph.current_node = graph.current_subtree = nullptr;
    graph.current_arc = graph.armed_gadget = graph.indicated = nullptr;
    graph.overview = nullptr;
    graph.overview_dragging = 0;
    graph.viewport_x = graph.viewport_y = 0;
    graph.viewport_width = graph.viewport_height = 0;
    graph.overview_x_scale = graph.overview_y_scale = 0;
    graph.butterfly_root = nullptr;
    graph.in_scrolled_window = False;
    graph.clip_width = graph.clip_height = 0;
    graph.scrollbar_thickness = 0;
    graph.adjust_size = True;
}

void Initialize(Widget request, Widget new_w, ArgList args, Cardinal *num_args) {
    auto &graph = GraphOf(new_w);
    ClearFields(graph);
    graph.internal = New<GraphState>();
    ManagerOf(new_w).accelerator_widget = nullptr;
    line_list.count = rectangle_list.count = 0;
    overview_line_list.count = overview_rectangle_list.count = 0;
    TakeHighlightColor(graph, Span(args, num_args));

    AttachToScrolledWindow(new_w);
    XtAddEventHandler(new_w, SubstructureNotifyMask, False, HandleCreateNotify, nullptr);
    CreateSweepCursors(new_w);
    CreateIndicateCursors(new_w);
    if (!graph.default_node_class) {
        graph.default_node_class = xmPushButtonGadgetClass;
    }
    ConvertSpacing(new_w, graph.child_spacing, graph.sibling_spacing);
    if (request->core.width == 0) {
        new_w->core.width = 50;
    }
    if (request->core.height == 0) {
        new_w->core.height = 50;
    }
    graph.layed_out = GraphOf(request).auto_layout_mode == XmNEVER;
    graph.twins_visible = graph.twins_visible ? True : False;
    CreateSuperRoot(new_w);
    BuildGraphGCs(new_w);
}

// ---- Realisation -------------------------------------------------------------------------------------

// A graph that was unrealised alone still has one.
void CreateCoverWindow(Widget w) {
    if (HasCover(w)) {
        return;
    }
    Widget clip = XtParent(w);
    Dimension width = 0;
    Dimension height = 0;
    XtVaGetValues(clip, XmNwidth, &width, XmNheight, &height, nullptr);
    const Pixel background = w->core.background_pixel;
    GraphOf(w).cover_window = XCreateSimpleWindow(XtDisplay(w), XtWindow(clip), 0, 0, width, height,
                                                  0, background, background);
    XLowerWindow(XtDisplay(w), GraphOf(w).cover_window);
    StateOf(w).cover_parent = XtWindow(clip);
    StateOf(w).cover_settled = false;
}

// The do-not-propagate field is filled without its bit in the mask, so it has no effect; the
// graph's own translations want those events.
void Realize(Widget w, XtValueMask *mask, XSetWindowAttributes *attributes) {
    *mask |= CWBitGravity;
    attributes->bit_gravity = NorthWestGravity;
    attributes->do_not_propagate_mask = ButtonPressMask | ButtonReleaseMask | PointerMotionMask;
    Widget scrolled = XtParent(XtParent(w));
    if (GraphOf(w).in_scrolled_window && scrolled && XmIsScrolledWindow(scrolled)) {
        CreateCoverWindow(w);
    }
    XtCreateWindow(w, InputOutput, static_cast<Visual *>(CopyFromParent), *mask, attributes);
    // Below all others: the toolkit asks the server about each window that lies above the focus.
    XtRealizeWidget(GraphOf(w).root->widget);
}

// ---- Destruction ---------------------------------------------------------------------------------------

void DestroyCoverWindow(Widget w) {
    if (HasCover(w) && !IsBeingDestroyed(XtParent(w))) {
        XDestroyWindow(XtDisplay(w), GraphOf(w).cover_window);
    }
    GraphOf(w).cover_window = None;
}

void Destroy(Widget w) {
    auto &graph = GraphOf(w);
    LivingCopy::Forget(StateOf(w), nullptr);
    Watch::Trip(StateOf(w));
    UnveilArcs(w);
    DetachFromScrolledWindow(w);
    DetachOverview(w);
    ForgetButterflyRoot(w);
    // The children are freed by now, and the arcs' callbacks may still ask for them.
    reinterpret_cast<CompositeWidget>(w)->composite.num_children = 0;
    graph.root = nullptr;
    DestroyAllArcs(w);
    DestroyDoomedArcs(w);
    _XmGraphNodeListFree(&graph.selected_arcs);
    // Shared by all graphs: the next one that needs it grows it anew.
    _XmGraphNodeListFree(&return_widget_list);
    _XmGraphNodeListFree(&graph.selected_nodes);
    _XmGraphNodeListFree(&graph.user_roots);
    FreeGraphGCs(w);
    FreeCursors(w);
    DestroyCoverWindow(w);
    for (const char *name : std::initializer_list<const char *>{
             XmNgraphTooBigCallback, XmNgraphChangedCallback, XmNuserButtonCallback,
             XmNnewArcCallback, XmNnewNodeCallback, XmNnodeMovedCallback, XmNarcMovedCallback,
             XmNdefaultActionCallback, XmNselectNodeCallback, XmNdeselectCallback,
             XmNselectArcCallback, XmNselectSubgraphCallback}) {
        XtRemoveAllCallbacks(w, name);
    }
    Delete(&StateOf(w));
    graph.internal = nullptr;
}

// ---- Resources that another class has too -----------------------------------------------------------

Boolean SetValues(Widget current, Widget request, Widget new_w, ArgList args, Cardinal *num_args) {
    TakeHighlightColor(GraphOf(new_w), Span(args, num_args));
    return GraphSetValues(current, request, new_w, args, num_args);
}

void GetValuesHook(Widget w, ArgList args, Cardinal *num_args) {
    for (const Arg &arg : Span(args, num_args)) {
        if (std::strcmp(arg.name, XmNhighlightColor) == 0 && arg.value) {
            *reinterpret_cast<Pixel *>(arg.value) = GraphOf(w).highlight_color;
        }
    }
}

// ---- Children --------------------------------------------------------------------------------------------

void InsertArc(Widget w, Widget arc) {
    auto &graph = GraphOf(w);
    ForgetArcIndex(w);
    XtAddCallback(arc, XmNdestroyCallback, destroy_arc_callback, nullptr);
    ArcOf(arc).internal = reinterpret_cast<XtPointer>(StateOf(w).next_arc_serial++);
    if (graph.num_arcs == graph.arcs_size) {
        graph.arcs_size = graph.arcs_size / 4 + graph.arcs_size + 1;
        graph.arcs = reinterpret_cast<Widget *>(XtRealloc(
            reinterpret_cast<char *>(graph.arcs),
            static_cast<Cardinal>(static_cast<unsigned>(graph.arcs_size) * sizeof(Widget))));
    }
    graph.arcs[graph.num_arcs++] = arc;
    XtSetMappedWhenManaged(arc, False);
}

// The super-root is always first; the rest stands where the client says, in 1..num_children.
Cardinal InsertPosition(Widget child) {
    auto &composite = reinterpret_cast<CompositeWidget>(XtParent(child))->composite;
    if (!GraphOf(XtParent(child)).root) {
        return 0;
    }
    if (!composite.insert_position) {
        return composite.num_children;
    }
    return std::clamp((*composite.insert_position)(child), Cardinal{1}, composite.num_children);
}

void InsertNode(Widget w, Widget child) {
    auto &composite = reinterpret_cast<CompositeWidget>(w)->composite;
    // An arc of a subclass has ends to leave and no window to map, like any other.
    if (XmIsArc(child)) {
        XtAddCallback(child, XmNdestroyCallback, destroy_arc_callback, nullptr);
        child->core.mapped_when_managed = False;
    } else {
        XtAddCallback(child, XmNdestroyCallback, destroy_node_callback, w);
    }
    ForgetNodeIndex(w);
    ApplyEditMode(w, {&child, 1});
    const Cardinal position = InsertPosition(child);
    if (composite.num_children == composite.num_slots) {
        composite.num_slots = composite.num_slots / 4 + composite.num_slots + 1;
        composite.children = reinterpret_cast<WidgetList>(
            XtRealloc(reinterpret_cast<char *>(composite.children),
                      static_cast<Cardinal>(composite.num_slots * sizeof(Widget))));
    }
    WidgetList place = composite.children + position;
    std::copy_backward(place, composite.children + composite.num_children,
                       composite.children + composite.num_children + 1);
    *place = child;
    composite.num_children += 1;
    RefreshOverview(w);
}

// An arc is told by its very class here and by descent elsewhere: a subclass of XmArc enters
// `children`, as a child without a node.
void InsertChild(Widget child) {
    if (!XtIsRectObj(child)) {
        return;
    }
    Widget graph = XtParent(child);
    if (XtClass(child) == xmArcWidgetClass) {
        InsertArc(graph, child);
    } else {
        InsertNode(graph, child);
    }
}

// XmManager's own delete_child would do this; it does not run.
void ForgetInManager(Widget w, Widget child) {
    auto &manager = ManagerOf(w);
    auto gadget = reinterpret_cast<XmGadget>(child);
    if (manager.selected_gadget == gadget) {
        manager.selected_gadget = nullptr;
    }
    if (manager.eligible_for_multi_button_event == gadget) {
        manager.eligible_for_multi_button_event = nullptr;
    }
    for (Widget *field :
         {&manager.highlighted_widget, &manager.active_child, &manager.initial_focus}) {
        if (*field == child) {
            *field = nullptr;
        }
    }
}

void DeleteChild(Widget child) {
    if (!XtIsRectObj(child)) {
        return;
    }
    Widget w = XtParent(child);
    ForgetInManager(w, child);
    if (XtClass(child) == xmArcWidgetClass) {
        RemoveFromArcs(w, child);
        return;
    }
    ForgetNodeIndex(w);
    auto children = Children(w);
    auto found = std::find(children.begin(), children.end(), child);
    if (found != children.end()) {
        std::copy(found + 1, children.end(), found);
        reinterpret_cast<CompositeWidget>(w)->composite.num_children -= 1;
        RefreshOverview(w);
    }
    // A client that destroys all of XmNchildren takes the super-root along.
    if (GraphOf(w).root == NodeOf(child) && !XmIsArc(child) && !IsBeingDestroyed(w)) {
        CreateSuperRoot(w);
    }
}

// ---- Constraints -------------------------------------------------------------------------------------------

void ConstraintInitialize(Widget, Widget new_w, ArgList, Cardinal *) {
    if (!XtIsRectObj(new_w)) {
        return;
    }
    auto &constraint = ConstraintOf(new_w);
    constraint.event_mask = NoEventMask;
    constraint.delta_x = constraint.delta_y = 0;
    constraint.old_x = constraint.old_y = 0;
    constraint.node = nullptr;
    if (IsNode(new_w)) {
        auto node = reinterpret_cast<NodePtr>(XtMalloc(sizeof(NodeRec)));
        node->widget = new_w;
        node->internal = nullptr;
        _XmGraphInitNode(node);
        constraint.node = node;
    }
}

Boolean ConstraintSetValues(Widget current, Widget, Widget new_w, ArgList, Cardinal *) {
    // No mark is -1, which a client may well have given as an int.
    auto mark = [](Widget w) { return static_cast<std::uint32_t>(ConstraintOf(w).mark_color); };
    if (XtIsWidget(new_w)) {
        SpoilFigure(XtParent(new_w)); // it may paint itself at once
    }
    if (XtIsRectObj(new_w) && mark(current) != mark(new_w)) {
        CallGraphChanged(XtParent(new_w), XmCR_MARK_CHANGED, new_w);
    }
    return False;
}

void ConstraintDestroy(Widget child) {
    if (!XtIsRectObj(child)) {
        return;
    }
    auto &graph = GraphOf(XtParent(child));
    if (!IsNode(child)) {
        graph.current_arc = nullptr;
        return;
    }
    graph.current_node = nullptr;
    auto &constraint = ConstraintOf(child);
    NodePtr node = constraint.node;
    if (!node) {
        return;
    }
    for (XmGraphNodeList *list : {&node->tree_children, &node->parents, &node->children,
                                  &node->from_arcs, &node->to_arcs}) {
        _XmGraphNodeListFree(list);
    }
    FreeEditState(node);
    XtFree(reinterpret_cast<char *>(node));
    constraint.node = nullptr;
}

} // namespace

// ---- Public functions --------------------------------------------------------------------------------------------

extern "C" {

Widget XmCreateGraph(Widget parent, char *name, ArgList args, Cardinal argcount) {
    return XtCreateWidget(name, xmGraphWidgetClass, parent, args, argcount);
}

Widget XmCreateManagedGraph(Widget parent, char *name, ArgList args, Cardinal argcount) {
    return XtCreateManagedWidget(name, xmGraphWidgetClass, parent, args, argcount);
}

} // extern "C"
