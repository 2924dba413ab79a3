// What the sources of the list room share.
#pragma once

// First: it mends declarations of the toolkit's private headers.
#include <corvidlmw/toolkit/Toolkit.h>

#include <corvidlmw/list/BlockPool.h>
#include <corvidlmw/list/LmListP.h>
#include <corvidlmw/list/RowGeometry.h>
#include <corvidlmw/list/RowSet.h>
#include <corvidlmw/list/SlackArray.h>
#include <corvidlmw/list/StringBag.h>
#include <corvidlmw/list/Tally.h>
#include <corvidlmw/list/TextWidths.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <span>

namespace corvidlmw::list {

// ---- Records ------------------------------------------------------------------------------------

// A press of the first button that can still become a drag.
struct WaitingPress {
    XEvent event{};
    Text action; // that the press would run
    XtIntervalId timer = 0;

    WaitingPress() = default;
    ~WaitingPress() {
        if (timer) {
            XtRemoveTimeOut(timer);
        }
    }
    WaitingPress(const WaitingPress &) = delete;
    WaitingPress &operator=(const WaitingPress &) = delete;
};

// Behind the part's `internal`: what the part's fields are kept by.
struct ListState {
    // The blocks that `items` and `elements` point into.
    SlackArray<XmString> items;
    SlackArray<LmListElement *> elements;
    BlockPool<LmListElement> pool; // what those point to

    // The highest of all rows, so that no change of one row asks all the others.
    Tally heights;
    Tally needs; // of width, without the icon column
    Tally icon_widths;
    int looks = 0; // rows with a look of their own

    // The rows whose `selected` is set, and those whose `last_selected` is another.
    RowSet selected;
    RowSet unsettled;

    int pitch = 0;                   // of the running heights as they are
    bool stale_fonts = false;        // rows were measured in other fonts
    TextWidths text_widths;          // in font_list
    std::optional<bool> antialiased; // has font_list such a font: known from the first drawing on

