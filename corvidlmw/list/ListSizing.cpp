// How big a list wants to be, how many rows fit into it, and what a new size does to it. Where the rows of
// this list lie.

#include <corvidlmw/list/LmListI.h>

#include <algorithm>
#include <cstdint>

namespace corvidlmw::list {

namespace {

// No window is larger; and what 16 bits would leave of a larger size could be 0.
constexpr int largest_extent = 32767;

Dimension FitExtent(int extent) {
    return static_cast<Dimension>(std::clamp(extent, 1, largest_extent));
}

int RowStep(Widget w) {
    const auto &list = ListOf(w);
    if (list.element_count > 0) {
        ResetHeight(w);
        return PitchOf(list);
    }
    return std::max(FontHeightOf(list.font_list), 1) + list.item_spacing;
}

// What is past the largest extent need not be exact.
int HeightOfSteps(int step, int count) {
    constexpr std::int64_t enough = 4 * largest_extent;
    return static_cast<int>(std::min(std::int64_t{step} * std::max(count, 0), enough));
}

// A list with rows is one gap higher than its rows need, an empty one is not.
int HeightOfRows(Widget w, int count) {
    const auto &list = ListOf(w);
    if (list.element_count > 0) {
        return HeightOfSteps(RowStep(w), count);
    }
    const int step = FontHeightOf(list.font_list) + list.item_spacing;
    const int height = step == 0 ? 1 : HeightOfSteps(step, count);
    return count > 1 ? height - list.item_spacing : height;
}

int FrameWidth(Widget w) {
    return 2 * SideOf(FrameOf(w));
}

int FrameHeight(Widget w) {
    return 2 * TopOf(FrameOf(w));
}

// An empty list keeps the width that it has.
Dimension DefaultWidth(Widget w, int height_of_rows) {
    auto &list = ListOf(w);
    if (list.element_count > 0) {
        RecomputeMaxWidth(list);
    } else {
        list.max_width = CutToDimension(height_of_rows / 2);
        if (HasWindow(w)) {
            return w->core.width;
        }
    }
    return FitExtent(list.max_width + FrameWidth(w));
}

int ListWidthOf(Widget w) {
    return std::max(ListWidth(FrameOf(w)), 1);
}

// Brings x_origin back where the rows would end before the list does.
void PullOriginBack(Widget w) {
    auto &list = ListOf(w);
    const int width = ListWidthOf(w);
    int origin = list.x_origin;
    if (IsRightToLeft(list)) {
        if (width + origin > list.max_width) {
            origin = width - list.max_width;
        }
    } else if (list.max_width - origin < width) {
        origin = list.max_width - width;
    }
    // Right to left, a list wider than its rows would push all of them out of view.
    list.x_origin = CutToPosition(std::clamp(origin, 0, std::max(list.max_width - width, 0)));
}

} // namespace

// ---- Where rows lie -----------------------------------------------------------------------------------

Frame FrameOf(Widget w) {
    const auto &list = ListOf(w);
    return {.width = w->core.width,
            .height = w->core.height,
            .margin_width = list.list_margin_width,
            .margin_height = list.list_margin_height,
            .row_highlight = list.row_highlight,
            .shadow = PrimitiveOf(w).shadow_thickness};
}

Layout LayoutOf(Widget w) {
    const auto &list = ListOf(w);
    return {.frame = FrameOf(w),
            .base_x = list.base_x,
            .base_y = list.base_y,
            .x_origin = list.x_origin,
            .icon_column_width = list.icon_column_width,
            .max_item_height = list.max_item_height,
            .show_icons = list.show_icons != False,
            .indent_icons = list.indent_icons != False,
            .right_to_left = IsRightToLeft(list)};
}

Row RowOf(Widget w, int row) {
    const auto &list = ListOf(w);
    const LmListElement &element = ElementOf(list, row);
    const LmListElement &top =
        ElementOf(list, std::clamp(list.top_item_position, 0, list.element_count - 1));
    return {.y = RowY(element.cumulative_height, top.cumulative_height, list.base_y),
            .width = element.width,
            .indent = element.indent};
}

RowRange RowsInView(const LmListPart &list) {
    return RowsInView(list.top_item_position, list.visible_item_count, list.element_count);
}

void PlaceBaseX(Widget w) {
    ListOf(w).base_x = CutToPosition(SideOf(FrameOf(w)));
}

void PlaceBaseY(Widget w) {
    ListOf(w).base_y = CutToPosition(TopOf(FrameOf(w)));
}

// ---- Preferred size -----------------------------------------------------------------------------------

Size SetDefaultSize(Widget w) {
    const auto &list = ListOf(w);
    const int rows = list.list_size_policy == XmRESIZE_IF_POSSIBLE ? list.last_set_visible_count
                                                                   : list.visible_item_count;
    const int height = HeightOfRows(w, rows);
    return {DefaultWidth(w, height), FitExtent(height + FrameHeight(w))};
}

int SetVizCount(Widget w) {
    return RowsThatFit(ListHeight(FrameOf(w)), RowStep(w));
}

void SetNewSize(Widget w) {
    auto &list = ListOf(w);
    if (!list.update) {
        return;
    }
    list.in_set_new_size = True;
    Size size = SetDefaultSize(w);
    if (list.list_size_policy == XmCONSTANT) {
        size.width = w->core.width;
    }
    if (size.width != w->core.width || size.height != w->core.height) {
        // The size is in pixels, whatever the client counts in.
        const unsigned char unit_type = PrimitiveOf(w).unit_type;
        PrimitiveOf(w).unit_type = XmPIXELS;
        XtVaSetValues(w, XmNwidth, size.width, XmNheight, size.height, nullptr);
        PrimitiveOf(w).unit_type = unit_type;
    }
    list.in_set_new_size = False;
}

void CloseChange(Widget w) {
    SetNewSize(w);
    if (!IsVariable(ListOf(w))) {
        SetHorizontalScrollbar(w);
    }
    SetVerticalScrollbar(w);
}

// ---- A new size -----------------------------------------------------------------------------------------

void Resize(Widget w) {
    auto &list = ListOf(w);
    const int visible = RowsThatFit(std::max(ListHeight(FrameOf(w)), 1), RowStep(w));
    if (list.element_count - list.top_item_position < visible) {
        list.top_item_position = std::max(list.element_count - visible, 0);
    }
    list.visible_item_count = visible;
    SetVerticalScrollbar(w);
    if (!IsVariable(list)) {
        PullOriginBack(w);
        SetHorizontalScrollbar(w);
    }
    if (HasWindow(w)) {
        SetClipRect(w);
    }
}

// A parent that refuses leaves the list in the size that it has, without another word; what the change made of
// the size that it asked for is no longer true.
void SetValuesAlmost(Widget old, Widget w, XtWidgetGeometry *request, XtWidgetGeometry *reply) {
    xmPrimitiveClassRec.core_class.set_values_almost(old, w, request, reply);
    Resize(w);
}

// ---- Negotiation ----------------------------------------------------------------------------------------

namespace {

Size FreshDefaultSize(Widget w) {
    auto &list = ListOf(w);
    const int visible = list.visible_item_count;
    list.visible_item_count = list.last_set_visible_count;
    const Size size = SetDefaultSize(w);
    list.visible_item_count = visible;
    return size;
}

// Beside its own size a bar takes its highlight and its border, on both sides.
int HighlightAndBorder(Widget bar) {
    return 2 * (ResourceOf<Dimension>(bar, XmNhighlightThickness, 0) + bar->core.border_width);
}

BarNeeds NeedsAtSize(Widget w, const XtWidgetGeometry &request, Size preferred) {
    const auto &list = ListOf(w);
    const Widget horizontal = list.horizontal_scroll_bar;
    const Widget vertical = list.vertical_scroll_bar;
    BarNeeds needs;
    needs.width = request.request_mode & CWWidth ? request.width : w->core.width;
    needs.height = request.request_mode & CWHeight ? request.height : w->core.height;
    needs.default_width = preferred.width;
    needs.default_height = preferred.height;
    needs.frame_height = FrameHeight(w);
    needs.horizontal_bar_height =
        horizontal ? horizontal->core.height + HighlightAndBorder(horizontal) : 0;
    needs.vertical_bar_width = vertical ? vertical->core.width + HighlightAndBorder(vertical) : 0;
    needs.spacing = ResourceOf<Dimension>(list.scrolled_window, XmNspacing, 0);
    needs.count = list.element_count;
    needs.max_item_height = list.max_item_height;
    needs.item_spacing = list.item_spacing;
    needs.is_static = list.scroll_bar_display_policy == XmSTATIC;
    needs.is_variable = IsVariable(list);
    return needs;
}

// Shows the bars that a list of the size in question needs. The scrolled window asks again while it makes
// room for them.
void ShowNeededBars(Widget w, const XtWidgetGeometry &request, Size preferred) {
    auto &list = ListOf(w);
    auto &state = StateOf(list);
    const BarsNeeded needed = FindBarsNeeded(NeedsAtSize(w, request, preferred));
    state.in_query = true;
    ShowBar(list.vertical_scroll_bar, needed.vertical);
    ShowBar(list.horizontal_scroll_bar, needed.horizontal && !IsVariable(list));
    state.in_query = false;
}

} // namespace

XtGeometryResult QueryProc(Widget w, XtWidgetGeometry *request, XtWidgetGeometry *reply) {
    const auto &list = ListOf(w);
    reply->request_mode = 0;
    if (list.in_scroll_update || StateOf(list).in_query) {
        return XtGeometryYes;
    }
    const bool fresh = request->request_mode == 0;
    const Size preferred = fresh ? FreshDefaultSize(w) : SetDefaultSize(w);
    if (!fresh && list.element_count > 0) {
        const bool has_bars = list.vertical_scroll_bar || list.horizontal_scroll_bar;
        if (list.scrolled_window && has_bars) {
            ShowNeededBars(w, *request, preferred);
        }
        return XtGeometryYes;
    }
    reply->width = preferred.width;
    reply->height = preferred.height;
    reply->request_mode = CWWidth | CWHeight;
    return XtGeometryAlmost;
}

} // namespace corvidlmw::list
