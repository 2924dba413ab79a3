// String converters of the enumerated resources, and the unit conversion of the spacings.
//
// Each converter folds its string to lower case, skips a leading "xm", and keeps its result in a
// static variable of its own.

#include <corvidlmw/graph/GraphI.h>

#include <algorithm>
#include <cctype>
#include <string_view>

namespace {

struct NamedValue {
    const char *name;
    unsigned char value;
};

constexpr NamedValue arc_directions[] = {
    {"directed", XmDIRECTED},
    {"bidirected", XmBIDIRECTED},
    {"undirected", XmUNDIRECTED},
};

constexpr NamedValue auto_layout_types[] = {
    {"never", XmNEVER},     {"false", XmNEVER},         {"always", XmALWAYS},
    {"true", XmALWAYS},     {"arcs_only", XmARCS_ONLY}, {"nodes_only", XmNODES_ONLY},
    {"partial", XmPARTIAL},
};

// The last two belong to the toolkit's own representation type of this name, whose converter
// this one replaces.
constexpr NamedValue line_styles[] = {
    {"linesolid", LineSolid},
    {"lineonoffdash", LineOnOffDash},
    {"linedoubledash", LineDoubleDash},
    {"no_line", 0},
    {"single", 1},
};

constexpr NamedValue cap_styles[] = {
    {"capnotlast", CapNotLast},
    {"capbutt", CapButt},
    {"capround", CapRound},
    {"capprojecting", CapProjecting},
};

constexpr NamedValue layout_styles[] = {
    {"graph", XmGRAPH},
    {"butterfly", XmBUTTERFLY},
};

constexpr NamedValue arc_draw_modes[] = {
    {"position_fixed", XmPOSITION_FIXED},
    {"position_relative", XmPOSITION_RELATIVE},
    {"position_proportional", XmPOSITION_PROPORTIONAL},
};

corvidlmw::Text Folded(const char *text) {
    corvidlmw::Text folded = text;
    std::transform(folded.begin(), folded.end(), folded.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return folded;
}

// The toolkit frees nothing of `to` and copies `size` bytes, so the result outlives the call.
template <typename Result, std::size_t n>
void Convert(const NamedValue (&table)[n], const char *type, Result &result, XrmValue *from,
             XrmValue *to) {
    to->size = sizeof result;
    to->addr = reinterpret_cast<XPointer>(&result);

    const char *given = from->addr ? from->addr : "";
    const corvidlmw::Text folded = Folded(given);
    std::string_view wanted = folded;
    if (wanted.starts_with("xm")) {
        wanted.remove_prefix(2);
    }
    const auto *found = std::find_if(std::begin(table), std::end(table),
                                     [&](const NamedValue &v) { return wanted == v.name; });
    if (found == std::end(table)) {
        to->size = 0;
        to->addr = nullptr;
        XtStringConversionWarning(given, type);
        return;
    }
    result = found->value;
}

} // namespace

extern "C" {

void _XmCvtStringToArcDirection(XrmValue *, Cardinal *, XrmValue *from, XrmValue *to) {
    static unsigned char result;
    Convert(arc_directions, "_XmCvtStringToArcDirection", result, from, to);
}

// The resource is an int, so the result is one too. A bad value is reported as a bad
// "ArcDirection".
void _XmCvtStringToAutoLayoutType(XrmValue *, Cardinal *, XrmValue *from, XrmValue *to) {
    static int result;
    Convert(auto_layout_types, "ArcDirection", result, from, to);
}

void _XmCvtStringToLineStyle(XrmValue *, Cardinal *, XrmValue *from, XrmValue *to) {
    static unsigned char result;
    Convert(line_styles, "_XmCvtStringToLineStyle", result, from, to);
}

void _XmCvtStringToCapStyle(XrmValue *, Cardinal *, XrmValue *from, XrmValue *to) {
    static unsigned char result;
    Convert(cap_styles, "_XmCvtStringToCapStyle", result, from, to);
}

// A bad value is reported as a bad "CapStyle".
void _XmCvtStringToLayoutStyle(XrmValue *, Cardinal *, XrmValue *from, XrmValue *to) {
    static unsigned char result;
    Convert(layout_styles, "CapStyle", result, from, to);
}

void _XmCvtStringToArcDrawMode(XrmValue *, Cardinal *, XrmValue *from, XrmValue *to) {
    static unsigned char result;
    Convert(arc_draw_modes, "_XmCvtStringToArcDrawMode", result, from, to);
}

// ---- Units --------------------------------------------------------------------------------------
//
// The child pair asks for the vertical orientation and the sibling pair for the horizontal one, so
// with either of them the two take opposite axes. Creation and resource changes convert by the
// opposite axes again; that asymmetry is meant.

void _XmFromChildPixels(Widget graph, int offset, XtArgVal *value) {
    const bool vertical = corvidlmw::graph::GraphOf(graph).orientation == XmVERTICAL;
    (vertical ? XmeFromHorizontalPixels : XmeFromVerticalPixels)(graph, offset, value);
}

XmImportOperator _XmToChildPixels(Widget graph, int offset, XtArgVal *value) {
    const bool vertical = corvidlmw::graph::GraphOf(graph).orientation == XmVERTICAL;
    return (vertical ? XmeToHorizontalPixels : XmeToVerticalPixels)(graph, offset, value);
}

void _XmFromSiblingPixels(Widget graph, int offset, XtArgVal *value) {
    const bool horizontal = corvidlmw::graph::GraphOf(graph).orientation == XmHORIZONTAL;
    (horizontal ? XmeFromHorizontalPixels : XmeFromVerticalPixels)(graph, offset, value);
}

XmImportOperator _XmToSiblingPixels(Widget graph, int offset, XtArgVal *value) {
    const bool horizontal = corvidlmw::graph::GraphOf(graph).orientation == XmHORIZONTAL;
    return (horizontal ? XmeToHorizontalPixels : XmeToVerticalPixels)(graph, offset, value);
}

} // extern "C"
