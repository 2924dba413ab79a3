// SvScrollBar: class record, resources, life, resource changes, public functions.

#include <corvidlmw/scrollbar/SvScrollBarI.h>

#include <Xm/ScrollBarP.h>
#include <Xm/ScrolledW.h>
#include <Xm/TransltnsP.h>

#include <cstddef>
#include <utility>

using namespace corvidlmw;
using namespace corvidlmw::scroll_bar;

namespace {

void ClassInitialize();
void ClassPartInitialize(WidgetClass widget_class);
void Initialize(Widget request, Widget new_w, ArgList args, Cardinal *num_args);
void Realize(Widget w, XtValueMask *mask, XSetWindowAttributes *attributes);
void Destroy(Widget w);
void ForegroundPixelDefault(Widget w, int offset, XrmValue *value);
void BackgroundPixelDefault(Widget w, int offset, XrmValue *value);
void TroughPixelDefault(Widget w, int offset, XrmValue *value);
void ProcessingDirectionDefault(Widget w, int offset, XrmValue *value);
void TraversalDefault(Widget w, int offset, XrmValue *value);

// ---- What the toolkit's scrolled windows read ---------------------------------------------------

#define SAME_PLACE(field)                                                                          \
    static_assert(offsetof(SvScrollBarRec, scroll_bar.field) ==                                    \
                  offsetof(XmScrollBarRec, scrollBar.field))
SAME_PLACE(value);
SAME_PLACE(minimum);
SAME_PLACE(maximum);
SAME_PLACE(slider_size);
SAME_PLACE(orientation);
SAME_PLACE(processing_direction);
SAME_PLACE(show_arrows);
SAME_PLACE(increment);
SAME_PLACE(page_increment);
SAME_PLACE(initial_delay);
SAME_PLACE(repeat_delay);

// ---- Resources ----------------------------------------------------------------------------------

// clang-format off
#define IMMEDIATE(value) const_cast<char *>(XmRImmediate), reinterpret_cast<XtPointer>(static_cast<XtArgVal>(value))
#define CALCULATED(procedure) const_cast<char *>(XmRCallProc), reinterpret_cast<XtPointer>(procedure)
#define ROW(name, class, type, ctype, field, ...) \
    {Name(name), Name(class), Name(type), sizeof(ctype), offsetof(SvScrollBarRec, field), __VA_ARGS__}
#define CALLBACK(name, field) \
    {Name(name), Name(XmCCallback), Name(XmRCallback), sizeof(XtCallbackList), offsetof(SvScrollBarRec, scroll_bar.field), Name(XmRCallback), nullptr}

// The order counts: a default that is calculated reads what stands above it.
XtResource resources[] = {
    ROW(XmNnavigationType, XmCNavigationType, XmRNavigationType, unsigned char, primitive.navigation_type, IMMEDIATE(XmSTICKY_TAB_GROUP)),
    ROW(XmNforeground, XmCForeground, XmRPixel, Pixel, primitive.foreground, CALCULATED(ForegroundPixelDefault)),
    ROW(XmNbackground, XmCBackground, XmRPixel, Pixel, core.background_pixel, CALCULATED(BackgroundPixelDefault)),
    ROW(XmNtroughColor, XmCTroughColor, XmRPixel, Pixel, scroll_bar.trough_color, CALCULATED(TroughPixelDefault)),
    ROW(XmNvalue, XmCValue, XmRInt, int, scroll_bar.value, IMMEDIATE(XmINVALID_DIMENSION)),
    ROW(XmNminimum, XmCMinimum, XmRInt, int, scroll_bar.minimum, IMMEDIATE(0)),
    ROW(XmNmaximum, XmCMaximum, XmRInt, int, scroll_bar.maximum, IMMEDIATE(100)),
    ROW(XmNsliderSize, XmCSliderSize, XmRInt, int, scroll_bar.slider_size, IMMEDIATE(XmINVALID_DIMENSION)),
    ROW(XmNshowArrows, XmCShowArrows, XmRBoolean, Boolean, scroll_bar.show_arrows, IMMEDIATE(True)),
    ROW(XmNorientation, XmCOrientation, XmROrientation, unsigned char, scroll_bar.orientation, IMMEDIATE(XmVERTICAL)),
    ROW(XmNprocessingDirection, XmCProcessingDirection, XmRProcessingDirection, unsigned char, scroll_bar.processing_direction, CALCULATED(ProcessingDirectionDefault)),
    ROW(XmNincrement, XmCIncrement, XmRInt, int, scroll_bar.increment, IMMEDIATE(1)),
    ROW(XmNpageIncrement, XmCPageIncrement, XmRInt, int, scroll_bar.page_increment, IMMEDIATE(10)),
    ROW(XmNinitialDelay, XmCInitialDelay, XmRInt, int, scroll_bar.initial_delay, IMMEDIATE(250)),
    ROW(XmNrepeatDelay, XmCRepeatDelay, XmRInt, int, scroll_bar.repeat_delay, IMMEDIATE(50)),
    CALLBACK(XmNvalueChangedCallback, value_changed_callback),
    CALLBACK(XmNincrementCallback, increment_callback),
    CALLBACK(XmNdecrementCallback, decrement_callback),
    CALLBACK(XmNpageIncrementCallback, page_increment_callback),
    CALLBACK(XmNpageDecrementCallback, page_decrement_callback),
    CALLBACK(XmNtoTopCallback, to_top_callback),
    CALLBACK(XmNtoBottomCallback, to_bottom_callback),
    CALLBACK(XmNdragCallback, drag_callback),
    ROW(XmNtraversalOn, XmCTraversalOn, XmRBoolean, Boolean, primitive.traversal_on, CALCULATED(TraversalDefault)),
    ROW(XmNhighlightThickness, XmCHighlightThickness, XmRHorizontalDimension, Dimension, primitive.highlight_thickness, IMMEDIATE(0)),
    CALLBACK(XmNtroughPixmapCallback, trough_pixmap_callback),
};

XmSyntheticResource synthetic_resources[] = {
    {Name(XmNvalue), sizeof(int), offsetof(SvScrollBarRec, scroll_bar.value), ExportScrollBarValue, ImportScrollBarValue},
};
// clang-format on

static_assert(XtNumber(resources) == 26);

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

SvScrollBarClassRec svScrollBarClassRec = {
    .core_class =
        {
            .superclass = reinterpret_cast<WidgetClass>(&xmPrimitiveClassRec),
            .class_name = Name("SvScrollBar"),
            .widget_size = sizeof(SvScrollBarRec),
            .class_initialize = ClassInitialize,
            .class_part_initialize = ClassPartInitialize,
            .class_inited = False,
            .initialize = Initialize,
            .initialize_hook = nullptr,
            .realize = Realize,
            .actions = actions,
            .num_actions = num_actions,
            .resources = resources,
            .num_resources = XtNumber(resources),
            .xrm_class = NULLQUARK,
            .compress_motion = True,
            .compress_exposure = XtExposeCompressMaximal,
            .compress_enterleave = True,
            .visible_interest = False,
            .destroy = Destroy,
            .resize = Resize,
            .expose = Redisplay,
            .set_values = SetValues,
            .set_values_hook = nullptr,
            .set_values_almost = XtInheritSetValuesAlmost,
            .get_values_hook = nullptr,
            .accept_focus = nullptr,
            .version = XtVersion,
            .callback_private = nullptr,
            .tm_table = const_cast<char *>(_XmScrollBar_defaultTranslations),
            .query_geometry = nullptr,
            .display_accelerator = nullptr,
            .extension = &base_class_extension,
        },
    .primitive_class =
        {
            .border_highlight = XmInheritBorderHighlight,
            .border_unhighlight = XmInheritBorderUnhighlight,
            // None: the primitive's own would take the arrow keys for traversal.
            .translations = nullptr,
            .arm_and_activate = nullptr,
            .syn_resources = synthetic_resources,
            .num_syn_resources = XtNumber(synthetic_resources),
            .extension = nullptr,
        },
    .scroll_bar_class = {.extension = nullptr},
};

WidgetClass svScrollBarWidgetClass = reinterpret_cast<WidgetClass>(&svScrollBarClassRec);

} // extern "C"