    std::optional<Rectangle> clip;           // of all GCs that are clipped to the inner area
    std::optional<Rectangle> highlight_clip; // of highlight_gc
    bool normal_clipped_to_bars = false;     // normal_gc alone is not
    int bar_clips = 0;
    bool bars_clipped = false;
    bool rows_reach_out = false; // into what they do not clear
    Pixmap insensitive_tile = XmUNSPECIFIED_PIXMAP;
    bool in_query = false;
    Vector<Widget> made_bars; // those of them that live, also after the client exchanged them
    std::optional<WaitingPress> waiting_press;
    const LmListElement *armed = nullptr; // the row that armed_item was set for; NULL if that went
};

inline LmListPart &ListOf(Widget w) {
    return reinterpret_cast<LmListWidget>(w)->list;
}

inline XmPrimitivePart &PrimitiveOf(Widget w) {
    return reinterpret_cast<LmListWidget>(w)->primitive;
}

inline ListState &StateOf(const LmListPart &list) {
    return *static_cast<ListState *>(list.internal);
}

inline ListState &StateOf(Widget w) {
    return StateOf(ListOf(w));
}

inline bool IsList(Widget w) {
    return w && LmIsList(w);
}

inline std::span<LmListElement *const> ElementsOf(const LmListPart &list) {
    return {list.elements, static_cast<std::size_t>(list.element_count)};
}

inline LmListElement &ElementOf(const LmListPart &list, int row) {
    return *list.elements[row];
}

// While the toolkit's part of an XtSetValues runs, `items` and `item_count` are what the client gave, and
// the keyboard can come or go there. `element_count` is always the list's own: drawing asks that one.
inline bool IsRow(const LmListPart &list, int row) {
    return row >= 0 && row < list.element_count;
}

inline bool IsPosition(const LmListPart &list, int position) {
    return position >= 1 && position <= list.element_count;
}

inline std::span<const int> FieldsOf(const LmListPart &list) {
    return list.field_widths
               ? std::span<const int>(list.field_widths, static_cast<std::size_t>(list.field_count))
               : std::span<const int>();
}

inline bool HasIcon(const LmListElement &element) {
    return element.icon != None && element.icon != XmUNSPECIFIED_PIXMAP;
}

inline bool IsVariable(const LmListPart &list) {
    return list.list_size_policy == XmVARIABLE;
}

inline bool IsRightToLeft(const LmListPart &list) {
    return list.string_direction == XmSTRING_DIRECTION_R_TO_L;
}

// What selects by dragging and by moving the cursor.
inline bool SelectsRanges(const LmListPart &list) {
    return list.selection_policy == XmEXTENDED_SELECT || list.selection_policy == XmBROWSE_SELECT;
}

inline void WarnOfList(Widget w, const char *text) {
    XmeWarning(w, Name(text));
}

inline void WarnOfMissingItem(Widget w) {
    WarnOfList(w, _XmMsgList_0007);
}

// ---- Geometry of this list ------------------------------------------------------------------------

Frame FrameOf(Widget w);
Layout LayoutOf(Widget w);
// For a row that is in view.
Row RowOf(Widget w, int row);
RowRange RowsInView(const LmListPart &list);
// Of rows that there are, and of those that would come next.
inline bool IsAboveBottom(const LmListPart &list, int row) {
    return std::int64_t{row} - list.top_item_position < list.visible_item_count;
}
// Compute base_x and base_y.
void PlaceBaseX(Widget w);
void PlaceBaseY(Widget w);
inline int PitchOf(const LmListPart &list) {
    return list.max_item_height + list.item_spacing;
}

// ---- The store of rows (ElementStore.cpp, RowMeasures.cpp) ----------------------------------------
//
// `items` and `elements` are changed here alone, together with what the state keeps of all rows. Rows
// come unselected, or selected where an equal string is in `selected_items`.

enum class Selection { Nothing, ByMembership };

// Copies `count` strings to rows from `row` on, which is 0 to item_count. The strings can be the list's
// own.
void InsertRows(Widget w, int row, const XmString *strings, int count, Selection selection);
// The same with strings that the list takes over.
void AdoptRows(Widget w, int row, std::span<OwnedXmString> strings, Selection selection);
void RemoveRows(Widget w, int row, int count);
// Removes the rows of a set, which is any but the state's own.
void RemoveRowSet(Widget w, const RowSet &rows);
// Everything about the row but its place is new; it has no icon, indent or look. The string can be one of
// the list's own.
void ReplaceRow(Widget w, int row, XmString string, Selection selection);
// Also sets the rows that gestures and the cursor are at, the top and x_origin to 0. In a list without
// rows it does nothing.
void RemoveAllRows(Widget w);

// The first row from `from` on with an equal string, or -1.
int FindRow(const LmListPart &list, XmString string, int from = 0);
// Strings that a client passes can be the list's own, and go while they are still needed.
Vector<OwnedXmString> CopiesOf(const XmString *strings, int count);

// Gives a row another icon, or indent; heights and widths that are kept of all rows follow.
void SetRowIcon(Widget w, int row, Pixmap icon, Dimension width, Dimension height);
void SetRowIndent(Widget w, int row, Dimension indent);
// After `indent_icons` changed.
void RecountNeeds(Widget w);
// Releases GC and fonts of a row's own look.
void DropLook(Widget w, LmListElement &element);

// Measures what fonts changed under, and gives all rows the height of the tallest: the only place where
// rows get lower. Left for later while `update` is off.
void ResetHeight(Widget w);
// Before `max_item_height` changes: all rows will be drawn in other places.
void ClearForHeight(Widget w);
// Running heights after `max_item_height` or `item_spacing` changed.
void RebuildHeights(LmListPart &list);
void RecomputeMaxWidth(LmListPart &list);
// After `count` rows came or changed, until it is next recomputed.
void RaiseMaxWidth(LmListPart &list, int row, int count);

// Between an element and what is kept of all of them; for the store itself. To measure is to say all that
// follows from the string.
void MeasureText(const LmListPart &list, LmListElement &element);
void Count(LmListPart &list, const LmListElement &element);
void Discount(LmListPart &list, const LmListElement &element);

// ---- Selected rows (SelectedRows.cpp) -----------------------------------------------------------------

void SetSelected(LmListPart &list, int row, bool selected);
void SetLastSelected(LmListPart &list, int row, bool selected);
inline void SetBothSelected(LmListPart &list, int row, bool selected) {
    SetSelected(list, row, selected);
    SetLastSelected(list, row, selected);
}

// The strings of selected_items, for as long as they stay, to be asked this often.
class SelectedStrings {
public:
    SelectedStrings(const LmListPart &list, int lookups);
    bool Contain(XmString string) const;

private:
    std::span<const XmString> strings_;
    StringBag bag_; // of them, if there are many
};

// Rebuilds selected_items, selected_positions and selected_item_count from the rows. With `remember`
// the rows' present states become those before the next gesture.
void BuildSelectedList(LmListPart &list, bool remember);
void ClearSelectedList(LmListPart &list);
// Rebuilds selected_positions alone.
void UpdateSelectedIndices(LmListPart &list);
// The same where rows from `row` on moved or are others.
void UpdateSelectedIndicesFrom(LmListPart &list, int row);
// Selects the rows whose strings are among selected_items, and no others.
void SelectByMembership(LmListPart &list);
// Sets anchors and cursor by the last run of selected rows.
void SetSelectionParams(Widget w);

// ---- Graphics (Graphics.cpp) ----------------------------------------------------------------------------

void MakeGC(Widget w);
void MakeHighlightGC(Widget w, bool dashed);
void ChangeHighlightGC(Widget w, bool dashed);
void FreeGCs(Widget w);
void SetClipRect(Widget w);
// For a row's own new GC.
void ClipLook(Widget w, GC gc);
// The shadows' GCs are the toolkit's and shared: they are clipped while bars are drawn, and never longer.
// Rows that are drawn one by one while one of these lives share the clip; no client is called meanwhile.
class BarClip {
public:
    explicit BarClip(Widget w);
    ~BarClip();
    BarClip(const BarClip &) = delete;
    BarClip &operator=(const BarClip &) = delete;

