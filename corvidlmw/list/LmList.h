/* LmList: a list of rows with icons, indents, fonts and colours of their own, and columns.
 *
 * It shows compound strings one below the other, as the toolkit's XmList does, and takes the same
 * resources for rows, selection, spacing and scrolling. Each row can have an icon in a column to the
 * left of the text, an indent, and fonts and colours of its own. Columns, called fields, are widths in
 * pixels that hold for all rows: a click tells which one it hit, and a selected row shows that one as a
 * sunken cell. A selected row is a raised bar around its text, in the text's usual colours.
 *
 * In an XmScrolledWindow whose visual policy is not XmCONSTANT, which LmCreateScrolledList makes, a list
 * scrolls by two SvScrollBar of its own; without one it shows the rows from XmNtopItemPosition on.
 *
 * The class passes for the toolkit's list in XmIsList, but the toolkit's XmList functions must never be
 * called for it: they write into a record of another shape.
 *
 * Rows are counted from 1, and XmNtopItemPosition likewise in XtSetValues and XtGetValues and in the
 * arguments of a creation; in a resource file it is counted from 0. What a client passes in, strings and
 * arrays, stays the client's; the list keeps copies. What XtGetValues gives for XmNitems and
 * XmNselectedItems is the list's own and is valid until the list's next change.
 *
 * All functions belong to the toolkit's thread. Lengths are in pixels. A `list` that is NULL or of
 * another class is passed over in silence. Strings are equal if XmStringCompare finds them so, and an array
 * of strings that is passed in can be one of the list's own.
 */
#ifndef CORVIDLMW_LIST_LMLIST_H
#define CORVIDLMW_LIST_LMLIST_H

#include <corvidlmw/toolkit/Export.h>

#include <Xm/Xm.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Resource names, classes and representation types ---------------------------------------------- */

