// The string converters: every string gives what its table says, or nothing. The toolkit, which
// keeps every string that it ever converted, is asked for those alone that mean something.
#include <tests/fuzz/Client.h>

#include <corvidlmw/gadget/IconGP.h>
#include <corvidlmw/graph/ArcP.h>
#include <corvidlmw/graph/GraphP.h>

#include <algorithm>
#include <cstring>

using namespace corvidlmw::fuzz;

namespace {

struct Meaning {
    const char *text;
    int value;
};

struct Conversion {
    const char *type;
    XtConverter convert;
    std::size_t size;
    std::vector<Meaning> meanings;
};

const Conversion conversions[] = {
    {XmRArcDirection,
     _XmCvtStringToArcDirection,
     1,
     {{"directed", 1}, {"bidirected", 0}, {"undirected", 2}}},
    {XmRAutoLayoutType,
     _XmCvtStringToAutoLayoutType,
     sizeof(int),
     {{"never", 0},
      {"false", 0},
      {"always", 1},
      {"true", 1},
      {"arcs_only", 2},
      {"nodes_only", 3},
      {"partial", 4}}},
    {XmRLineStyle,
     _XmCvtStringToLineStyle,
     1,
     {{"linesolid", 0},
      {"lineonoffdash", 1},
      {"linedoubledash", 2},
      {"no_line", 0},
      {"single", 1}}},
    {XmRCapStyle,
     _XmCvtStringToCapStyle,
     1,
     {{"capnotlast", 0}, {"capbutt", 1}, {"capround", 2}, {"capprojecting", 3}}},
    {XmRLayoutStyle, _XmCvtStringToLayoutStyle, 1, {{"graph", 0}, {"butterfly", 1}}},
    {XmRArcDrawMode,
     _XmCvtStringToArcDrawMode,
     1,
     {{"position_fixed", 0}, {"position_relative", 1}, {"position_proportional", 2}}},
    {XmRIconPlacement,
     _XmCvtStringToIconPlacement,
     sizeof(int),
     {{"icon_left", XmICON_LEFT},
      {"icon_right", XmICON_RIGHT},
      {"icon_top", XmICON_TOP},
      {"icon_bottom", XmICON_BOTTOM}}},
};

bool Means(const std::string &text, const std::string &meaning) {
    const auto letter = [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; };
    std::string folded(text.size(), ' ');
    std::transform(text.begin(), text.end(), folded.begin(), letter);
    return folded == meaning || folded == "xm" + meaning;
}

int ValueAt(const char *address, std::size_t size) {
    int value = 0;
    std::memcpy(size == 1 ? static_cast<void *>(std::memset(&value, 0, sizeof value)) : &value,
                address, size);
    return value;
}

void CheckThroughToolkit(Widget stage, const Conversion &conversion, XrmValue from, int value) {
    char result[sizeof(int)] = {};
    XrmValue to = {sizeof result, result};
    Require(XtConvertAndStore(stage, XtRString, &from, conversion.type, &to));
    Require(to.size == conversion.size && ValueAt(result, to.size) == value);
}

void Check(Widget stage, const Conversion &conversion, std::string text) {
    XrmValue from = {static_cast<unsigned>(text.size() + 1), text.data()};
    XrmValue to = {};
    Complaints::Current() = {};
    conversion.convert(nullptr, nullptr, &from, &to);
    const auto meaning = std::find_if(conversion.meanings.begin(), conversion.meanings.end(),
                                      [&](const Meaning &m) { return Means(text, m.text); });
    const bool known = meaning != conversion.meanings.end();
    Require(!known || Complaints::Current().warnings.empty());
    if (!known) {
        Require(to.addr == nullptr && to.size == 0);
        return;
    }
    Require(to.size == conversion.size && ValueAt(to.addr, to.size) == meaning->value);
    CheckThroughToolkit(stage, conversion, from, meaning->value);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const Widget stage = [] {
        XtInitializeWidgetClass(xmGraphWidgetClass);
        XtInitializeWidgetClass(xmvIconGadgetClass);
        return Stage();
    }();
    for (const std::string &line : LinesOf(data, size)) {
        for (const Conversion &conversion : conversions) {
            Check(stage, conversion, line);
        }
    }
    Complaints::Current() = {};
    return 0;
}
