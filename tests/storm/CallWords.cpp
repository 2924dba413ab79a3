// Arguments for the functions of the public interface.
#include <tests/storm/Words.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/list/LmList.h>
#include <corvidlmw/managers/Grid.h>
#include <corvidlmw/scrollbar/SvScrollBar.h>

#include <climits>
#include <map>

namespace corvidlmw::storm {

namespace {

// One letter for each argument:
//   W the widget itself     n a node      a an arc       w any widget
//   N nodes, A arcs         C the number of the entries before it
//   b Boolean  i number     p place       d extent       t position in a list
//   s label    S labels     I positions   f factor       o where a number goes, O where a widget goes
//   x colour   X icon       F fonts       P file         # number of a new widget
struct Signature {
    const char *function;
    const char *arguments;
};

constexpr Signature graph_calls[] = {
    {"XmGraphLayout", "W"},
    {"XmGraphRelaySubgraph", "Wn"},
    {"XmGraphSetButterflyRoot", "Wn"},
    {"XmGraphInsertRoots", "WNC"},
    {"XmGraphRemoveRoots", "WNC"},
    {"XmGraphNumRoots", "W"},
    {"XmGraphGetRoots", "Wo"},
    {"XmGraphNumNodes", "W"},
    {"XmGraphGetNodes", "Wo"},
    {"XmGraphNumArcs", "W"},
    {"XmGraphGetArcs", "Wo"},
    {"XmGraphNumNodeArcs", "Wnoo"},
    {"XmGraphGetNodeArcs", "WnOOoo"},
    {"XmGraphGetArcNodes", "WaOO"},
    {"XmGraphGetArcsBetweenNodes", "Wnno"},
    {"XmGraphSelectNode", "Wnb"},
    {"XmGraphSelectNodes", "WNCb"},
    {"XmGraphSelectArc", "Wab"},
    {"XmGraphSelectArcs", "WACb"},
    {"XmGraphSelectSubtree", "Wnb"},
    {"XmGraphUnselectNode", "Wnb"},
    {"XmGraphUnselectNodes", "WNCb"},
    {"XmGraphUnselectArc", "Wab"},
    {"XmGraphUnselectArcs", "WACb"},
    {"XmGraphNumSelectedNodes", "W"},
    {"XmGraphNumSelectedArcs", "W"},
    {"XmGraphGetSelectedNodes", "Wo"},
    {"XmGraphGetSelectedArcs", "Wo"},
    {"XmGraphIsSelectedNode", "Wn"},
    {"XmGraphIsSelectedArc", "Wa"},
    {"XmGraphAddNode", "W"},
    {"XmGraphMoveNode", "Wnpp"},
    {"XmGraphMoveNodeQuietly", "Wnpp"},
    {"XmGraphMoveArc", "Wann"},
    {"XmGraphRemoveArcBetweenNodes", "Wnn"},
    {"XmGraphDestroyAllArcs", "W"},
    {"XmGraphDestroyAllNodes", "W"},
    {"XmGraphDestroySelectedArcsOrNodes", "W"},
    {"XmGraphManageChild", "n"},
    {"XmGraphManageChildren", "NC"},
    {"XmGraphManageAll", "W"},
    {"XmGraphUnmanageAll", "W"},
    {"XmGraphInputOverArc", "Wii"},
    {"XmGraphIsPointInArc", "aii"},
    {"XmGraphMoveAll", "Wii"},
    {"XmGraphDontAdjustSize", "W"},
    {"XmGraphAdjustSize", "W"},
    {"XmGraphShowCoverWindow", "W"},
    {"XmGraphHideCoverWindow", "W"},
    {"XmGraphCenterAroundWidget", "Wn"},
    {"XmGraphMakeWidgetVisible", "Wn"},
    {"XmGraphCenterAtPos", "Wii"},
    {"XmGraphZoom", "Wf"},
    {"XmGraphPrint", "WP"},
    {"XmArcGetPos", "aoooo"},
    {"XmArcGetRegion", "a"},
    {"XmGraphCreateOverView", "#Ww"},
    {"XmCreateAttachedArc", "#Wnn"},
    {"XmCreateAttachedArc", "#Wnn"},
    {"XmCreateAttachedArc", "#Wnn"},
};

constexpr Signature list_calls[] = {
    {"LmListAddItem", "Wst"},
    {"LmListAddItemUnselected", "Wst"},
    {"LmListAddItems", "WSCt"},
    {"LmListAddItemsUnselected", "WSCt"},
    {"LmListDeleteItem", "Ws"},
    {"LmListDeleteItems", "WSC"},
    {"LmListDeletePos", "Wt"},
    {"LmListDeletePositions", "WIC"},
    {"LmListDeleteItemsPos", "Wtt"},
    {"LmListDeleteAllItems", "W"},
    {"LmListReplaceItems", "WSCS"},
    {"LmListReplaceItemsUnselected", "WSCS"},
    {"LmListReplaceItemsPos", "WSCt"},
    {"LmListReplaceItemsPosUnselected", "WSCt"},
    {"LmListReplacePositions", "WISC"},
    {"LmListSelectItem", "Wsb"},
    {"LmListSelectPos", "Wtb"},
    {"LmListDeselectItem", "Ws"},
    {"LmListDeselectPos", "Wt"},
    {"LmListDeselectAllItems", "W"},
    {"LmListUpdateSelectedList", "W"},
    {"LmListSetPos", "Wt"},
    {"LmListSetItem", "Ws"},
    {"LmListSetBottomPos", "Wt"},
    {"LmListSetBottomItem", "Ws"},
    {"LmListSetHorizPos", "Wi"},
    {"LmListItemExists", "Ws"},
    {"LmListItemPos", "Ws"},
    {"LmListPosSelected", "Wt"},
    {"LmListYToPos", "Wp"},
    {"LmListPosToBounds", "Wtoooo"},
    {"LmListGetKbdItemPos", "W"},
    {"LmListSetKbdItemPos", "Wt"},
    {"LmListSetAddMode", "Wb"},
    {"LmListSetPositionAttributes", "WtFxx"},
    {"LmListSetItemAttributes", "WsFxx"},
    {"LmListSetPositionIcon", "WtX"},
    {"LmListSetItemIcon", "WsX"},
    {"LmListSetPositionIndent", "Wtd"},
    {"LmListSetItemIndent", "Wsd"},
    {"LmListSetFields", "WIC"},
    {"LmListGetMatchPos", "Ws"},
    {"LmListGetSelectedPos", "W"},
    {"LmListSetTable", "Wissssss"},
    {"LmListSetPositionIcons", "WtXtXtX"},
    {"XmListSetAttributes", "Wttt"},
};

constexpr Signature grid_calls[] = {
    {"XmGridSetRowResizability", "Wii"}, {"XmGridSetColumnResizability", "Wii"},
    {"XmGridSetRowMargin", "Wid"},       {"XmGridSetColumnMargin", "Wid"},
    {"XmGridPositionToRow", "Wpp"},      {"XmGridPositionToColumn", "Wpp"},
    {"XmGridRowToYPosition", "Wi"},      {"XmGridHighlightCell", "Wii"},
};

constexpr Signature bar_calls[] = {
    {"SvScrollBarGetValues", "Woooo"},
    {"SvScrollBarSetValues", "Wiiiib"},
    {"SvScrollBarSetValues", "Wttttb"},
    {"SvScrollBarRedisplay", "W"},
};

constexpr Signature gadget_calls[] = {
    {"XmvIconGadgetGetDisplayRect", "WO"},
    {"XmvIconGadgetGetBaselines", "W"},
};

// ---- Arguments --------------------------------------------------------------------------------------

struct Draw {
    Chance &chance;
    const Cast &cast;
    int self;
    int &next_id;
    int length; // of all arrays of the call: one may count for two