#ifndef XmNlistSpacing
#define XmNlistSpacing "listSpacing"
#endif
#ifndef XmNlistMarginWidth
#define XmNlistMarginWidth "listMarginWidth"
#endif
#ifndef XmNlistMarginHeight
#define XmNlistMarginHeight "listMarginHeight"
#endif
#ifndef XmNfontList
#define XmNfontList "fontList"
#endif
#ifndef XmNarmColor
#define XmNarmColor "armColor"
#endif
#ifndef XmNfieldMargin
#define XmNfieldMargin "fieldMargin"
#endif
#ifndef XmNstringDirection
#define XmNstringDirection "stringDirection"
#endif
#ifndef XmNitems
#define XmNitems "items"
#endif
#ifndef XmNitemCount
#define XmNitemCount "itemCount"
#endif
#ifndef XmNselectedItems
#define XmNselectedItems "selectedItems"
#endif
#ifndef XmNselectedItemCount
#define XmNselectedItemCount "selectedItemCount"
#endif
#ifndef XmNvisibleItemCount
#define XmNvisibleItemCount "visibleItemCount"
#endif
#ifndef XmNtopItemPosition
#define XmNtopItemPosition "topItemPosition"
#endif
#ifndef XmNselectionPolicy
#define XmNselectionPolicy "selectionPolicy"
#endif
#ifndef XmNlistSizePolicy
#define XmNlistSizePolicy "listSizePolicy"
#endif
#ifndef XmNscrollBarDisplayPolicy
#define XmNscrollBarDisplayPolicy "scrollBarDisplayPolicy"
#endif
#ifndef XmNautomaticSelection
#define XmNautomaticSelection "automaticSelection"
#endif
#ifndef XmNindentIcons
#define XmNindentIcons "indentIcons"
#endif
#ifndef XmNdefaultIconWidth
#define XmNdefaultIconWidth "defaultIconWidth"
#endif
#ifndef XmNupdate
#define XmNupdate "update"
#endif
#ifndef XmNshowIcons
#define XmNshowIcons "showIcons"
#endif
#ifndef XmNdoubleClickInterval
#define XmNdoubleClickInterval "doubleClickInterval"
#endif
#ifndef XmNarmCallback
#define XmNarmCallback "armCallback"
#endif
#ifndef XmNdisarmCallback
#define XmNdisarmCallback "disarmCallback"
#endif
#ifndef XmNactivateCallback
#define XmNactivateCallback "activateCallback"
#endif
#ifndef XmNsingleSelectionCallback
#define XmNsingleSelectionCallback "singleSelectionCallback"
#endif
#ifndef XmNmultipleSelectionCallback
#define XmNmultipleSelectionCallback "multipleSelectionCallback"
#endif
#ifndef XmNextendedSelectionCallback
#define XmNextendedSelectionCallback "extendedSelectionCallback"
#endif
#ifndef XmNbrowseSelectionCallback
#define XmNbrowseSelectionCallback "browseSelectionCallback"
#endif
#ifndef XmNdefaultActionCallback
#define XmNdefaultActionCallback "defaultActionCallback"
#endif
#ifndef XmNfieldChangedCallback
#define XmNfieldChangedCallback "fieldChangedCallback"
#endif
#ifndef XmNhorizontalScrollBar
#define XmNhorizontalScrollBar "horizontalScrollBar"
#endif
#ifndef XmNverticalScrollBar
#define XmNverticalScrollBar "verticalScrollBar"
#endif
#ifndef XmNnavigationType
#define XmNnavigationType "navigationType"
#endif
#ifndef XmCListSpacing
#define XmCListSpacing "ListSpacing"
#endif
#ifndef XmCListMarginWidth
#define XmCListMarginWidth "ListMarginWidth"
#endif
#ifndef XmCListMarginHeight
#define XmCListMarginHeight "ListMarginHeight"
#endif
#ifndef XmCFontList
#define XmCFontList "FontList"
#endif
#ifndef XmCArmColor
#define XmCArmColor "ArmColor"
#endif
#ifndef XmCStringDirection
#define XmCStringDirection "StringDirection"
#endif
#ifndef XmCItems
#define XmCItems "Items"
#endif
#ifndef XmCItemCount
#define XmCItemCount "ItemCount"
#endif
#ifndef XmCSelectedItems
#define XmCSelectedItems "SelectedItems"
#endif
#ifndef XmCSelectedItemCount
#define XmCSelectedItemCount "SelectedItemCount"
#endif
#ifndef XmCVisibleItemCount
#define XmCVisibleItemCount "VisibleItemCount"
#endif
#ifndef XmCTopItemPosition
#define XmCTopItemPosition "TopItemPosition"
#endif
#ifndef XmCSelectionPolicy
#define XmCSelectionPolicy "SelectionPolicy"
#endif
#ifndef XmCListSizePolicy
#define XmCListSizePolicy "ListSizePolicy"
#endif
#ifndef XmCScrollBarDisplayPolicy
#define XmCScrollBarDisplayPolicy "ScrollBarDisplayPolicy"
#endif
#ifndef XmCAutomaticSelection
#define XmCAutomaticSelection "AutomaticSelection"
#endif
#ifndef XmCIndentIcons
#define XmCIndentIcons "IndentIcons"
#endif
#ifndef XmCDefaultIconWidth
#define XmCDefaultIconWidth "DefaultIconWidth"
#endif
#ifndef XmCUpdate
#define XmCUpdate "Update"
#endif
#ifndef XmCShowIcons
#define XmCShowIcons "ShowIcons"
#endif
#ifndef XmCDoubleClickInterval
#define XmCDoubleClickInterval "DoubleClickInterval"
#endif
#ifndef XmCHorizontalScrollBar
#define XmCHorizontalScrollBar "HorizontalScrollBar"
#endif
#ifndef XmCVerticalScrollBar
#define XmCVerticalScrollBar "VerticalScrollBar"
#endif
#ifndef XmCNavigationType
#define XmCNavigationType "NavigationType"
#endif
#ifndef XmRVerticalDimension
#define XmRVerticalDimension "VerticalDimension"
#endif
#ifndef XmRHorizontalDimension
#define XmRHorizontalDimension "HorizontalDimension"
#endif
#ifndef XmRFontList
#define XmRFontList "FontList"
#endif
#ifndef XmRStringDirection
#define XmRStringDirection "StringDirection"
#endif
#ifndef XmRXmStringTable
#define XmRXmStringTable "XmStringTable"
#endif
#ifndef XmRSelectionPolicy
#define XmRSelectionPolicy "SelectionPolicy"
#endif
#ifndef XmRListSizePolicy
#define XmRListSizePolicy "ListSizePolicy"
#endif
#ifndef XmRScrollBarDisplayPolicy
#define XmRScrollBarDisplayPolicy "ScrollBarDisplayPolicy"
#endif
#ifndef XmRNavigationType
#define XmRNavigationType "NavigationType"
#endif

/* ---- Callbacks ------------------------------------------------------------------------------------- */

/* Reasons of XmNarmCallback, XmNdisarmCallback and XmNactivateCallback, which tell of presses in the icon
 * column; BLANK is one in a row without an icon. Their data's `item` is the client's to free with
 * XmStringFree: of XmNarmCallback in there; XmNactivateCallback and the XmNdisarmCallback that follows
 * share one, which the last of the two that has callbacks frees. Of all other callbacks it is the list's,
 * valid for the length of the call. */