namespace {

void ClassInitialize() {
    base_class_extension.record_type = XmQmotif;
    LookUpRepresentationTypes();
}

void ClassPartInitialize(WidgetClass widget_class) {
    SetFastSubclass(widget_class, XmSCROLL_BAR_BIT);
    InstallNavigator(widget_class);
}

// ---- Defaults -----------------------------------------------------------------------------------

// Xt copies what `value` points at before it asks for the next default.
template <typename T>
void HandBack(XrmValue *value, T result) {
    static T kept;
    kept = result;
    value->addr = reinterpret_cast<XPointer>(&kept);
    value->size = sizeof kept;
}

void ForegroundPixelDefault(Widget w, int, XrmValue *value) {
    HandBack(value, w->core.background_pixel);
}

// A bar looks like the scrolled window that it belongs to.
void BackgroundPixelDefault(Widget w, int offset, XrmValue *value) {
    if (XmIsScrolledWindow(XtParent(w))) {
        HandBack(value, XtParent(w)->core.background_pixel);
    } else {
        _XmBackgroundColorDefault(w, offset, value);
    }
}

// The bars of a client mostly have one background. The toolkit keeps the colours that it derived as
// well, but takes long to find them.
void TroughPixelDefault(Widget w, int, XrmValue *value) {
    static Screen *screen = nullptr;
    static Colormap colormap = None;
    static Pixel background = 0;
    static Pixel select = 0;
    if (screen != ScreenOf(w) || colormap != w->core.colormap ||
        background != w->core.background_pixel) {
        screen = ScreenOf(w);
        colormap = w->core.colormap;
        background = w->core.background_pixel;
        Pixel foreground = 0;
        Pixel top = 0;
        Pixel bottom = 0;
        XmGetColors(screen, colormap, background, &foreground, &top, &bottom, &select);
    }
    HandBack(value, select);
}

void ProcessingDirectionDefault(Widget w, int, XrmValue *value) {
    HandBack(value, static_cast<unsigned char>(AxisOf(BarOf(w)).horizontal ? XmMAX_ON_RIGHT
                                                                           : XmMAX_ON_BOTTOM));
}

// Once a bar of an automatic scrolled window takes part in traversal, all later ones do.
void TraversalDefault(Widget w, int, XrmValue *value) {
    static Boolean traversal = False;
    Widget parent = XtParent(w);
    if (!traversal && XmIsScrolledWindow(parent)) {
        const auto policy =
            ResourceOf<unsigned char>(parent, XmNscrollingPolicy, XmAPPLICATION_DEFINED);
        traversal = policy == XmAUTOMATIC;
    }
    HandBack(value, traversal);
}

// ---- Life ---------------------------------------------------------------------------------------

// On top of what the primitive put there for highlight and shadow.
void TakeNaturalSize(Widget request, Widget w) {
    constexpr int natural_length = 100;
    constexpr int natural_thickness = 11;
    const bool horizontal = AxisOf(BarOf(w)).horizontal;
    if (request->core.width == 0) {
        w->core.width =
            CutToDimension(w->core.width + (horizontal ? natural_length : natural_thickness));
    }
    if (request->core.height == 0) {
        w->core.height =
            CutToDimension(w->core.height + (horizontal ? natural_thickness : natural_length));
    }
}

int FlagsAtCreation(const SvScrollBarPart &bar) {
    const Range range = RangeOf(bar);
    if (!range.Scrolls()) {
        return SV_ARROW1_AVAILABLE | SV_ARROW2_AVAILABLE;
    }
    return SV_SLIDER_AVAILABLE | (bar.value > range.minimum ? SV_ARROW1_AVAILABLE : 0) |
           (bar.value < range.Highest() ? SV_ARROW2_AVAILABLE : 0);
}

void ClearState(SvScrollBarPart &bar) {
    bar.flags = static_cast<unsigned char>(FlagsAtCreation(bar));
    bar.foreground_gc = bar.unavailable_gc = nullptr;
    bar.slider_pixmap = bar.slider_mask = bar.trough_pixmap = None;
    bar.sliding_on = bar.etched_slider = False;
    bar.saved_value = bar.value;
    bar.change_type = 0;
    bar.timer = 0;
    bar.initial_x = bar.initial_y = bar.separation_x = bar.separation_y = 0;
    bar.slider_x = bar.slider_y = bar.slider_width = bar.slider_height = 0;
    bar.arrow1_selected = bar.arrow2_selected = False;
    bar.internal = nullptr;
}

void Initialize(Widget request, Widget new_w, ArgList, Cardinal *) {
    auto &bar = BarOf(new_w);
    RepairAtCreation(new_w);
    TakeNaturalSize(request, new_w);
    bar.value = ForClient(bar, bar.value);
    ClearState(bar);
    XtClass(new_w)->core_class.resize(new_w);
}

void Realize(Widget w, XtValueMask *mask, XSetWindowAttributes *attributes) {
    *mask |= CWBackPixel | CWBitGravity;
    attributes->background_pixel = BarOf(w).trough_color;
    attributes->bit_gravity = ForgetGravity;
    XtCreateWindow(w, InputOutput, CopyFromParent, *mask, attributes);
}

void FreeCallbacks(Widget w) {
    const auto &bar = BarOf(w);
    const std::pair<const char *, XtCallbackList> lists[] = {
        {XmNvalueChangedCallback, bar.value_changed_callback},
        {XmNincrementCallback, bar.increment_callback},
        {XmNdecrementCallback, bar.decrement_callback},
        {XmNpageIncrementCallback, bar.page_increment_callback},
        {XmNpageDecrementCallback, bar.page_decrement_callback},
        {XmNdragCallback, bar.drag_callback},
        {XmNtoTopCallback, bar.to_top_callback},
        {XmNtoBottomCallback, bar.to_bottom_callback},
        {XmNtroughPixmapCallback, bar.trough_pixmap_callback},
    };
    for (const auto &[name, list] : lists) {
        if (list) {
            XtRemoveAllCallbacks(w, name);
        }
    }
}

// The server ends a grab with the window, but the toolkit would go on sending keys to the widget that
// was.
void Destroy(Widget w) {
    auto &bar = BarOf(w);
    if (bar.timer) {
        XtRemoveTimeOut(bar.timer);
    }
    UngrabKeyboard(w, CurrentTime);
    FreeForegroundGC(w);
    FreeUnavailableGC(w);
    FreeSliderPixmaps(w);
    FreeTroughPicture(w);
    FreeCallbacks(w);
}

} // namespace

