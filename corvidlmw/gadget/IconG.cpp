// XmvIconGadget: class records, resources, life, input, public functions.

#include <corvidlmw/gadget/IconGI.h>

#include <corvidlmw/common/ArrowPixmaps.h>
#include <corvidlmw/gadget/SharedFonts.h>

#include <Xm/MenuT.h>
#include <Xm/RepType.h>
#include <Xm/RowColumnP.h>
#include <Xm/TraitP.h>
#include <Xm/TransferT.h>

#include <cstddef>

using namespace corvidlmw;
using namespace corvidlmw::icon_gadget;

namespace {

void ClassInitialize();
void ClassPartInitialize(WidgetClass widget_class);
void Initialize(Widget request, Widget new_w, ArgList args, Cardinal *num_args);
void Destroy(Widget w);
void InputDispatch(Widget w, XEvent *event, Mask mask);
Boolean VisualChange(Widget w, Widget old_parent, Widget parent);
void GetLabelString(Widget w, int offset, XtArgVal *value);
void ForegroundDefault(Widget w, int offset, XrmValue *value);
void TopShadowDefault(Widget w, int offset, XrmValue *value);
void BottomShadowDefault(Widget w, int offset, XrmValue *value);

// ---- Resources ----------------------------------------------------------------------------------

// clang-format off
#define IMMEDIATE(value) const_cast<char *>(XmRImmediate), reinterpret_cast<XtPointer>(static_cast<XtArgVal>(value))
#define CALCULATED(procedure) const_cast<char *>(XmRCallProc), reinterpret_cast<XtPointer>(procedure)
#define ROW(name, class, type, ctype, record, field, ...) \
    {Name(name), Name(class), Name(type), sizeof(ctype), offsetof(record, field), __VA_ARGS__}
#define GADGET(name, class, type, ctype, field, ...) ROW(name, class, type, ctype, XmvIconGadgetRec, field, __VA_ARGS__)
#define CACHED(name, class, type, ctype, field, ...) ROW(name, class, type, ctype, XmvIconGCacheObjRec, icon_cache.field, __VA_ARGS__)

XtResource resources[] = {
    GADGET(XmNdefaultActionCallback, XmCCallback, XmRCallback, XtCallbackList, icon.default_action_callback, Name(XmRCallback), nullptr),
    GADGET(XmNshadowThickness, XmCShadowThickness, XmRHorizontalDimension, Dimension, gadget.shadow_thickness, IMMEDIATE(2)),
    GADGET(XmNshadowType, XmCShadowType, XmRShadowType, unsigned char, icon.shadow_type, IMMEDIATE(XmSHADOW_ETCHED_IN)),
    GADGET(XmNlabelPixmap, XmCLabelPixmap, XmRGadgetPixmap, Pixmap, icon.label_pixmap, IMMEDIATE(XmUNSPECIFIED_PIXMAP)),
    GADGET(XmNlabelInsensitivePixmap, XmCLabelInsensitivePixmap, XmRGadgetPixmap, Pixmap, icon.label_insensitive_pixmap, IMMEDIATE(XmUNSPECIFIED_PIXMAP)),
    GADGET(XmNlabelBitmap, XmCLabelBitmap, XmRGadgetPixmap, Pixmap, icon.label_bitmap, IMMEDIATE(XmUNSPECIFIED_PIXMAP)),
    GADGET(XmNlabelInsensitiveBitmap, XmCLabelInsensitiveBitmap, XmRGadgetPixmap, Pixmap, icon.label_insensitive_bitmap, IMMEDIATE(XmUNSPECIFIED_PIXMAP)),
    GADGET(XmNlabelString, XmCXmString, XmRXmString, XmString, icon.label_string, IMMEDIATE(0)),
    GADGET(XmNfontList, XmCFontList, XmRFontList, XmFontList, icon.font_list, IMMEDIATE(0)),
    GADGET(XmNtraversalOn, XmCTraversalOn, XmRBoolean, Boolean, gadget.traversal_on, IMMEDIATE(False)),
    GADGET(XmNhighlightThickness, XmCHighlightThickness, XmRHorizontalDimension, Dimension, gadget.highlight_thickness, IMMEDIATE(1)),
};
static_assert(XtNumber(resources) == 11);

XmSyntheticResource synthetic_resources[] = {
    {Name(XmNlabelString), sizeof(XmString), offsetof(XmvIconGadgetRec, icon.label_string), GetLabelString, nullptr},
};

} // namespace