#define LmCR_ITEM_ICON_ARM 101
#define LmCR_ITEM_BLANK_ARM 102
#define LmCR_ITEM_DISARM 103
#define LmCR_ITEM_ICON_ACTIVATE 104
#define LmCR_ITEM_BLANK_ACTIVATE 105

typedef struct {
    int reason;
    XEvent *event; /* NULL from functions and from timers */
    XmString item;
    int item_length;
    int item_position;
    XmString
        *selected_items; /* in row order; for multiple and extended selection and default actions */
    int selected_item_count;
    int *selected_item_positions;
    char selection_type; /* for extended selection: XmINITIAL, XmADDITION or XmMODIFICATION */
    int field;           /* the column that was hit; -1 if none */
} LmListCallbackStruct;

/* ---- Class ----------------------------------------------------------------------------------------- */

typedef struct _LmListClassRec *LmListWidgetClass;
typedef struct _LmListRec *LmListWidget;

CORVIDLMW_EXPORT extern WidgetClass lmListWidgetClass;

#define LmIsList(w) XtIsSubclass((w), lmListWidgetClass)

/* ---- Creation -------------------------------------------------------------------------------------- */

/* Creates an unmanaged list `name` in `parent`, with `arg_count` resources from `args`. */
CORVIDLMW_EXPORT Widget LmCreateList(Widget parent, char *name, ArgList args, Cardinal arg_count);

/* Creates an unmanaged list in a new, managed XmScrolledWindow in `parent` and returns the list. The
 * scrolled window's name is `name` with "SW" behind it; it gets the resources in `args` as well, and it
 * is destroyed together with the list. */
CORVIDLMW_EXPORT Widget LmCreateScrolledList(Widget parent, char *name, ArgList args,
                                             Cardinal arg_count);

/* ---- Adding items ---------------------------------------------------------------------------------- */

/* Inserts a copy of `item` before the row that is now at `position`, or behind the last row if there is no
 * such position; 0 is the usual one for that. A row that is equal to one of XmNselectedItems comes selected.
 * This one call leaves the list's size and the vertical scroll bar as they are: the next change that asks
 * for them brings them up to date. A NULL item is a row without text. */
CORVIDLMW_EXPORT void LmListAddItem(Widget list, XmString item, int position);

/* The same, for a row that comes unselected; size and scroll bars follow. */
CORVIDLMW_EXPORT void LmListAddItemUnselected(Widget list, XmString item, int position);

/* Insert `count` items in their order, in one change. With a NULL array or a count below 1 nothing
 * happens. */
CORVIDLMW_EXPORT void LmListAddItems(Widget list, XmString *items, int count, int position);
CORVIDLMW_EXPORT void LmListAddItemsUnselected(Widget list, XmString *items, int count,
                                               int position);

/* ---- Deleting items -------------------------------------------------------------------------------- */

/* Deletes the first row that is equal to `item`. If there is none, a warning. */
CORVIDLMW_EXPORT void LmListDeleteItem(Widget list, XmString item);

/* Deletes, for each of `count` items, the first row equal to it that is left. Each that is not found draws a
 * warning and the others go on. The array can be the list's own, such as XmNselectedItems. A location cursor
 * at the first row is at no row when that one is deleted. */
CORVIDLMW_EXPORT void LmListDeleteItems(Widget list, XmString *items, int count);

/* Deletes the row at `position`; the last one for 0 and below. Past the end it draws a warning; in an empty
 * list nothing happens. */
CORVIDLMW_EXPORT void LmListDeletePos(Widget list, int position);

/* Deletes the rows at `count` positions, each of them as it is before the call; one given twice counts once.
 * Each that there is not draws a warning, is set to -1 in the array, and the others go on. In an empty list
 * nothing happens. */
CORVIDLMW_EXPORT void LmListDeletePositions(Widget list, int *positions, int count);

/* Deletes `count` rows from `position` on, or those that there are. A position that there is not draws a
 * warning; with a count below 1 and in an empty list nothing happens. */
CORVIDLMW_EXPORT void LmListDeleteItemsPos(Widget list, int count, int position);

/* Deletes all rows. The list's size and the vertical scroll bar stay as they are until the next change. */
CORVIDLMW_EXPORT void LmListDeleteAllItems(Widget list);

/* ---- Replacing items ------------------------------------------------------------------------------- */

/* Replaces, for each of `count` old items, the first row that is equal to it by the new item of the same
 * index; an old item that is not found is passed over. A pair can replace what a pair before it put there.
 * A replaced row loses its icon, indent and look, and is selected if it is equal to one of
 * XmNselectedItems. */