    // Sometimes of another class, or another parent, or none, or one that dies.
    std::string Child(WidgetClass widget_class) const {
        if (chance.OneIn(12))
            return WidgetWord(cast.Any(chance));
        if (chance.OneIn(20))
            return "nil";
        const int child = cast.Any(chance, [&](int id) {
            return cast.ParentOf(id) == self &&
                   cast.IsA(id, xmArcWidgetClass) == (widget_class != nullptr);
        });
        return chance.OneIn(4) ? DyingWord(child) : WidgetWord(child);
    }
    std::string List(std::string (*entry)(const Draw &)) const {
        std::vector<std::string> entries;
        for (int left = length; left > 0; left--)
            entries.push_back(entry(*this));
        return ToList(entries);
    }
    std::string Nodes() const {
        if (chance.OneIn(15))
            return "nil";
        if (chance.OneIn(4))
            return chance.Of({"nodes", "selected", "roots", "arcs"}) + WidgetWord(self);
        return List([](const Draw &draw) { return draw.Child(nullptr); });
    }
    std::string Arcs() const {
        if (chance.OneIn(15))
            return "nil";
        if (chance.OneIn(4))
            return chance.Of({"arcs", "selectedArcs", "nodes"}) + WidgetWord(self);
        return List([](const Draw &draw) { return draw.Child(xmArcWidgetClass); });
    }
    std::string Factor() const {
        return chance.Of({"2", "0.5", "1", "-1", "0", "1e30", "1e-30", "nan", "inf", "-3.7"});
    }
    std::string Position() const {
        return chance.OneIn(6) ? AnyNumber(chance) : SmallNumber(chance, -1, 24);
    }
    // Of the window's depth: the server refuses others.
    std::string Icon() const {
        return chance.OneIn(4) ? chance.Of({"0", "2"})
                               : "pixmap:" + chance.Of({"0", "1", "2", "5"});
    }
    std::string Fonts() const {
        return chance.OneIn(4) ? "nil" : "fonts:" + SmallNumber(chance, 0, 4);
    }
    std::string Count() const {
        return chance.OneIn(6) ? chance.Of({"0", "-1", "-32768", "-2147483648"}) : "all";
    }
    std::string Self() const {
        if (chance.OneIn(40))
            return "nil";
        if (chance.OneIn(25))
            return WidgetWord(cast.Any(chance));
        return chance.OneIn(4) ? DyingWord(self) : WidgetWord(self);
    }
    std::string Argument(char letter) const;
};

std::string Draw::Argument(char letter) const {
    switch (letter) {
    case 'W': return Self();
    case 'n': return Child(nullptr);
    case 'a': return Child(xmArcWidgetClass);
    case 'w': return WidgetWord(cast.Any(chance));
    case 'N': return Nodes();
    case 'A': return Arcs();
    case 'C': return Count();
    case 'b': return SmallNumber(chance, 0, 1);
    case 'i': return AnyNumber(chance);
    case 'p': return AnyPlace(chance);
    case 'd': return AnyNumber(chance);
    case 't': return Position();
    case 's': return chance.OneIn(25) ? "nil" : AnyLabel(chance);
    case 'S':
        return chance.OneIn(25) ? "nil"
                                : List([](const Draw &draw) { return AnyLabel(draw.chance); });
    case 'I':
        return chance.OneIn(25) ? "nil" : List([](const Draw &draw) { return draw.Position(); });
    case 'f': return Factor();
    case 'o': return "[0]";
    case 'O': return "[nil]";
    case 'x': return SmallNumber(chance, 0, 0xffffff);
    case 'X': return Icon();
    case 'F': return Fonts();
    case 'P': return chance.Of({"\"page.ps", "\"", "\"/nonexistent/page.ps"});
    case '#': return WordFor(next_id++);
    default: return "0";
    }
}

const Signature *AnySignature(Chance &chance, WidgetClass widget_class) {
    if (widget_class == xmGraphWidgetClass)
        return &chance.Of(graph_calls);
    if (widget_class == lmListWidgetClass)
        return &chance.Of(list_calls);
    if (widget_class == xmGridWidgetClass)
        return &chance.Of(grid_calls);
    if (widget_class == svScrollBarWidgetClass)
        return &chance.Of(bar_calls);
    return widget_class == xmvIconGadgetClass ? &chance.Of(gadget_calls) : nullptr;
}

} // namespace

std::optional<Step> AnyCall(Chance &chance, const Cast &cast, WidgetClass widget_class,
                            int &next_id) {
    const Signature *signature = AnySignature(chance, widget_class);
    const int self = cast.AnyOf(chance, widget_class);
    if (!signature || !self)
        return std::nullopt;
    const Draw draw{chance, cast, self, next_id, chance.Between(0, 7)};
    Step step{{"call", signature->function}};
    for (const char *letter = signature->arguments; *letter; letter++)
        step.words.push_back(draw.Argument(*letter));
    return step;
}

} // namespace corvidlmw::storm