// The background first: the other colours are derived from it.
XtResource corvidlmw::icon_gadget::cache_resources[] = {
    CACHED(XmNbackground, XmCBackground, XmRPixel, Pixel, background, CALCULATED(_XmBackgroundColorDefault)),
    CACHED(XmNforeground, XmCForeground, XmRPixel, Pixel, foreground, CALCULATED(ForegroundDefault)),
    CACHED(XmNtopShadowColor, XmCBackground, XmRPixel, Pixel, top_shadow_color, CALCULATED(TopShadowDefault)),
    CACHED(XmNbottomShadowColor, XmCForeground, XmRPixel, Pixel, bottom_shadow_color, CALCULATED(BottomShadowDefault)),
    CACHED(XmNiconPlacement, XmCIconPlacement, XmRIconPlacement, int, icon_placement, IMMEDIATE(XmICON_RIGHT)),
    CACHED(XmNalignment, XmCAlignment, XmRAlignment, unsigned char, alignment, IMMEDIATE(XmALIGNMENT_CENTER)),
    CACHED(XmNmarginWidth, XmCMarginWidth, XmRHorizontalDimension, Dimension, margin_width, IMMEDIATE(2)),
    CACHED(XmNmarginHeight, XmCMarginHeight, XmRVerticalDimension, Dimension, margin_height, IMMEDIATE(2)),
    CACHED(XmNmarginLeft, XmCMarginLeft, XmRHorizontalDimension, Dimension, margin_left, IMMEDIATE(0)),
    CACHED(XmNmarginRight, XmCMarginRight, XmRHorizontalDimension, Dimension, margin_right, IMMEDIATE(0)),
    CACHED(XmNmarginTop, XmCMarginTop, XmRVerticalDimension, Dimension, margin_top, IMMEDIATE(0)),
    CACHED(XmNmarginBottom, XmCMarginBottom, XmRVerticalDimension, Dimension, margin_bottom, IMMEDIATE(0)),
    CACHED(XmNmarginMiddle, XmCMarginMiddle, XmRHorizontalDimension, Dimension, margin_middle, IMMEDIATE(4)),
    CACHED(XmNrecomputeSize, XmCRecomputeSize, XmRBoolean, Boolean, recompute_size, IMMEDIATE(True)),
    CACHED(XmNshowArrow, XmCShowArrow, XmRBoolean, Boolean, show_arrow, IMMEDIATE(False)),
    CACHED(XmNstringDirection, XmCStringDirection, XmRStringDirection, unsigned char, string_direction, IMMEDIATE(XmSTRING_DIRECTION_DEFAULT)),
};
const Cardinal corvidlmw::icon_gadget::num_cache_resources = XtNumber(cache_resources);
static_assert(XtNumber(cache_resources) == 16);