CORVIDLMW_EXPORT void LmListReplaceItems(Widget list, XmString *old_items, int count,
                                         XmString *new_items);

/* The same, for rows that are unselected from then on. */
CORVIDLMW_EXPORT void LmListReplaceItemsUnselected(Widget list, XmString *old_items, int count,
                                                   XmString *new_items);

/* Replace `count` rows from `position` on, or those that there are. With a bad position or count nothing
 * happens. */
CORVIDLMW_EXPORT void LmListReplaceItemsPos(Widget list, XmString *items, int count, int position);
CORVIDLMW_EXPORT void LmListReplaceItemsPosUnselected(Widget list, XmString *items, int count,
                                                      int position);

/* Replaces the row at each of `count` positions by the item of the same index. Each position that there is
 * not draws a warning and the others go on; in an empty list nothing happens. */
CORVIDLMW_EXPORT void LmListReplacePositions(Widget list, int *positions, XmString *items,
                                             int count);

/* ---- Selecting items ------------------------------------------------------------------------------- */

/* Selects the first row that is equal to `item`, or the row at `position`, the last one for 0. In multiple
 * selection the row is selected if it is not and unselected if it is; in the other policies it is selected
 * and no other row is. The location cursor moves to the last selected row. With `notify` the selection
 * callbacks of the policy are called; they may do anything, also destroy the list. Without such a row
 * nothing happens. */
CORVIDLMW_EXPORT void LmListSelectItem(Widget list, XmString item, Boolean notify);
CORVIDLMW_EXPORT void LmListSelectPos(Widget list, int position, Boolean notify);

/* Unselect that row, without a callback. */
CORVIDLMW_EXPORT void LmListDeselectItem(Widget list, XmString item);
CORVIDLMW_EXPORT void LmListDeselectPos(Widget list, int position);

/* Unselects all rows, without a callback. */
CORVIDLMW_EXPORT void LmListDeselectAllItems(Widget list);

/* Makes XmNselectedItems and XmNselectedItemCount say which rows are selected now. After rows were added or
 * replaced, and in the midst of a gesture, they say which were before. */
CORVIDLMW_EXPORT void LmListUpdateSelectedList(Widget list);

/* ---- Scrolling ------------------------------------------------------------------------------------- */

/* Make the row at `position`, the last one for 0, or the first row equal to `item`, the first one in the
 * window. Below the last row the window is left empty. Without such a row nothing happens. */
CORVIDLMW_EXPORT void LmListSetPos(Widget list, int position);
CORVIDLMW_EXPORT void LmListSetItem(Widget list, XmString item);

/* Make it the last one in the window, or show the first rows if there are fewer before it. */
CORVIDLMW_EXPORT void LmListSetBottomPos(Widget list, int position);
CORVIDLMW_EXPORT void LmListSetBottomItem(Widget list, XmString item);

/* Scrolls sideways to `position` pixels from where the rows begin, as far as the horizontal scroll bar goes.
 * Without that bar, and without rows, nothing happens. */
CORVIDLMW_EXPORT void LmListSetHorizPos(Widget list, int position);

/* ---- Questions ------------------------------------------------------------------------------------- */

/* Whether a row is equal to `item`. */
CORVIDLMW_EXPORT Boolean LmListItemExists(Widget list, XmString item);

/* The position of the first row that is equal to `item`; 0 if there is none, and for NULL. */
CORVIDLMW_EXPORT int LmListItemPos(Widget list, XmString item);

/* The positions of all rows that are equal to `item`, or of all selected rows, in order. True with an array
 * that the caller frees by XtFree and its length; False if there are none, and nothing is written then. */
CORVIDLMW_EXPORT Boolean LmListGetMatchPos(Widget list, XmString item, int **positions, int *count);
CORVIDLMW_EXPORT Boolean LmListGetSelectedPos(Widget list, int **positions, int *count);

/* Whether the row at `position`, the last one for 0, is selected. False where there is no row. */
CORVIDLMW_EXPORT Boolean LmListPosSelected(Widget list, int position);

/* The row that is shown at `y` pixels below the window's upper edge, counted from 0, unlike elsewhere: -1
 * for what is above the first row in view if that is not the first of all, and the number of rows or one
 * more where there is none. */
CORVIDLMW_EXPORT int LmListYToPos(Widget list, Position y);

/* Where a row is shown, with the room for the location cursor around it. Unlike elsewhere, `position` counts
 * from 0, but 0 itself is no row: there the answer is False, as it is for rows that are not in view and for a
 * list without a window. Each result can be NULL. */
