// LmList: class record, resources, life.

#include <corvidlmw/list/LmListI.h>

#include <Xm/ScrolledW.h>
#include <Xm/TransltnsP.h>

#include <algorithm>
#include <cstddef>
#include <limits>

using namespace corvidlmw;
using namespace corvidlmw::list;

namespace {

void ClassInitialize();
void ClassPartInitialize(WidgetClass widget_class);
void Initialize(Widget request, Widget new_w, ArgList args, Cardinal *num_args);
void Destroy(Widget w);
void NullRoutine(Widget) {}
void CvtToExternalPos(Widget w, int offset, XtArgVal *value);
XmImportOperator CvtToInternalPos(Widget w, int offset, XtArgVal *value);

// ---- Resources ------------------------------------------------------------------------------------

// clang-format off
#define IMMEDIATE(value) Name(XmRImmediate), reinterpret_cast<XtPointer>(static_cast<XtArgVal>(value))
#define CALCULATED(procedure) Name(XmRCallProc), reinterpret_cast<XtPointer>(procedure)
#define ROW(name, class, type, ctype, field, ...) \
    {Name(name), Name(class), Name(type), sizeof(ctype), offsetof(LmListRec, field), __VA_ARGS__}
#define CALLBACK(name, field) \
    {Name(name), Name(XmCCallback), Name(XmRCallback), sizeof(XtCallbackList), offsetof(LmListRec, list.field), Name(XmRCallback), nullptr}

XtResource resources[] = {
    ROW(XmNlistSpacing, XmCListSpacing, XmRVerticalDimension, Dimension, list.list_spacing, IMMEDIATE(1)),
    ROW(XmNlistMarginWidth, XmCListMarginWidth, XmRHorizontalDimension, Dimension, list.list_margin_width, IMMEDIATE(2)),
    ROW(XmNlistMarginHeight, XmCListMarginHeight, XmRVerticalDimension, Dimension, list.list_margin_height, IMMEDIATE(0)),
    ROW(XmNfontList, XmCFontList, XmRFontList, XmFontList, list.font_list, IMMEDIATE(0)),
    ROW(XmNarmColor, XmCArmColor, XmRPixel, Pixel, list.arm_color, CALCULATED(_XmSelectColorDefault)),
    ROW(XmNfieldMargin, XmCListMarginWidth, XmRHorizontalDimension, Dimension, list.field_margin, IMMEDIATE(2)),
    ROW(XmNstringDirection, XmCStringDirection, XmRStringDirection, XmStringDirection, list.string_direction, IMMEDIATE(XmSTRING_DIRECTION_DEFAULT)),
    ROW(XmNitems, XmCItems, XmRXmStringTable, XmString *, list.items, IMMEDIATE(0)),
    ROW(XmNitemCount, XmCItemCount, XmRInt, int, list.item_count, IMMEDIATE(0)),
    ROW(XmNselectedItems, XmCSelectedItems, XmRXmStringTable, XmString *, list.selected_items, IMMEDIATE(0)),
    ROW(XmNselectedItemCount, XmCSelectedItemCount, XmRInt, int, list.selected_item_count, IMMEDIATE(0)),
    ROW(XmNvisibleItemCount, XmCVisibleItemCount, XmRInt, int, list.visible_item_count, IMMEDIATE(0)),
    ROW(XmNtopItemPosition, XmCTopItemPosition, XmRInt, int, list.top_item_position, IMMEDIATE(0)),
    ROW(XmNselectionPolicy, XmCSelectionPolicy, XmRSelectionPolicy, unsigned char, list.selection_policy, IMMEDIATE(XmBROWSE_SELECT)),
    ROW(XmNlistSizePolicy, XmCListSizePolicy, XmRListSizePolicy, unsigned char, list.list_size_policy, IMMEDIATE(XmVARIABLE)),
    ROW(XmNscrollBarDisplayPolicy, XmCScrollBarDisplayPolicy, XmRScrollBarDisplayPolicy, unsigned char, list.scroll_bar_display_policy, IMMEDIATE(XmAS_NEEDED)),
    ROW(XmNautomaticSelection, XmCAutomaticSelection, XmRBoolean, Boolean, list.automatic_selection, IMMEDIATE(False)),
    ROW(XmNindentIcons, XmCIndentIcons, XmRBoolean, Boolean, list.indent_icons, IMMEDIATE(True)),
    ROW(XmNdefaultIconWidth, XmCDefaultIconWidth, XmRDimension, Dimension, list.default_icon_width, IMMEDIATE(16)),
    ROW(XmNupdate, XmCUpdate, XmRBoolean, Boolean, list.update, IMMEDIATE(True)),
    ROW(XmNshowIcons, XmCShowIcons, XmRBoolean, Boolean, list.show_icons, IMMEDIATE(False)),
    ROW(XmNdoubleClickInterval, XmCDoubleClickInterval, XmRInt, int, list.double_click_interval, IMMEDIATE(-1)),
    CALLBACK(XmNarmCallback, arm_callback),
    CALLBACK(XmNdisarmCallback, disarm_callback),
    CALLBACK(XmNactivateCallback, activate_callback),
    CALLBACK(XmNsingleSelectionCallback, single_selection_callback),
    CALLBACK(XmNmultipleSelectionCallback, multiple_selection_callback),
    CALLBACK(XmNextendedSelectionCallback, extended_selection_callback),
    CALLBACK(XmNbrowseSelectionCallback, browse_selection_callback),
    CALLBACK(XmNdefaultActionCallback, default_action_callback),
    CALLBACK(XmNfieldChangedCallback, field_changed_callback),
    ROW(XmNhorizontalScrollBar, XmCHorizontalScrollBar, XtRWindow, Widget, list.horizontal_scroll_bar, IMMEDIATE(0)),
    ROW(XmNverticalScrollBar, XmCVerticalScrollBar, XtRWindow, Widget, list.vertical_scroll_bar, IMMEDIATE(0)),
    ROW(XmNnavigationType, XmCNavigationType, XmRNavigationType, unsigned char, primitive.navigation_type, IMMEDIATE(XmTAB_GROUP)),
};

XmSyntheticResource get_resources[] = {
    {Name(XmNlistSpacing), sizeof(Dimension), offsetof(LmListRec, list.list_spacing), XmeFromVerticalPixels, XmeToVerticalPixels},
    {Name(XmNlistMarginWidth), sizeof(Dimension), offsetof(LmListRec, list.list_margin_width), XmeFromHorizontalPixels, XmeToHorizontalPixels},
    {Name(XmNlistMarginHeight), sizeof(Dimension), offsetof(LmListRec, list.list_margin_height), XmeFromVerticalPixels, XmeToVerticalPixels},
    {Name(XmNtopItemPosition), sizeof(int), offsetof(LmListRec, list.top_item_position), CvtToExternalPos, CvtToInternalPos},
};
// clang-format on

static_assert(XtNumber(resources) == 34);

// Tabs and clicks find a list as they find the toolkit's.
XmBaseClassExtRec base_class_extension = {
    .next_extension = nullptr,
    .record_type = NULLQUARK, // ClassInitialize knows it
    .version = XmBaseClassExtVersion,
    .record_size = sizeof(XmBaseClassExtRec),
    .widgetNavigable = XmInheritWidgetNavigable,
    .focusChange = XmInheritFocusChange,
};

} // namespace

