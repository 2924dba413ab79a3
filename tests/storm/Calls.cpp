// The public interface by the names of its functions.
#include <tests/storm/Acts.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/list/LmList.h>
#include <corvidlmw/managers/GridP.h>
#include <corvidlmw/scrollbar/SvScrollBar.h>

#include <cstdlib>
#include <utility>

namespace corvidlmw::storm {

namespace {

struct Arguments {
    World &world;
    const Step &step; // call NAME ARGUMENT...
    Values values{world};

    std::size_t size() const { return step.words.size() - 2; }
    const std::string &Word(std::size_t i) const { return step.words[i + 2]; }
    template <typename T>
    T As(std::size_t i) {
        return values.As<T>(Word(i));
    }
};

using Function = bool (*)(Arguments &arguments);

// ---- Plain functions: each argument is the value of its word ------------------------------------------

template <auto function, typename Result, typename... Types, std::size_t... i>
bool CallPlain(Arguments &arguments, Result (*)(Types...), std::index_sequence<i...>) {
    if (arguments.size() != sizeof...(Types))
        return false;
    const std::tuple<Types...> taken{arguments.As<Types>(i)...};
    if (arguments.values.Good())
        std::apply(function, taken);
    return arguments.values.Good();
}

template <auto function, typename Result, typename... Types>
bool Plain(Arguments &arguments, Result (*signature)(Types...)) {
    return CallPlain<function>(arguments, signature, std::index_sequence_for<Types...>{});
}

template <auto function>
bool Plain(Arguments &arguments) {
    return Plain<function>(arguments, function);
}

// ---- Functions that give something away ------------------------------------------------------------------

// call XmArcGetRegion ARC
bool GetRegion(Arguments &arguments) {
    Widget arc = arguments.As<Widget>(0);
    if (!arguments.values.Good())
        return false;
    if (const Region region = XmArcGetRegion(arc))
        XDestroyRegion(region);
    return true;
}

// call XmGraphGetArcsBetweenNodes GRAPH FROM TO
bool GetArcsBetween(Arguments &arguments) {
    Widget graph = arguments.As<Widget>(0);
    Widget from = arguments.As<Widget>(1), to = arguments.As<Widget>(2);
    if (!arguments.values.Good())
        return false;
    int count = 0;
    XtFree(reinterpret_cast<char *>(XmGraphGetArcsBetweenNodes(graph, from, to, &count)));
    return true;
}

// call XmGraphCreateOverView NUMBER GRAPH PARENT
bool CreateOverview(Arguments &arguments) {
    Widget graph = arguments.As<Widget>(1), parent = arguments.As<Widget>(2);
    const int id = std::atoi(arguments.Word(0).c_str());
    if (!arguments.values.Good() || arguments.world.Find(id))
        return false;
    if (Widget overview = XmGraphCreateOverView(graph, parent))
        arguments.world.Bind(id, overview);
    return true;
}

// call XmCreateAttachedArc NUMBER GRAPH FROM TO
bool CreateAttachedArc(Arguments &arguments) {
    Widget graph = arguments.As<Widget>(1);
    Widget from = arguments.As<Widget>(2), to = arguments.As<Widget>(3);
    const int id = std::atoi(arguments.Word(0).c_str());
    if (!arguments.values.Good() || arguments.world.Find(id) || !graph || !XmIsGraph(graph))
        return false;
    arguments.world.Bind(
        id, XmCreateAttachedArc(graph, const_cast<char *>("arc"), from, to, nullptr, 0));
    return true;
}

template <auto function>
bool FindPositions(Widget list, XmString item, int **positions, int *count) {
    if constexpr (std::is_same_v<decltype(function), decltype(&LmListGetMatchPos)>)
        return function(list, item, positions, count);
    else
        return function(list, positions, count);
}

// call LmListGetMatchPos LIST ITEM, call LmListGetSelectedPos LIST
template <auto function>
bool GetPositions(Arguments &arguments) {
    Widget list = arguments.As<Widget>(0);
    XmString item = arguments.size() > 1 ? arguments.As<XmString>(1) : nullptr;
    if (!arguments.values.Good())
        return false;
    int *positions = nullptr, count = 0;
    if (FindPositions<function>(list, item, &positions, &count))
        XtFree(reinterpret_cast<char *>(positions));
    return true;
}

// call XmvIconGadgetGetBaselines GADGET
bool GetBaselines(Arguments &arguments) {
    Widget gadget = arguments.As<Widget>(0);
    if (!arguments.values.Good())
        return false;
    Dimension *baselines = nullptr;
    int count = 0;
    if (XmvIconGadgetGetBaselines(gadget, &baselines, &count))
        XtFree(reinterpret_cast<char *>(baselines));
    return true;
}

// ---- Functions with arrays of their own ------------------------------------------------------------------

// call LmListSetTable LIST COLUMNS CELL...
bool SetTable(Arguments &arguments) {
    Widget list = arguments.As<Widget>(0);
    const int columns = std::atoi(arguments.Word(1).c_str());
    std::vector<char *> cells;
    for (std::size_t i = 2; i < arguments.size(); i++)
        cells.push_back(arguments.values.Text(arguments.Word(i)));
    if (!arguments.values.Good())
        return false;
    const int rows = columns > 0 ? static_cast<int>(cells.size()) / columns : -1;
    LmListSetTable(list, cells.data(), rows, columns);
    return true;
}

// call LmListSetPositionIcons LIST POSITION ICON POSITION ICON...
bool SetIcons(Arguments &arguments) {
    Widget list = arguments.As<Widget>(0);
    std::vector<LmListIconEntry> entries;
    for (std::size_t i = 1; i + 1 < arguments.size(); i += 2)
        entries.push_back({arguments.As<int>(i), arguments.As<Pixmap>(i + 1)});
    if (arguments.values.Good())
        LmListSetPositionIcons(list, entries.data(), static_cast<int>(entries.size()));
    return arguments.values.Good();
}

// call XmListSetAttributes LIST POSITION...
bool SetAttributes(Arguments &arguments) {
    Widget list = arguments.As<Widget>(0);
    std::vector<LmListAttributeEntry> entries;
    for (std::size_t i = 1; i < arguments.size(); i++)
        entries.push_back({arguments.As<XtArgVal>(i), {}});
    if (arguments.values.Good())
        XmListSetAttributes(list, entries.data(), static_cast<int>(entries.size()));
    return arguments.values.Good();
}

// ---- Functions that end the program where an argument is out of range ----------------------------------

template <auto function, int XmGridPart::*lines>
bool InRange(Arguments &arguments) {
    Widget grid = arguments.As<Widget>(0);
    const int line = arguments.As<int>(1);
    if (!arguments.values.Good())
        return false;
    const bool in_range = !grid || !XmIsGrid(grid) ||
                          (line >= 0 && line < reinterpret_cast<XmGridWidget>(grid)->grid.*lines);
    return in_range && Plain<function>(arguments);
}

// ---- The table ---------------------------------------------------------------------------------------

#define PLAIN(function)                                                                            \
    { #function, Plain < function> }
const std::map<std::string, Function> functions = {
    PLAIN(XmGraphLayout),
    PLAIN(XmGraphRelaySubgraph),
    PLAIN(XmGraphSetButterflyRoot),
    PLAIN(XmGraphInsertRoots),
    PLAIN(XmGraphRemoveRoots),
    PLAIN(XmGraphNumRoots),
    PLAIN(XmGraphGetRoots),
    PLAIN(XmGraphNumNodes),
    PLAIN(XmGraphGetNodes),
    PLAIN(XmGraphNumArcs),
    PLAIN(XmGraphGetArcs),
    PLAIN(XmGraphNumNodeArcs),
    PLAIN(XmGraphGetNodeArcs),
    PLAIN(XmGraphGetArcNodes),
    {"XmGraphGetArcsBetweenNodes", GetArcsBetween},
    PLAIN(XmGraphSelectNode),
    PLAIN(XmGraphSelectNodes),
    PLAIN(XmGraphSelectArc),
    PLAIN(XmGraphSelectArcs),
    PLAIN(XmGraphSelectSubtree),
    PLAIN(XmGraphUnselectNode),
    PLAIN(XmGraphUnselectNodes),
    PLAIN(XmGraphUnselectArc),
    PLAIN(XmGraphUnselectArcs),
    PLAIN(XmGraphNumSelectedNodes),
    PLAIN(XmGraphNumSelectedArcs),
    PLAIN(XmGraphGetSelectedNodes),
    PLAIN(XmGraphGetSelectedArcs),
    PLAIN(XmGraphIsSelectedNode),
    PLAIN(XmGraphIsSelectedArc),
    PLAIN(XmGraphAddNode),
    PLAIN(XmGraphMoveNode),
    PLAIN(XmGraphMoveNodeQuietly),
    PLAIN(XmGraphMoveArc),
    PLAIN(XmGraphRemoveArcBetweenNodes),
    PLAIN(XmGraphDestroyAllArcs),
    PLAIN(XmGraphDestroyAllNodes),
    PLAIN(XmGraphDestroySelectedArcsOrNodes),
    PLAIN(XmGraphManageChild),
    PLAIN(XmGraphManageChildren),
    PLAIN(XmGraphManageAll),
    PLAIN(XmGraphUnmanageAll),
    PLAIN(XmGraphInputOverArc),
    PLAIN(XmGraphIsPointInArc),
    PLAIN(XmGraphMoveAll),
    PLAIN(XmGraphDontAdjustSize),
    PLAIN(XmGraphAdjustSize),
    PLAIN(XmGraphShowCoverWindow),
    PLAIN(XmGraphHideCoverWindow),
    PLAIN(XmGraphCenterAroundWidget),
    PLAIN(XmGraphMakeWidgetVisible),
    PLAIN(XmGraphCenterAtPos),
    PLAIN(XmGraphZoom),
    PLAIN(XmGraphPrint),
    PLAIN(XmArcGetPos),
    {"XmArcGetRegion", GetRegion},
    {"XmGraphCreateOverView", CreateOverview},
    {"XmCreateAttachedArc", CreateAttachedArc},

    PLAIN(LmListAddItem),
    PLAIN(LmListAddItemUnselected),
    PLAIN(LmListAddItems),
    PLAIN(LmListAddItemsUnselected),
    PLAIN(LmListDeleteItem),
    PLAIN(LmListDeleteItems),
    PLAIN(LmListDeletePos),
    PLAIN(LmListDeletePositions),
    PLAIN(LmListDeleteItemsPos),
    PLAIN(LmListDeleteAllItems),
    PLAIN(LmListReplaceItems),
    PLAIN(LmListReplaceItemsUnselected),
    PLAIN(LmListReplaceItemsPos),
    PLAIN(LmListReplaceItemsPosUnselected),
    PLAIN(LmListReplacePositions),
    PLAIN(LmListSelectItem),
    PLAIN(LmListSelectPos),
    PLAIN(LmListDeselectItem),
    PLAIN(LmListDeselectPos),
    PLAIN(LmListDeselectAllItems),
    PLAIN(LmListUpdateSelectedList),
    PLAIN(LmListSetPos),
    PLAIN(LmListSetItem),
    PLAIN(LmListSetBottomPos),
    PLAIN(LmListSetBottomItem),
    PLAIN(LmListSetHorizPos),
    PLAIN(LmListItemExists),
    PLAIN(LmListItemPos),
    PLAIN(LmListPosSelected),
    PLAIN(LmListYToPos),
    PLAIN(LmListPosToBounds),
    PLAIN(LmListGetKbdItemPos),
    PLAIN(LmListSetKbdItemPos),
    PLAIN(LmListSetAddMode),
    PLAIN(LmListSetPositionAttributes),
    PLAIN(LmListSetItemAttributes),
    PLAIN(LmListSetPositionIcon),
    PLAIN(LmListSetItemIcon),
    PLAIN(LmListSetPositionIndent),
    PLAIN(LmListSetItemIndent),
    PLAIN(LmListSetFields),
    {"LmListGetMatchPos", GetPositions<&LmListGetMatchPos>},
    {"LmListGetSelectedPos", GetPositions<&LmListGetSelectedPos>},
    {"LmListSetTable", SetTable},
    {"LmListSetPositionIcons", SetIcons},
    {"XmListSetAttributes", SetAttributes},

    {"XmGridSetRowResizability", InRange<XmGridSetRowResizability, &XmGridPart::num_rows>},
    {"XmGridSetColumnResizability", InRange<XmGridSetColumnResizability, &XmGridPart::num_columns>},
    {"XmGridSetRowMargin", InRange<XmGridSetRowMargin, &XmGridPart::num_rows>},
    {"XmGridSetColumnMargin", InRange<XmGridSetColumnMargin, &XmGridPart::num_columns>},
    PLAIN(XmGridPositionToRow),
    PLAIN(XmGridPositionToColumn),
    PLAIN(XmGridRowToYPosition),
    PLAIN(XmGridHighlightCell),

    PLAIN(SvScrollBarGetValues),
    PLAIN(SvScrollBarSetValues),
    PLAIN(SvScrollBarRedisplay),

    PLAIN(XmvIconGadgetGetDisplayRect),
    {"XmvIconGadgetGetBaselines", GetBaselines},
};
#undef PLAIN

} // namespace

bool CallFunction(World &world, const Step &step) {
    const auto found = step.words.size() > 2 ? functions.find(step.words[1]) : functions.end();
    Arguments arguments{world, step};
    return found != functions.end() && found->second(arguments);
}

} // namespace corvidlmw::storm