CORVIDLMW_EXPORT Boolean LmListPosToBounds(Widget list, int position, Position *x, Position *y,
                                           Dimension *width, Dimension *height);

/* ---- The location cursor ----------------------------------------------------------------------------- */

/* The position of the location cursor; 0 in a list without rows, and when its row was deleted. It can be one
 * past the end after LmListDeletePositions. */
CORVIDLMW_EXPORT int LmListGetKbdItemPos(Widget list);

/* Moves the location cursor to `position`, to the last row for 0, and scrolls it into view where the list has
 * a vertical scroll bar. False, and nothing happens, if there is no such row. */
CORVIDLMW_EXPORT Boolean LmListSetKbdItemPos(Widget list, int position);

/* Turns add mode on, in single and extended selection, or off, in extended and browse selection; elsewhere it
 * stays. In extended selection the cursor's row is unselected if it alone is selected when add mode comes,
 * and selected if none is when add mode goes: the selection callbacks are called then, and may do anything,
 * also destroy the list. */
CORVIDLMW_EXPORT void LmListSetAddMode(Widget list, Boolean on);

/* ---- Looks of single rows -------------------------------------------------------------------------- */

/* Gives the row at `position` fonts and colours of its own. NULL and 0 stand for what is not given: the
 * list's own are taken then; with nothing given at all the row has no look of its own any more. The row
 * is shown unselected until it is next selected. A position that there is not draws a warning. A look
 * goes with its row, and when the row is replaced. */
CORVIDLMW_EXPORT void LmListSetPositionAttributes(Widget list, int position, XmFontList font_list,
                                                  Pixel foreground, Pixel background);

/* The same for the first row that is equal to `item`. If there is none, a warning; in an empty list
 * nothing happens. */
CORVIDLMW_EXPORT void LmListSetItemAttributes(Widget list, XmString item, XmFontList font_list,
                                              Pixel foreground, Pixel background);

/* One row of XmListSetAttributes; the reserved words are not read. */
typedef struct {
    XtArgVal position;
    XtArgVal reserved[3];
} LmListAttributeEntry;

/* Gives each of `count` rows a look whose foreground is the pixel that has the row's position for its
 * number, on the list's background. A bad position draws a warning and the others go on. */
CORVIDLMW_EXPORT void XmListSetAttributes(Widget list, LmListAttributeEntry *entries, int count);

/* ---- Icons and indents ----------------------------------------------------------------------------- */

/* Icons are shown while XmNshowIcons is on, in a column as wide as the widest of them or
 * XmNdefaultIconWidth. A pixmap has the list's depth, stays the client's and must live as long as it is
 * set; None and XmUNSPECIFIED_PIXMAP take the icon away. A bad position draws a warning. */
CORVIDLMW_EXPORT void LmListSetPositionIcon(Widget list, int position, Pixmap icon);

/* The same for the first row that is equal to `item`. If there is none, a warning; in an empty list
 * nothing happens. */
CORVIDLMW_EXPORT void LmListSetItemIcon(Widget list, XmString item, Pixmap icon);

typedef struct {
    int position;
    Pixmap icon;
} LmListIconEntry;

/* Sets many icons at once. A bad position draws a warning and ends the call: what stands before it in
 * `entries` is set, and shown when the list is drawn next. */
CORVIDLMW_EXPORT void LmListSetPositionIcons(Widget list, LmListIconEntry *entries, int count);

/* Moves a row's text, and with XmNindentIcons its icon, to the right. A bad position draws a
 * warning. */
CORVIDLMW_EXPORT void LmListSetPositionIndent(Widget list, int position, Dimension indent);

/* The same for the first row that is equal to `item`. If there is none, a warning; in an empty list
 * nothing happens. */
CORVIDLMW_EXPORT void LmListSetItemIndent(Widget list, XmString item, Dimension indent);

/* ---- Columns --------------------------------------------------------------------------------------- */

/* Gives the list `count` columns of these widths, side by side from where the text begins. With count 0
 * it has none. Nothing is drawn anew. New XmNitems take the columns away. */
CORVIDLMW_EXPORT void LmListSetFields(Widget list, int *widths, int count);

/* Replaces all rows: one for each of `row_count` texts, in the locale's encoding. With two columns or
 * more, tabs stand between them, and each column is made as wide as its widest text; two tabs in a row
 * count as one. Text is drawn at the tab stops of the list's render table, if that has any. */
CORVIDLMW_EXPORT void LmListSetTable(Widget list, char **rows, int row_count, int column_count);

#ifdef __cplusplus
}
#endif

#endif
