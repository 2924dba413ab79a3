// The string converters: every string gives what its table says, or nothing and one warning.
#include <tests/fuzz/Client.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>

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
    std::size_t size;
    std::vector<Meaning> meanings;
};

const Conversion conversions[] = {
    {XmRArcDirection, 1, {{"directed", 1}, {"bidirected", 0}, {"undirected", 2}}},
    {XmRAutoLayoutType,
     sizeof(int),
     {{"never", 0},
      {"false", 0},
      {"always", 1},
      {"true", 1},
      {"arcs_only", 2},
      {"nodes_only", 3},
      {"partial", 4}}},
    {XmRLineStyle,
     1,
     {{"linesolid", 0},
      {"lineonoffdash", 1},
      {"linedoubledash", 2},
      {"no_line", 0},
      {"single", 1}}},
    {XmRCapStyle, 1, {{"capnotlast", 0}, {"capbutt", 1}, {"capround", 2}, {"capprojecting", 3}}},
    {XmRLayoutStyle, 1, {{"graph", 0}, {"butterfly", 1}}},
    {XmRArcDrawMode,
     1,
     {{"position_fixed", 0}, {"position_relative", 1}, {"position_proportional", 2}}},
    {XmRIconPlacement,
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

void Check(Widget stage, const Conversion &conversion, std::string text) {
    XrmValue from = {static_cast<unsigned>(text.size() + 1), text.data()};
    char result[sizeof(int)] = {};
    XrmValue to = {sizeof result, result};
    Complaints::Current() = {};
    const bool converted = XtConvertAndStore(stage, XtRString, &from, conversion.type, &to);
    const auto meaning = std::find_if(conversion.meanings.begin(), conversion.meanings.end(),
                                      [&](const Meaning &m) { return Means(text, m.text); });
    if (meaning == conversion.meanings.end()) {
        Require(!converted);
        return;
    }
    Require(converted && to.size == conversion.size && Complaints::Current().warnings.empty());
    Require(ValueAt(result, to.size) == meaning->value);
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
