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
 * another class is passed over in silence.
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
 * column; BLANK is one in a row without an icon. */
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
