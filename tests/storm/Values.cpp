#include <tests/storm/Values.h>

#include <tests/storm/Step.h>
#include <tests/support/DisplayTest.h>

#include <corvidlmw/graph/Graph.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>

namespace corvidlmw::storm {

namespace {

bool IsNumber(const std::string &word) {
    const std::size_t first = word.starts_with('-') ? 1 : 0;
    return word.size() > first &&
           std::all_of(word.begin() + static_cast<std::ptrdiff_t>(first), word.end(),
                       [](unsigned char c) { return std::isdigit(c); });
}

void NoLayout(Widget) {}
void MoveLayout(Widget graph) {
    XmGraphMoveAll(graph, 3, 5);
}
void LayoutAgain(Widget graph) {
    XmGraphAdjustSize(graph);
}

void Nothing(Widget, XtPointer, XtPointer) {}
XtCallbackRec one_callback[] = {{Nothing, nullptr}, {nullptr, nullptr}};
XtCallbackRec no_callback[] = {{nullptr, nullptr}};

XtArgVal CallbacksAt(int index) {
    return reinterpret_cast<XtArgVal>(index ? one_callback : no_callback);
}

XtArgVal LayoutAt(int index) {
    static constexpr XmGraphLayoutProc layouts[] = {NoLayout, MoveLayout, LayoutAgain};
    return reinterpret_cast<XtArgVal>(
        layouts[static_cast<std::size_t>(index) % std::size(layouts)]);
}

} // namespace

Values::~Values() {
    for (XmString string : strings_)
        XmStringFree(string);
}

XtArgVal Values::Fail() {
    good_ = false;
    return 0;
}

XtArgVal Values::Of(const std::string &word) {
    if (IsNumber(word))
        return static_cast<XtArgVal>(std::strtol(word.c_str(), nullptr, 10));
    if (word == "nil")
        return 0;
    if (word == "all")
        return static_cast<XtArgVal>(last_count_);
    switch (word.empty() ? '\0' : word.front()) {
    case '@': return WidgetIn(word);
    case '~': return DyingIn(word);
    case '"': return String(word);
    case '[': return Array(word);
    default: return word.find('@') != std::string::npos ? OwnList(word) : Named(word);
    }
}

XtArgVal Values::WidgetIn(const std::string &word) {
    Widget w = world_.Find(std::atoi(word.c_str() + 1));
    return w ? reinterpret_cast<XtArgVal>(w) : Fail();
}

XtArgVal Values::DyingIn(const std::string &word) {
    Widget w = world_.FindLastingOrNot(std::atoi(word.c_str() + 1));
    return w ? reinterpret_cast<XtArgVal>(w) : Fail();
}

XtArgVal Values::String(const std::string &word) {
    texts_.push_back(Unquote(word));
    const XmString string =
        XmStringGenerate(texts_.back().data(), nullptr, XmCHARSET_TEXT, nullptr);
    strings_.push_back(string);
    return reinterpret_cast<XtArgVal>(string);
}

char *Values::Text(const std::string &word) {
    texts_.push_back(Unquote(word));
    return texts_.back().data();
}

// Numbers lie as ints, all else as pointers.
XtArgVal Values::Array(const std::string &word) {
    const auto entries = ListIn(word);
    last_count_ = static_cast<int>(entries.size());
    if (!entries.empty() && IsNumber(entries.front())) {
        auto &numbers = numbers_.emplace_back(entries.size() + slack);
        for (std::size_t i = 0; i < entries.size(); i++)
            numbers[i] = static_cast<int>(Of(entries[i]));
        return reinterpret_cast<XtArgVal>(numbers.data());
    }
    auto &array = arrays_.emplace_back(entries.size() + slack);
    for (std::size_t i = 0; i < entries.size(); i++)
        array[i] = Of(entries[i]);
    return reinterpret_cast<XtArgVal>(array.data());
}

XtArgVal Values::OwnList(const std::string &word) {
    const std::size_t at = word.find('@');
    const std::string list = word.substr(0, at);
    auto *graph = reinterpret_cast<Widget>(WidgetIn(word.substr(at)));
    if (!graph || !XmIsGraph(graph))
        return Fail();
    int &count = last_count_;
    if (list == "nodes")
        return reinterpret_cast<XtArgVal>(XmGraphGetNodes(graph, &count));
    if (list == "arcs")
        return reinterpret_cast<XtArgVal>(XmGraphGetArcs(graph, &count));
    if (list == "selected")
        return reinterpret_cast<XtArgVal>(XmGraphGetSelectedNodes(graph, &count));
    if (list == "selectedArcs")
        return reinterpret_cast<XtArgVal>(XmGraphGetSelectedArcs(graph, &count));
    if (list == "roots")
        return reinterpret_cast<XtArgVal>(XmGraphGetRoots(graph, &count));
    return Fail();
}

XtArgVal Values::Named(const std::string &word) {
    const auto parts = SplitAt(word, ':');
    if (parts.size() != 2)
        return Fail();
    const int index = std::abs(std::atoi(parts[1].c_str()));
    if (parts[0] == "pixmap")
        return world_.PixmapAt(index);
    if (parts[0] == "fonts")
        return reinterpret_cast<XtArgVal>(world_.FontsAt(index));
    if (parts[0] == "cursor")
        return world_.CursorAt(index);
    if (parts[0] == "atom")
        return world_.AtomAt(index);
    if (parts[0] == "layout")
        return LayoutAt(index);
    if (parts[0] == "callbacks")
        return CallbacksAt(index);
    if (parts[0] == "class")
        return reinterpret_cast<XtArgVal>(ClassOf(parts[1]));
    return Fail();
}

} // namespace corvidlmw::storm