namespace {

#define CACHED_MARGIN(name, field, axis) \
    {Name(name), sizeof(Dimension), offsetof(XmvIconGCacheObjRec, icon_cache.field), XmeFrom##axis##Pixels, XmeTo##axis##Pixels}

XmSyntheticResource cache_synthetic_resources[] = {
    CACHED_MARGIN(XmNmarginWidth, margin_width, Horizontal),
    CACHED_MARGIN(XmNmarginLeft, margin_left, Horizontal),
    CACHED_MARGIN(XmNmarginRight, margin_right, Horizontal),
    CACHED_MARGIN(XmNmarginHeight, margin_height, Vertical),
    CACHED_MARGIN(XmNmarginTop, margin_top, Vertical),
    CACHED_MARGIN(XmNmarginBottom, margin_bottom, Vertical),
};
// clang-format on

// ---- Class records ------------------------------------------------------------------------------

XmBaseClassExtRec iconBaseClassExtRec = {
    .next_extension = nullptr,
    .record_type = NULLQUARK, // ClassInitialize knows it
    .version = XmBaseClassExtVersion,
    .record_size = sizeof(XmBaseClassExtRec),
    .initializePrehook = XmInheritInitializePrehook,
    .setValuesPrehook = SetValuesPrehook,
    .initializePosthook = InitializePosthook,
    .setValuesPosthook = SetValuesPosthook,
    .secondaryObjectClass = reinterpret_cast<WidgetClass>(&xmvIconGCacheObjClassRec),
    .secondaryObjectCreate = SecondaryObjectCreate,
    .getSecResData = GetIconBGClassSecResData,
    .getValuesPrehook = GetValuesPrehook,
    .getValuesPosthook = GetValuesPosthook,
    .widgetNavigable = XmInheritWidgetNavigable,
    .focusChange = XmInheritFocusChange,
};

XmGadgetClassExtRec _XmvIconGadClassExtRec = {
    .next_extension = nullptr,
    .record_type = NULLQUARK,
    .version = XmGadgetClassExtVersion,
    .record_size = sizeof(XmGadgetClassExtRec),
    .widget_baseline = BaselinesForParent,
    .widget_display_rect = DisplayRectForParent,
    .widget_margins = nullptr,
};

} // namespace

extern "C" {

XmvIconGCacheObjClassRec xmvIconGCacheObjClassRec = {
    .object_class =
        {
            .superclass = reinterpret_cast<WidgetClass>(&xmExtClassRec),
            .class_name = Name("XmvIconGadget"),
            .widget_size = sizeof(XmvIconGCacheObjRec),
            .class_inited = False,
            .resources = cache_resources,
            .num_resources = num_cache_resources,
            .xrm_class = NULLQUARK,
            .version = XtVersion,
            .extension = nullptr,
        },
    .ext_class =
        {
            .syn_resources = cache_synthetic_resources,
            .num_syn_resources = XtNumber(cache_synthetic_resources),
            .extension = nullptr,
        },
    .icon_class_cache = {.extension = nullptr},
};

XmvIconGadgetClassRec xmvIconGadgetClassRec = {
    .rect_class =
        {
            .superclass = reinterpret_cast<WidgetClass>(&xmGadgetClassRec),
            .class_name = Name("XmvIconGadget"),
            .widget_size = sizeof(XmvIconGadgetRec),
            .class_initialize = ClassInitialize,
            .class_part_initialize = ClassPartInitialize,
            .class_inited = False,
            .initialize = Initialize,
            .initialize_hook = nullptr,
            .rect1 = nullptr, // realize
            .rect2 = nullptr, // actions
            .rect3 = 0,
            .resources = resources,
            .num_resources = XtNumber(resources),
            .xrm_class = NULLQUARK,
            .rect4 = True,                    // compress_motion
            .rect5 = XtExposeCompressMaximal, // compress_exposure
            .rect6 = True,                    // compress_enterleave
            .rect7 = False,                   // visible_interest
            .destroy = Destroy,
            .resize = SetSize,
            .expose = Redisplay,
            .set_values = SetValues,
            .set_values_hook = nullptr,
            .set_values_almost = SetValuesAlmost,
            .get_values_hook = nullptr,
            .rect9 = nullptr,
            .version = XtVersion,
            .callback_private = nullptr,
            .rect10 = nullptr,
            .query_geometry = QueryGeometry,
            .rect11 = nullptr,
            .extension = &iconBaseClassExtRec,
        },
    .gadget_class =
        {
            .border_highlight = XmInheritBorderHighlight,
            .border_unhighlight = XmInheritBorderUnhighlight,
            .arm_and_activate = nullptr,
            .input_dispatch = InputDispatch,
            .visual_change = VisualChange,
            .syn_resources = synthetic_resources,
            .num_syn_resources = XtNumber(synthetic_resources),
            .cache_part = &IconClassCachePart,
            .extension = &_XmvIconGadClassExtRec,
        },
    .icon_class = {.setOverrideCallback = SetOverrideCallback, .menuProcs = nullptr},
};

WidgetClass xmvIconGadgetClass = reinterpret_cast<WidgetClass>(&xmvIconGadgetClassRec);

} // extern "C"

namespace {

// As it was before any class was prepared.
String unprepared_margin_name = nullptr;

void ClassInitialize() {
    unprepared_margin_name = cache_synthetic_resources[0].resource_name;
    iconBaseClassExtRec.record_type = XmQmotif;
    // The mirror is taken for one of this class.
    XtInitializeWidgetClass(xmLabelGadgetClass);
    XtAddConverter(XmRString, XmRIconPlacement, _XmCvtStringToIconPlacement, nullptr, 0);
}

// ---- Class parts ----------------------------------------------------------------------------------

XmGadgetClassExt GadgetExtensionOf(WidgetClass widget_class) {
    XmGadgetClassExt *slot = _XmGetGadgetClassExtPtr(widget_class, NULLQUARK);
    return slot ? *slot : nullptr;
}

void InheritProcedures(WidgetClass widget_class) {
    auto *record = reinterpret_cast<XmvIconGadgetClass>(widget_class);
    if (record->icon_class.setOverrideCallback == XmvInheritSetOverrideCallback) {
        record->icon_class.setOverrideCallback = SetOverrideCallback;
    }
    if (record->rect_class.resize == XtInheritResize) {
        record->rect_class.resize = SetSize;
    }
    // The toolkit has a name for inheriting this one as well, but leaves it to the class.
    if (record->gadget_class.cache_part == XmInheritCachePart) {
        record->gadget_class.cache_part = &IconClassCachePart;
    }
}

void InheritExtension(WidgetClass widget_class) {
    XmGadgetClassExt extension = GadgetExtensionOf(widget_class);
    XmGadgetClassExt inherited = GadgetExtensionOf(widget_class->core_class.superclass);
    if (!extension || !inherited) {
        return;
    }
    if (extension->widget_baseline == XmInheritBaselineProc) {
        extension->widget_baseline = inherited->widget_baseline;
    }
    if (extension->widget_display_rect == XmInheritDisplayRectProc) {
        extension->widget_display_rect = inherited->widget_display_rect;
    }
}

// ---- Menus ----------------------------------------------------------------------------------------

// A menu asks its entries; this one has no mnemonic, no accelerator, and nothing to activate.
void DisableCallback(Widget, XmActivateState) {}
char *NoAccelerator(Widget) {
    return nullptr;
}
KeySym NoMnemonic(Widget) {
    return NoSymbol;
}
char *NoCallbackName() {
    return nullptr;
}

XmMenuSavvyTraitRec menu_savvy = {
    .version = 0,
    .disableCallback = DisableCallback,
    .getAccelerator = NoAccelerator,
    .getMnemonic = NoMnemonic,
    .getActivateCBName = NoCallbackName,
};

// What is dragged from the gadget: its label, read from the mirror.
XmTransferTraitRec transfer = {
    .version = 0,
    .convertProc =
        [](Widget w, XtPointer client_data, XtPointer data) {
            _XmLabelConvert(w, client_data, static_cast<XmConvertCallbackStruct *>(data));
        },
};

// The toolkit looks for quarks in the table of units. It puts them there for the first gadget class of a
// program only, which has just been the label gadget's.
void PrepareUnits() {
    if (cache_synthetic_resources[0].resource_name != unprepared_margin_name) {
        return;
    }
    for (XmSyntheticResource &resource : cache_synthetic_resources) {
        const XrmQuark quark = XrmStringToQuark(resource.resource_name);
        resource.resource_name = reinterpret_cast<String>(static_cast<XtArgVal>(quark));
    }
}

void ClassPartInitialize(WidgetClass widget_class) {
    PrepareUnits();
    InheritProcedures(widget_class);
    InheritExtension(widget_class);
    SetFastSubclass(widget_class, XmLABEL_GADGET_BIT);
    XmeTraitSet(widget_class, XmQTmenuSavvy, &menu_savvy);
    XmeTraitSet(widget_class, XmQTtransfer, &transfer);
}

XmMenuProc &MenuProcOf(Widget w) {
    XmMenuProc &procedure = reinterpret_cast<XmvIconGadgetClass>(XtClass(w))->icon_class.menuProcs;
    if (!procedure) {
        procedure = reinterpret_cast<XmMenuProc>(_XmGetMenuProcContext());
    }
    return procedure;
}

unsigned char MenuTypeOf(Widget parent) {
    return XmIsRowColumn(parent) ? RC_Type(parent) : static_cast<unsigned char>(XmWORK_AREA);
}

// ---- Colours --------------------------------------------------------------------------------------

struct Colors {
    Screen *screen = nullptr;
    Colormap colormap = None;
    Pixel background = 0;
    Pixel foreground = 0;
    Pixel top_shadow = 0;
    Pixel bottom_shadow = 0;
};

// Most gadgets of a client have one background. The toolkit's default procedures would read it through
// XtGetValues, once for each colour.
Colors &DerivedColors(Widget w) {
    static Colors colors;
    Widget parent = XtParent(w);
    const Pixel background = CacheOf(w).background;
    if (colors.screen != XtScreen(parent) || colors.colormap != parent->core.colormap ||
        colors.background != background) {
        Pixel select = 0;
        colors.screen = XtScreen(parent);
        colors.colormap = parent->core.colormap;
        colors.background = background;
        XmGetColors(colors.screen, colors.colormap, background, &colors.foreground,
                    &colors.top_shadow, &colors.bottom_shadow, &select);
    }
    return colors;
}

void HandBack(XrmValue *value, Pixel &color) {
    value->addr = reinterpret_cast<XPointer>(&color);
    value->size = sizeof color;
}

void ForegroundDefault(Widget w, int, XrmValue *value) {
    HandBack(value, DerivedColors(w).foreground);
}

void TopShadowDefault(Widget w, int, XrmValue *value) {
    HandBack(value, DerivedColors(w).top_shadow);
}

void BottomShadowDefault(Widget w, int, XrmValue *value) {
    HandBack(value, DerivedColors(w).bottom_shadow);
}

// ---- Life -----------------------------------------------------------------------------------------

void RepairAlignment(Widget w) {
    if (!IsValidAlignment(w)) {
        CacheOf(w).alignment = XmALIGNMENT_CENTER;
    }
}

unsigned char DirectionOf(Widget parent) {
    return XmIsManager(parent)
               ? XmDirectionToStringDirection(
                     reinterpret_cast<XmManagerWidget>(parent)->manager.string_direction)
               : static_cast<unsigned char>(XmSTRING_DIRECTION_L_TO_R);
}

void RepairDirection(Widget w) {
    auto &direction = CacheOf(w).string_direction;
    if (direction == XmSTRING_DIRECTION_DEFAULT) {
        direction = DirectionOf(XtParent(w));
    }
    if (!IsValidDirection(w)) {
        direction = XmSTRING_DIRECTION_L_TO_R;
    }
}

void TakeLabelAtCreation(Widget w) {
    auto &label = IconOf(w).label_string;
    if (!label) {
        label = XmeGetLocalizedString(nullptr, w, Name(XmNlabelString), XtName(w));
    } else if (XmeStringIsValid(label)) {
        label = _XmStringCreate(label);
    } else {
        XmeWarning(w, Name(_XmMsgLabel_0003));
        label = NameAsLabel(w);
    }
}

void TakeSize(Widget request, Widget w) {
    if (request->core.width == 0) {
        w->core.width = 0;
    }
    if (request->core.height == 0) {
        w->core.height = 0;
    }
}

// The arrow is drawn with the GCs, and the size needs the arrow.
void Initialize(Widget request, Widget new_w, ArgList, Cardinal *) {
    auto &icon = IconOf(new_w);
    icon.arrow_pixmap = XmUNSPECIFIED_PIXMAP;
    icon.arrow_width = icon.arrow_height = 0;
    icon.pixmap_x = icon.pixmap_y = 0;
    MenuProcOf(new_w);
    CacheOf(new_w).skip_callback = False;
    RepairAlignment(new_w);
    RepairDirection(new_w);
    TakeFonts(new_w);
    CacheOf(new_w).menu_type = MenuTypeOf(XtParent(new_w));
    TakeLabelAtCreation(new_w);
    TakeSize(request, new_w);
    FetchTextGCs(new_w);
    FetchShadowGCs(new_w);
    if (CacheOf(new_w).show_arrow) {
        _XmCreateArrowPixmaps(new_w);
    }
    CreateMirror(new_w);
    MeasureContents(new_w);
    XtClass(new_w)->core_class.resize(new_w);
    TakeMenuTraversal(new_w);
    TakeMenuHighlight(new_w);
    SelectInput(new_w);
}

void Destroy(Widget w) {
    auto &icon = IconOf(w);
    _XmStringFree(icon.label_string);
    ReleaseFonts(icon.font_list);
    if (icon.arrow_pixmap != XmUNSPECIFIED_PIXMAP) {
        ReleaseArrowPixmap(icon.arrow_pixmap);
    }
    ForgetPictures(w);
    ReleaseMirror(w);
    _XmCacheDelete(icon.cache);
    ReleaseTextGCs(w);
    ReleaseShadowGCs(w);
    if (icon.default_action_callback) {
        XtRemoveAllCallbacks(w, XmNdefaultActionCallback);
    }
}

// ---- Input ----------------------------------------------------------------------------------------

void GiveHelp(Widget w, XEvent *event) {
    if (IsInMenuPane(w)) {
        CallMenuProcedure(XmMENU_POPDOWN, w, event);
    }
    _XmSocorro(w, event, nullptr, nullptr);
}

void InputDispatch(Widget w, XEvent *event, Mask mask) {
    if (mask & XmHELP_EVENT) {
        GiveHelp(w, event);
    } else if (mask & XmENTER_EVENT) {
        _XmEnterGadget(w, event, nullptr, nullptr);
    } else if (mask & XmLEAVE_EVENT) {
        _XmLeaveGadget(w, event, nullptr, nullptr);
    } else if (mask & XmFOCUS_IN_EVENT) {
        _XmFocusInGadget(w, event, nullptr, nullptr);
    } else if (mask & XmFOCUS_OUT_EVENT) {
        _XmFocusOutGadget(w, event, nullptr, nullptr);
    } else if (mask & XmBDRAG_EVENT) {
        _XmProcessDrag(w, event, nullptr, nullptr);
    }
}

Boolean VisualChange(Widget, Widget, Widget) {
    return False;
}

// ---- Resources that are calculated ------------------------------------------------------------------

void GetLabelString(Widget w, int, XtArgVal *value) {
    const auto &icon = IconOf(w);
    *value = reinterpret_cast<XtArgVal>(_XmStringCreateExternal(icon.font_list, icon.label_string));
}

} // namespace

// ---- What creation and changes share ----------------------------------------------------------------

namespace corvidlmw::icon_gadget {

// The toolkit looks the values up by a number that its name has.
bool IsValidAlignment(Widget w) {
    static const XmRepTypeId type = XmRepTypeGetId(Name(XmRAlignment));
    return XmRepTypeValidValue(type, CacheOf(w).alignment, w) != False;
}

bool IsValidDirection(Widget w) {
    static const XmRepTypeId type = XmRepTypeGetId(Name(XmRStringDirection));
    return XmRepTypeValidValue(type, CacheOf(w).string_direction, w) != False;
}

void TakeFonts(Widget w) {
    auto &fonts = IconOf(w).font_list;
    if (!fonts) {
        const bool own_class = XtClass(w) == xmvIconGadgetClass;
        fonts = XmeGetDefaultRenderTable(w, own_class ? XmLABEL_FONTLIST : XmBUTTON_FONTLIST);
    }
    fonts = AcquireFonts(fonts);
}

_XmString NameAsLabel(Widget w) {
    return XmStringLtoRCreate(XtName(w), Name("FONTLIST_DEFAULT_TAG_STRING"));
}

void TakeMenuTraversal(Widget w) {
    const int type = CacheOf(w).menu_type;
    if (XtClass(w) == xmvIconGadgetClass &&
        (type == XmMENU_PULLDOWN || type == XmMENU_POPUP || type == XmMENU_OPTION)) {
        RecordOf(w).gadget.traversal_on = False;
        RecordOf(w).gadget.highlight_on_enter = False;
    }
}

void TakeMenuHighlight(Widget w) {
    const int type = CacheOf(w).menu_type;
    if (type == XmMENU_BAR || type == XmMENU_PULLDOWN || type == XmMENU_POPUP) {
        RecordOf(w).gadget.highlight_thickness = 0;
    }
}

void SelectInput(Widget w) {
    RecordOf(w).gadget.event_mask = XmENTER_EVENT | XmLEAVE_EVENT | XmFOCUS_IN_EVENT |
                                    XmFOCUS_OUT_EVENT | XmHELP_EVENT | XmBDRAG_EVENT;
}

// The procedure takes the parent for a row column without asking, and NULL for a pointer only as one.
void CallMenuProcedure(int what, Widget w, XEvent *event) {
    Widget parent = XtParent(w);
    const XmMenuProc procedure = MenuProcOf(w);
    if (!procedure || !XmIsRowColumn(parent)) {
        return;
    }
    Widget object = what == XmMENU_POPDOWN ? parent : w;
    procedure(what, object, 0, static_cast<XtPointer>(event), static_cast<XtPointer>(nullptr));
}

} // namespace corvidlmw::icon_gadget

// ---- Public functions ---------------------------------------------------------------------------

extern "C" {

Widget XmvCreateIconGadget(Widget parent, char *name, ArgList args, Cardinal argcount) {
    return XtCreateWidget(name, xmvIconGadgetClass, parent, args, argcount);
}

} // extern "C"