    // What bars are drawn with, normal_gc included, which stays so.
    void Clip();

private:
    Widget widget_;
};

// The drawable of a list's depth that a GC is made on, for as long as this lives.
class DrawableOfDepth {
public:
    explicit DrawableOfDepth(Widget w);
    ~DrawableOfDepth();
    DrawableOfDepth(const DrawableOfDepth &) = delete;
    DrawableOfDepth &operator=(const DrawableOfDepth &) = delete;
    operator Drawable() const { return drawable_; }

private:
    Display *display_;
    Drawable drawable_;
    Pixmap pixmap_ = None;
};

// ---- Fonts (Fonts.cpp) ------------------------------------------------------------------------------------

// The table's first core font; NULL if there is none.
XFontStruct *CoreFontOf(XmFontList fonts);
// Of the first font, whatever it is; 0 if there is none.
int FontHeightOf(XmFontList fonts);
bool HasAntialiasedFont(XmFontList fonts);

// ---- Drawing (ListDrawing.cpp) ----------------------------------------------------------------------------

void Redisplay(Widget w, XEvent *event, Region region);
void DrawList(Widget w);
// Draws a row if the window does not show its state; rows out of view are passed over.
void DrawItem(Widget w, int row);
// The location cursor at a row; -1 is no row.
void DrawHighlight(Widget w, int row, bool on);
// All but the frame: bars and the cursor reach beyond the inner area.
void ClearRows(Widget w, Boolean exposures);

// Before a change of where the location cursor is; the caller shows it again.
inline void EraseCursor(Widget w) {
    if (ListOf(w).traversing) {
        DrawHighlight(w, ListOf(w).current_keyboard_item, false);
    }
}
inline void ShowCursor(Widget w) {
    if (ListOf(w).traversing) {
        DrawHighlight(w, ListOf(w).current_keyboard_item, true);
    }
}

// Ends a change before which the cursor was taken away.
inline void DrawChange(Widget w, bool all_rows) {
    all_rows ? DrawList(w) : ShowCursor(w);
}

// ---- Items by function (ItemAdds.cpp, ItemDeletes.cpp, ItemReplaces.cpp, ...) -----------------------------

// The row of a position in a family where 0 is the last item; -1 if there is none.
inline int RowAtPosition(const LmListPart &list, int position) {
    const bool valid = position >= 0 && position <= list.item_count;
    return valid ? (position == 0 ? list.item_count : position) - 1 : -1;
}

// Both the selected state and the one before the gesture.
void DeselectAllBut(Widget w, int kept);
// Selects a row as the policy has it, which in multiple selection can also be to unselect it. With
// `notify` the client hears of it: false if the list died of that.
bool SelectRow(Widget w, int row, bool notify);
// False if the list died of telling the client that the cursor's row was selected or unselected by it.
bool SetAddMode(Widget w, bool on);
// Scroll so that the row is the first, or the last one in view. Rows that there are not are passed over.
void ScrollToTop(Widget w, int row);
void ScrollToBottom(Widget w, int row);
// Either of them where the row is out of view; nothing without a bar to scroll by.
void BringIntoView(Widget w, int row);
// The furthest that horizontal_origin goes: as far as the bar scrolls, and x_origin takes.
int LastOrigin(const LmListPart &list);

// ---- Hits and reports (Reports.cpp) -----------------------------------------------------------------------

// Where the pointer was; events of other kinds have no place.
std::optional<Point> PointOf(const XEvent *event);
// A row, or what RowAt answers where there is none. While a key selects it is the location cursor's.
int RowFromY(Widget w, int y);
// Of the row's columns, which begin behind `indent`; -1 if none.
int FieldFromX(Widget w, int x, int indent);

void StopScrolling(LmListPart &list);
// The release, or what stands for it.
void EndGesture(LmListPart &list);
// Calls client code. False if the list died of it. Hand over a reference to the call: a copy of it would lie
// on the heap of the standard library.
bool CallClient(Widget w, const std::function<void()> &call);

// Rebuild the snapshots and run the selection callbacks of the policy, or those of the default action,
// for the row at last_highlighted. `event` can be NULL. Both are false if the list died of it; else rows
// can have come and gone, and every row number must be looked at anew.
bool ClickElement(Widget w, XEvent *event);
bool DefaultAction(Widget w, XEvent *event);

// ---- Sizing (ListSizing.cpp) ------------------------------------------------------------------------------

struct Size {
    Dimension width;
    Dimension height;
};
Size SetDefaultSize(Widget w);
int SetVizCount(Widget w);
void SetNewSize(Widget w);
void Resize(Widget w);
void SetValuesAlmost(Widget old, Widget w, XtWidgetGeometry *request, XtWidgetGeometry *reply);
XtGeometryResult QueryProc(Widget w, XtWidgetGeometry *request, XtWidgetGeometry *reply);

// SetNewSize and both scroll bars: what ends most changes of rows.
void CloseChange(Widget w);

// ---- Scroll bars (ScrollBars.cpp) -------------------------------------------------------------------------

// In the scrolled window that is the list's parent, if it scrolls through that.
void CreateScrollBars(Widget w);
void ReleaseScrollBars(Widget w);
// After either field became another: `old` holds those before.
void ExchangeScrollBars(Widget w, const LmListPart &old);
void ShowBar(Widget bar, bool shown);
void SetVerticalScrollbar(Widget w);
void SetHorizontalScrollbar(Widget w);

// ---- Resource changes (ResourceChanges.cpp) ---------------------------------------------------------------

void LookUpRepresentationTypes();
// Computes row_highlight and item_spacing.
void PlaceSpacing(Widget w);
// Makes `font_list` a copy of what the client gave, or of the default.
void TakeFonts(Widget w);
// Puts right what a client gave at the creation.
void RepairAtCreation(Widget w);
Boolean SetValues(Widget current, Widget request, Widget new_w, ArgList args, Cardinal *num_args);

// ---- Columns (Fields.cpp) ---------------------------------------------------------------------------------

void DropFields(LmListPart &list);

// ---- Ranges of rows (RangeSelection.cpp) ------------------------------------------------------------------
//
// Rows are given in either order and can lie outside of the list. What changes is drawn.

void SelectRange(Widget w, int first, int last, bool value);
// Gives rows back their last_selected; the anchor is start_item.
enum class Anchor { Kept, Restored };
void RestoreRange(Widget w, int first, int last, Anchor anchor);
// The other way around: the present states become those before the next gesture.
void RememberRange(Widget w, int first, int last);
void RememberAnchors(Widget w);

// Takes the end of the range to another row, of a list that has rows: by a press, from `old_end`; or by
// the pointer or the cursor, from end_item.
void ArrangePressedRange(Widget w, int old_end, int row);
void ArrangeRange(Widget w, int row);

// The gesture goes on to another row. False if the list died of the reports.
bool HandleNewItem(Widget w, int row);
// The keyboard goes on to another row, as event_flags and add mode say. False if the list died of it.
bool HandleExtendedItem(Widget w, int row);

// Moves the location cursor alone, if there is such a row.
void PlaceCursor(Widget w, int row);

// ---- Keys (Navigation.cpp) --------------------------------------------------------------------------------

// Moves the location cursor by so many rows, if there is a row, and does all that an arrow key does.
void StepPlainly(Widget w, int rows);

// ---- The icon column (IconArming.cpp) ---------------------------------------------------------------------

bool IsInIconColumn(const LmListPart &list, int row, int x);
void ArmIcon(Widget w, XEvent *event, int row);
void DisarmIcon(Widget w, XEvent *event, int row);

// ---- The pointer held outside (HeldOutside.cpp) -----------------------------------------------------------

// Bits of leave_direction; 0 is inside.
unsigned char LeaveDirectionOf(Widget w, Point at);
bool IsOppositeOf(unsigned char direction, unsigned char other);
// Takes a new direction and sees to it that the list scrolls that way, if it can.
void KeepScrolling(Widget w, unsigned char direction);
// The same when the pointer leaves. False if it did not go outside.
bool LeaveHolding(Widget w, const XEvent *event);

// ---- Buttons (Buttons.cpp) ----------------------------------------------------------------------------------

// Which are down, as the server says.
unsigned HeldButtons(Widget w);

// ---- Actions (ListActions.cpp and where they are written) ---------------------------------------------------

extern XtActionsRec list_actions[];
extern const Cardinal num_list_actions;

using Action = void(Widget w, XEvent *event, String *params, Cardinal *num_params);
Action ListEnter;
Action ListLeave;
Action ListFocusIn;
Action ListFocusOut;
Action SelectElement;
Action UnSelectElement;
Action VerifyMotion;
Action ExSelect;
Action ExUnSelect;
Action CtrlSelect;
Action CtrlUnSelect;
Action KbdSelectElement;
Action KbdUnSelectElement;
Action KbdShiftSelect;
Action KbdShiftUnSelect;
Action KbdCtrlSelect;
Action KbdCtrlUnSelect;
Action KbdSelectAll;
Action KbdDeSelectAll;
Action KbdActivate;
Action KbdCancel;
Action KbdToggleAddMode;
Action NormalPrevElement;
Action NormalNextElement;
Action CtrlPrevElement;
Action CtrlNextElement;
Action ShiftPrevElement;
Action ShiftNextElement;
Action ExtendAddPrevElement;
Action ExtendAddNextElement;
Action KbdPrevPage;
Action KbdNextPage;
Action KbdLeftChar;
Action KbdLeftPage;
Action KbdRightChar;
Action KbdRightPage;
Action BeginLine;
Action EndLine;
Action TopItem;
Action EndItem;
Action ExtendTopItem;
Action ExtendEndItem;
Action ListItemVisible;
Action ListCopyToClipboard;
Action ListProcessDrag;
Action ListProcessBtn1;
Action ListProcessBtn2;
Action ListScrollUp;
Action ListScrollDown;
Action ListQuickNavigate;

} // namespace corvidlmw::list