// ---- Class record -------------------------------------------------------------------------------

extern "C" {

LmListClassRec lmListClassRec = {
    .core_class =
        {
            .superclass = reinterpret_cast<WidgetClass>(&xmPrimitiveClassRec),
            .class_name = Name("LmList"),
            .widget_size = sizeof(LmListRec),
            .class_initialize = ClassInitialize,
            .class_part_initialize = ClassPartInitialize,
            .class_inited = False,
            .initialize = Initialize,
            .initialize_hook = nullptr,
            .realize = XtInheritRealize,
            .actions = list_actions,
            .num_actions = num_list_actions,
            .resources = resources,
            .num_resources = XtNumber(resources),
            .xrm_class = NULLQUARK,
            .compress_motion = False,
            .compress_exposure = XtExposeCompressMaximal,
            .compress_enterleave = True,
            .visible_interest = False,
            .destroy = Destroy,
            .resize = Resize,
            .expose = Redisplay,
            .set_values = SetValues,
            .set_values_hook = nullptr,
            .set_values_almost = SetValuesAlmost,
            .get_values_hook = nullptr,
            .accept_focus = nullptr,
            .version = XtVersion,
            .callback_private = nullptr,
            .tm_table = nullptr, // ClassPartInitialize puts it together
            .query_geometry = QueryProc,
            .display_accelerator = nullptr,
            .extension = &base_class_extension,
        },
    .primitive_class =
        {
            // The location cursor is at a row, not around the widget.
            .border_highlight = NullRoutine,
            .border_unhighlight = NullRoutine,
            .translations = nullptr,
            .arm_and_activate = nullptr,
            .syn_resources = get_resources,
            .num_syn_resources = XtNumber(get_resources),
            .extension = nullptr,
        },
    .list_class = {.extension = nullptr},
};

WidgetClass lmListWidgetClass = reinterpret_cast<WidgetClass>(&lmListClassRec);

} // extern "C"

