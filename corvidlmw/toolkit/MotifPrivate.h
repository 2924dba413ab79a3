// The toolkit's private entry points, declared here and nowhere else. libXm exports them, but no
// installed header has them, or has them without C linkage.
#pragma once

#include <X11/Intrinsic.h>

// Two installed headers declare these outside of extern "C"; a declaration with C linkage that
// comes first mends it.
extern "C" {
void _XmDestroyParentCallback(Widget w, XtPointer client_data, XtPointer call_data);
void _XmPrimitiveEnter(Widget w, XEvent *event, String *params, Cardinal *num_params);
void _XmPrimitiveLeave(Widget w, XEvent *event, String *params, Cardinal *num_params);
}

#include <X11/IntrinsicP.h>
#include <X11/CoreP.h>
#include <X11/ConstrainP.h>
#include <X11/StringDefs.h>

#include <Xm/XmP.h>
#include <Xm/BaseClassP.h>
#include <Xm/GadgetP.h>
#include <Xm/ManagerP.h>

extern "C" {

// Actions of the toolkit's manager.
void _XmManagerEnter(Widget w, XEvent *event, String *params, Cardinal *num_params);
void _XmManagerFocusIn(Widget w, XEvent *event, String *params, Cardinal *num_params);
void _XmManagerFocusOut(Widget w, XEvent *event, String *params, Cardinal *num_params);
void _XmManagerHelp(Widget w, XEvent *event, String *params, Cardinal *num_params);

// Hands an event to a gadget that wants it, and is sensitive and managed.
void _XmDispatchGadgetInput(Widget gadget, XEvent *event, Mask mask);

// The highlight around a primitive widget or a gadget; other classes are left alone.
void _XmHighlightBorder(Widget w);
void _XmUnhighlightBorder(Widget w);

// Moves a widget or gadget, and its drop site with it.
void _XmMoveObject(Widget w, Position x, Position y);

// Gives a widget or gadget another size, a widget this border as well.
void _XmResizeObject(Widget w, Dimension width, Dimension height, Dimension border_width);

// Takes away the right and lower parts of a shadow that was drawn before a change of size.
void _XmClearShadowType(Widget w, Dimension old_width, Dimension old_height,
                        Dimension old_shadow_thickness, Dimension old_highlight_thickness);

// The toolkit's own words for a pane's limits and a sash's parameters.
extern const char *_XmMsgPanedW_0000; // paneMinimum must be positive
extern const char *_XmMsgPanedW_0001; // paneMaximum must be positive
extern const char *_XmMsgPanedW_0002; // paneMinimum must not be above paneMaximum
extern const char *_XmMsgPanedW_0004; // too few parameters
extern const char *_XmMsgPanedW_0005; // unknown first parameter

// The font for `tag`, or the first one. False without a core font, as in a table of Xft fonts.
Boolean _XmFontListSearch(XmFontList table, XmStringCharSet tag, short *index, XFontStruct **font);

// The clip of all antialiased text that the toolkit draws on a window, until the next call.
void _XmXftSetClipRectangles(Display *display, Window window, Position x, Position y,
                             XRectangle *rectangles, int count);

// Internal compound strings: one Free for each Create; the pointers are not comparable.
_XmString _XmStringCreate(XmString string);
void _XmStringFree(_XmString string);
void _XmStringUpdate(XmFontList table, _XmString string);
int _XmStringLineCount(_XmString string);
// Begins anew with a context that has come across no rendition, layout or direction: what it holds of
// those is lost. The string has to outlive the walk alone.
void _XmStringContextReInit(XmStringContext context, XmString string);
void _XmStringExtent(XmFontList table, _XmString string, Dimension *width, Dimension *height);
void _XmStringDraw(Display *display, Window window, XmFontList table, _XmString string, GC gc,
                   Position x, Position y, Dimension width, unsigned char alignment,
                   unsigned char direction, XRectangle *clip);
void _XmStringDrawImage(Display *display, Window window, XmFontList table, _XmString string, GC gc,
                        Position x, Position y, Dimension width, unsigned char alignment,
                        unsigned char direction, XRectangle *clip);

// A frame of lines, in a GC of one's own.
void _XmDrawHighlight(Display *display, Drawable drawable, GC gc, Position x, Position y,
                      Dimension width, Dimension height, Dimension thickness, int line_style);

// Actions of the toolkit's primitive.
void _XmPrimitiveFocusIn(Widget w, XEvent *event, String *params, Cardinal *num_params);
void _XmPrimitiveFocusOut(Widget w, XEvent *event, String *params, Cardinal *num_params);

unsigned char _XmGetFocusPolicy(Widget w);

// The colour of what is selected, as a resource's default procedure.
void _XmSelectColorDefault(Widget w, int offset, XrmValue *value);

// Converts the compound string that `from->addr` is to compound text, which is the caller's; NULL if it
// has no text. False if that cannot be.
Boolean _XmCvtXmStringToCT(XrmValue *from, XrmValue *to);

// The toolkit's words about lists.
extern const char *_XmMsgList_0000; // visibleItemCount is below 1
extern const char *_XmMsgList_0005; // listSizePolicy is fixed after creation
extern const char *_XmMsgList_0006; // itemCount is negative, or does not fit items
extern const char *_XmMsgList_0007; // no such item
extern const char *_XmMsgList_0008; // listSpacing is below 1
extern const char *_XmMsgList_0009; // items is NULL, itemCount is not 0
extern const char *_XmMsgList_0010; // selectedItemCount is negative
extern const char *_XmMsgList_0011; // selectedItems is NULL, selectedItemCount is not 0
extern const char *_XmMsgList_0012; // topItemPosition is before the first row
extern const char *_XmMsgList_0013; // items and itemCount do not fit

// The default background, as a resource's default procedure.
void _XmBackgroundColorDefault(Widget w, int offset, XrmValue *value);

// Hands an event over to the action of the manager `parent`, such as the cancelling of its dialog.
Boolean _XmParentProcess(Widget parent, XmParentProcessData data);

// Texts of warnings about scroll bars.
extern const char *_XmMsgScaleScrBar_0004; // processingDirection does not fit
extern const char *_XmMsgScrollBar_0000;   // minimum is not below maximum
extern const char *_XmMsgScrollBar_0001;   // sliderSize is below 1
extern const char *_XmMsgScrollBar_0002;   // value is below minimum
extern const char *_XmMsgScrollBar_0003;   // value is above maximum - sliderSize
extern const char *_XmMsgScrollBar_0004;   // increment is below 1
extern const char *_XmMsgScrollBar_0005;   // pageIncrement is below 1
extern const char *_XmMsgScrollBar_0006;   // initialDelay is below 1
extern const char *_XmMsgScrollBar_0007;   // repeatDelay is below 1
extern const char *_XmMsgScrollBar_0008;   // sliderSize is above maximum - minimum

// Shared parts of gadgets, kept in the list of a class: an equal one there is given once more, otherwise
// `data` is copied. One Delete for each.
void _XmCacheCopy(XtPointer source, XtPointer destination, size_t size);
XtPointer _XmCachePart(XmCacheClassPartPtr list, XtPointer data, size_t size);
void _XmCacheDelete(XtPointer data);

// The secondary object of a gadget: blocks for it, the stack of the gadget's objects, and its resources.
// What Alloc gives is not cleared.
char *_XmExtObjAlloc(int size);
void _XmExtObjFree(XtPointer block);
void _XmPushWidgetExtData(Widget w, XmWidgetExtData data, unsigned char type);
void _XmPopWidgetExtData(Widget w, XmWidgetExtData *data, unsigned char type);
XmWidgetExtData _XmGetWidgetExtData(Widget w, unsigned char type);
Cardinal _XmSecondaryResourceData(XmBaseClassExt extension, XmSecondaryResourceData **data,
                                  XtPointer client_data, String name, String class_name,
                                  XmResourceBaseProc base);
void _XmExtImportArgs(Widget secondary, ArgList args, Cardinal *num_args);
void _XmExtGetValuesHook(Widget secondary, ArgList args, Cardinal *num_args);

// Colours, as default procedures of resources.
void _XmForegroundColorDefault(Widget w, int offset, XrmValue *value);
void _XmTopShadowColorDefault(Widget w, int offset, XrmValue *value);
void _XmBottomShadowColorDefault(Widget w, int offset, XrmValue *value);

// What a gadget does with its input.
void _XmEnterGadget(Widget w, XEvent *event, String *params, Cardinal *num_params);
void _XmLeaveGadget(Widget w, XEvent *event, String *params, Cardinal *num_params);
void _XmFocusInGadget(Widget w, XEvent *event, String *params, Cardinal *num_params);
void _XmFocusOutGadget(Widget w, XEvent *event, String *params, Cardinal *num_params);
// Takes `w` for a label gadget.
void _XmProcessDrag(Widget w, XEvent *event, String *params, Cardinal *num_params);
// Gives the label of what is laid out as a label gadget, or its picture, to who asks for it.
void _XmLabelConvert(Widget w, XtPointer client_data, XmConvertCallbackStruct *data);
// Calls the help callbacks of `w`, or of the next parent that has some.
void _XmSocorro(Widget w, XEvent *event, String *params, Cardinal *num_params);

// NULL until the row column's class is initialized. In truth an XmMenuProc.
XtPointer _XmGetMenuProcContext(void);

_XmString _XmStringCreateExternal(XmFontList table, _XmString string);

extern const char *_XmMsgLabel_0003; // labelString is no compound string
}
