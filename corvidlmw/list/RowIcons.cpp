// Icons and indents of single rows.

#include <corvidlmw/list/LmListI.h>

#include <algorithm>

namespace corvidlmw::list {

namespace {

bool Check(Widget w, int position) {
    if (IsPosition(ListOf(w), position)) {
        return true;
    }
    WarnOfList(w, "Invalid item.");
    return false;
}

// Wider than the window where the top is not the first row.
bool IsPerhapsInView(const LmListPart &list, int position) {
    return position >= list.top_item_position &&
           position <= std::int64_t{list.visible_item_count} + 2LL * list.top_item_position;
}

struct IconSize {
    Dimension width = 0;
    Dimension height = 0;
};

// Asks the server for each pixmap once: many rows share few icons.
class IconSizes {
public:
    explicit IconSizes(Widget w) : display_(XtDisplay(w)) {}

    IconSize Of(Pixmap icon) {
        if (icon == None || icon == XmUNSPECIFIED_PIXMAP) {
            return {};
        }
        const auto [found, is_new] = sizes_.try_emplace(icon);
        if (is_new) {
            found->second = Ask(icon);
        }
        return found->second;
    }

private:
    IconSize Ask(Pixmap icon) const {
        Window root = None;
        int x = 0;
        int y = 0;
        unsigned width = 0;
        unsigned height = 0;
        unsigned border = 0;
        unsigned depth = 0;
        if (!XGetGeometry(display_, icon, &root, &x, &y, &width, &height, &border, &depth)) {
            return {};
        }
        return {static_cast<Dimension>(width), static_cast<Dimension>(height)};
    }

    Display *display_;
    UnorderedMap<Pixmap, IconSize> sizes_;
};

void WidenIconColumn(LmListPart &list) {
    constexpr int gap = 2;
    const int widest = StateOf(list).icon_widths.HighestOr(0);
    list.icon_column_width =
        list.show_icons ? CutToPosition(std::max<int>(list.default_icon_width, widest) + gap) : 0;
}

void SetIcon(Widget w, int row, Pixmap icon, IconSizes &sizes) {
    const IconSize size = sizes.Of(icon);
    SetRowIcon(w, row, icon, size.width, size.height);
    WidenIconColumn(ListOf(w));
}

// A row out of sight can move those in sight.
struct Arrangement {
    int icon_column_width;
    int max_item_height;
    explicit Arrangement(const LmListPart &list)
        : icon_column_width(list.icon_column_width), max_item_height(list.max_item_height) {}
    bool operator==(const Arrangement &) const = default;
};

void CloseIcons(Widget w, const Arrangement &before, bool redraw) {
    CloseChange(w);
    if (redraw || Arrangement(ListOf(w)) != before) {
        DrawList(w);
    }
}

} // namespace

} // namespace corvidlmw::list

using namespace corvidlmw;
using namespace corvidlmw::list;

extern "C" {

void LmListSetPositionIcon(Widget w, int position, Pixmap icon) {
    if (!IsList(w) || !Check(w, position)) {
        return;
    }
    const Arrangement before(ListOf(w));
    IconSizes sizes(w);
    SetIcon(w, position - 1, icon, sizes);
    CloseIcons(w, before, IsPerhapsInView(ListOf(w), position));
}

void LmListSetItemIcon(Widget w, XmString item, Pixmap icon) {
    if (IsList(w) && ListOf(w).element_count > 0) {
        LmListSetPositionIcon(w, FindRow(ListOf(w), item) + 1, icon);
    }
}

void LmListSetPositionIcons(Widget w, LmListIconEntry *entries, int count) {
    if (!IsList(w)) {
        return;
    }
    const Arrangement before(ListOf(w));
    IconSizes sizes(w);
    bool redraw = false;
    for (int i = 0; entries && i < count; i++) {
        if (!Check(w, entries[i].position)) {
            return;
        }
        SetIcon(w, entries[i].position - 1, entries[i].icon, sizes);
        redraw = redraw || IsPerhapsInView(ListOf(w), entries[i].position);
    }
    CloseIcons(w, before, redraw);
}

void LmListSetPositionIndent(Widget w, int position, Dimension indent) {
    if (!IsList(w) || !Check(w, position)) {
        return;
    }
    SetRowIndent(w, position - 1, indent);
    if (IsPerhapsInView(ListOf(w), position)) {
        DrawList(w);
    }
}

void LmListSetItemIndent(Widget w, XmString item, Dimension indent) {
    if (IsList(w) && ListOf(w).element_count > 0) {
        LmListSetPositionIndent(w, FindRow(ListOf(w), item) + 1, indent);
    }
}

} // extern "C"