namespace {

// ---- Class ----------------------------------------------------------------------------------------

void ClassInitialize() {
    base_class_extension.record_type = XmQmotif;
    LookUpRepresentationTypes();
}

// A subclass that inherits translations, or has its own, has them by now.
void ClassPartInitialize(WidgetClass widget_class) {
    SetFastSubclass(widget_class, XmLIST_BIT);
    if (!widget_class->core_class.tm_table) {
        const Text text = Text(_XmList_ListXlations1) + _XmList_ListXlations2;
        widget_class->core_class.tm_table =
            reinterpret_cast<String>(XtParseTranslationTable(text.c_str()));
    }
}

// ---- Positions count from 1 for clients ---------------------------------------------------------------

void CvtToExternalPos(Widget w, int, XtArgVal *value) {
    *value = XtArgVal{ListOf(w).top_item_position} + 1;
}

XmImportOperator CvtToInternalPos(Widget, int, XtArgVal *value) {
    constexpr int lowest = std::numeric_limits<int>::min() + 1;
    *value = static_cast<XtArgVal>(std::max(static_cast<int>(*value), lowest) - 1);
    return XmSYNTHETIC_LOAD;
}

// ---- Life -----------------------------------------------------------------------------------------

// What is not a resource.
void ClearState(LmListPart &list) {
    list.icon_column_width = list.show_icons ? CutToPosition(list.default_icon_width) : 0;
    list.field_widths = nullptr;
    list.field_count = 0;
    list.current_field = -1;
    list.last_highlighted = list.current_keyboard_item = 0;
    list.armed_item = -1;
    list.start_item = list.end_item = list.old_start_item = list.old_end_item = 0;
    list.down_count = 0;
    list.down_time = 0;
    list.normal_gc = list.inverse_gc = list.highlight_gc = nullptr;
    list.insensitive_gc = list.arm_gc = list.icon_gc = nullptr;
    list.x_origin = 0;
    list.traversing = list.keyboard_selection = list.add_mode = False;
    list.append_in_progress = list.did_selection = list.mouse_moved = False;
    list.in_scroll_update = list.in_set_new_size = False;
    list.event_flags = 0;
    list.leave_direction = 0;
    list.selection_type = 0;
    list.drag_timer = 0;
    list.max_item_height = list.max_width = 0;
    list.vertical_maximum = list.vertical_origin = list.vertical_extent = 0;
    list.horizontal_minimum = list.horizontal_maximum = 0;
    list.horizontal_origin = list.horizontal_extent = 0;
    list.internal = New<ListState>();
}

// Strings that the client gives at the creation. A count without strings, or strings without a count,
// are none.
struct GivenItems {
    XmString *strings;
    int count;
};

GivenItems TakeOut(XmString *&strings, int &count) {
    const GivenItems given{strings, strings ? std::max(count, 0) : 0};
    strings = nullptr;
    count = 0;
    return given;
}

void CopySelectedItems(LmListPart &list, const GivenItems &given) {
    if (given.count > 0) {
        list.selected_items = static_cast<XmString *>(
            static_cast<void *>(XtCalloc(static_cast<Cardinal>(given.count), sizeof(XmString))));
        list.selected_item_count = given.count;
        std::transform(given.strings, given.strings + given.count, list.selected_items,
                       XmStringCopy);
    }
}

void TakeItems(Widget w) {
    auto &list = ListOf(w);
    if ((std::max(list.item_count, 0) == 0) != (list.items == nullptr)) {
        WarnOfList(w, _XmMsgList_0013);
    }
    const GivenItems items = TakeOut(list.items, list.item_count);
    const GivenItems selected = TakeOut(list.selected_items, list.selected_item_count);
    list.elements = nullptr;
    list.element_count = 0;
    list.selected_positions = nullptr;
    CopySelectedItems(list, selected);
    InsertRows(w, 0, items.strings, items.count, Selection::ByMembership);
    BuildSelectedList(list, true);
}

void TakeVisibleCount(Widget w) {
    auto &list = ListOf(w);
    if (list.visible_item_count < 0) {
        WarnOfList(w, _XmMsgList_0000);
        list.visible_item_count = 1;
    } else if (list.visible_item_count == 0) {
        list.visible_item_count = SetVizCount(w);
    }
    list.last_set_visible_count = list.visible_item_count;
}

void TakeNaturalSize(Widget request, Widget w) {
    const Size size = SetDefaultSize(w);
    SetSelectionParams(w);
    if (request->core.width == 0) {
        w->core.width = size.width;
    }
    if (request->core.height == 0) {
        w->core.height = size.height;
    } else {
        ListOf(w).visible_item_count = SetVizCount(w);
    }
}

void Initialize(Widget request, Widget new_w, ArgList, Cardinal *) {
    ClearState(ListOf(new_w));
    RepairAtCreation(new_w);
    PlaceSpacing(new_w);
    PlaceBaseX(new_w);
    PlaceBaseY(new_w);
    TakeFonts(new_w);
    MakeGC(new_w);
    MakeHighlightGC(new_w, ListOf(new_w).add_mode);
    TakeItems(new_w);
    TakeVisibleCount(new_w);
    TakeNaturalSize(request, new_w);
    CreateScrollBars(new_w);
}

void Destroy(Widget w) {
    auto &list = ListOf(w);
    StopScrolling(list);
    ReleaseScrollBars(w);
    RemoveAllRows(w);
    ClearSelectedList(list);
    DropFields(list);
    FreeGCs(w);
    XmFontListFree(list.font_list);
    for (const char *name :
         {XmNsingleSelectionCallback, XmNmultipleSelectionCallback, XmNextendedSelectionCallback,
          XmNbrowseSelectionCallback, XmNdefaultActionCallback, XmNarmCallback, XmNdisarmCallback,
          XmNactivateCallback}) {
        XtRemoveAllCallbacks(w, name);
    }
    Delete(&StateOf(list));
    list.internal = nullptr;
}

// ---- Creation -------------------------------------------------------------------------------------

Vector<Arg> ScrolledWindowArgs(ArgList args, Cardinal arg_count) {
    const auto given = Span(args, &arg_count);
    Vector<Arg> all(given.begin(), given.end());
    all.insert(all.end(), {{Name(XmNscrollingPolicy), XmAPPLICATION_DEFINED},
                           {Name(XmNvisualPolicy), XmVARIABLE},
                           {Name(XmNscrollBarDisplayPolicy), XmSTATIC},
                           {Name(XmNshadowThickness), 0}});
    return all;
}

} // namespace

extern "C" {

Widget LmCreateList(Widget parent, char *name, ArgList args, Cardinal arg_count) {
    return XtCreateWidget(name, lmListWidgetClass, parent, args, arg_count);
}

Widget LmCreateScrolledList(Widget parent, char *name, ArgList args, Cardinal arg_count) {
    const Text window_name = Text(name ? name : "") + "SW";
    Vector<Arg> window_args = ScrolledWindowArgs(args, arg_count);
    Widget window =
        XtCreateManagedWidget(window_name.c_str(), xmScrolledWindowWidgetClass, parent,
                              window_args.data(), static_cast<Cardinal>(window_args.size()));
    Widget w = XtCreateWidget(name ? name : "", lmListWidgetClass, window, args, arg_count);
    XtAddCallback(w, XmNdestroyCallback, _XmDestroyParentCallback, nullptr);
    return w;
}

} // extern "C"