// ---- Public functions ---------------------------------------------------------------------------

extern "C" {

Widget SvCreateScrollBar(Widget parent, char *name, ArgList args, Cardinal argcount) {
    return XtCreateWidget(name, svScrollBarWidgetClass, parent, args, argcount);
}

void SvScrollBarGetValues(Widget w, int *value, int *slider_size, int *increment,
                          int *page_increment) {
    if (!w || !SvIsScrollBar(w)) {
        return;
    }
    const auto &bar = BarOf(w);
    auto store = [](int *where, int number) {
        if (where) {
            *where = number;
        }
    };
    store(value, ForClient(bar, bar.value));
    store(slider_size, bar.slider_size);
    store(increment, bar.increment);
    store(page_increment, bar.page_increment);
}

void SvScrollBarSetValues(Widget w, int value, int slider_size, int increment, int page_increment,
                          Boolean notify) {
    if (!w || !SvIsScrollBar(w)) {
        return;
    }
    const int old_value = BarOf(w).value;
    SetNumbers(w, {value, slider_size, increment, page_increment});
    if (notify && BarOf(w).value != old_value) {
        ScrollCallback(w, XmCR_VALUE_CHANGED, {}, nullptr);
    }
}

void SvScrollBarRedisplay(Widget w) {
    if (w && SvIsScrollBar(w)) {
        FreeTroughPicture(w);
        Redisplay(w, nullptr, nullptr);
    }
}

void _SvSetEtchedSlider(Widget w) {
    if (w && SvIsScrollBar(w)) {
        BarOf(w).etched_slider = True;
    }
}

} // extern "C"
