#include <tests/manual/ResourceTypes.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/managers/Grid.h>

#include <Xm/PanedW.h>
#include <Xm/PushBG.h>
#include <Xm/XmP.h>

#include <algorithm>
#include <map>

namespace corvidlmw::test {
namespace {

const std::multimap<std::pair<std::string, unsigned>, std::string> plain_types = {
    {{XmRBoolean, 1}, "Boolean"},
    {{XmRInt, 4}, "int"},
    {{XmRInt, 8}, "WidgetClass"}, // of a class pointer that bears the wrong name
    {{XmRShort, 2}, "short"},
    {{XmRDimension, 2}, "Dimension"},
    {{XmRHorizontalDimension, 2}, "Dimension"},
    {{XmRVerticalDimension, 2}, "Dimension"},
    {{XmRPosition, 2}, "Position"},
    {{XmRHorizontalPosition, 2}, "Position"},
    {{XmRPixel, 8}, "Pixel"},
    {{XmRCursor, 8}, "Cursor"},
    {{XmRAtom, 8}, "Atom"},
    {{XmRCallback, 8}, "XtCallbackList"},
    {{XmRFontList, 8}, "XmFontList"},
    {{XmRXmString, 8}, "XmString"},
    {{XmRGadgetPixmap, 8}, "Pixmap"},
    {{XmRXmStringTable, 8}, "XmStringTable"},
    {{XmRPointer, 8}, "XtPointer"},
    {{XmRPointer, 8}, "Widget"},
    {{XmRPointer, 8}, "XmGraphLayoutProc"},
    {{XmRFunction, 8}, "XtOrderProc"},
    {{XtRWindow, 8}, "Widget"},
};

#define VALUE(name) std::pair(#name, static_cast<XtArgVal>(name))
const std::map<std::string, XtArgVal> named_values = {
    VALUE(True),
    VALUE(False),
    VALUE(NULL),
    VALUE(None),
    VALUE(XmNEVER),
    VALUE(XmHORIZONTAL),
    VALUE(XmVERTICAL),
    VALUE(XmGRAPH),
    VALUE(XmPOSITION_RELATIVE),
    VALUE(XmUNDIRECTED),
    VALUE(XmARC_LEFT),
    VALUE(XmARC_RIGHT),
    VALUE(LineSolid),
    VALUE(CapNotLast),
    VALUE(XmSTRING_DIRECTION_DEFAULT),
    VALUE(XmBROWSE_SELECT),
    VALUE(XmVARIABLE),
    VALUE(XmAS_NEEDED),
    VALUE(XmTAB_GROUP),
    VALUE(XmSTICKY_TAB_GROUP),
    VALUE(NorthWestGravity),
    VALUE(XmGRID_UNSET),
    VALUE(XmLAST_POSITION),
    VALUE(XmINVALID_DIMENSION),
    VALUE(XmSHADOW_ETCHED_IN),
    VALUE(XmUNSPECIFIED_PIXMAP),
    VALUE(XmICON_RIGHT),
    VALUE(XmALIGNMENT_CENTER),
    {"xmPushButtonGadgetClass", reinterpret_cast<XtArgVal>(xmPushButtonGadgetClass)},
};
#undef VALUE

} // namespace

bool IsPlain(const XtResource &resource) {
    return plain_types.count({resource.resource_type, resource.resource_size}) > 0;
}

bool TypeFits(const XtResource &resource, const std::string &type) {
    if (!IsPlain(resource)) { // an enumeration
        return type == (resource.resource_size == 4 ? "int" : "unsigned char");
    }
    const auto [from, to] =
        plain_types.equal_range({resource.resource_type, resource.resource_size});
    return std::any_of(from, to, [&](const auto &row) { return row.second == type; });
}

std::optional<XtArgVal> NumberOf(const std::string &text) {
    const auto named = named_values.find(text);
    if (named != named_values.end()) {
        return named->second;
    }
    char *end = nullptr;
    const long value = std::strtol(text.c_str(), &end, 10);
    return end != text.c_str() && *end == '\0' ? std::optional(static_cast<XtArgVal>(value))
                                               : std::nullopt;
}

} // namespace corvidlmw::test
