// What the sources of the icon gadget share.
#pragma once

// First: it mends declarations of the toolkit's private headers.
#include <corvidlmw/toolkit/Toolkit.h>

#include <corvidlmw/gadget/IconGGeometry.h>
#include <corvidlmw/gadget/IconGP.h>

namespace corvidlmw::icon_gadget {

// ---- Records --------------------------------------------------------------------------------------

inline XmvIconGadgetRec &RecordOf(Widget w) {
    return *reinterpret_cast<XmvIconGadget>(w);
}
inline XmvIconGadgetPart &IconOf(Widget w) {
    return RecordOf(w).icon;
}
// To be written only while it is the gadget's own: in Initialize and SetValues.
inline XmvIconGCacheObjPart &CacheOf(Widget w) {
    return *IconOf(w).cache;
}
inline bool IsIconGadget(Widget w) {
    return w && XmvIsIconGadget(w);
}

// The gadgets of a menu take part in it otherwise than those of a row or column.
inline bool IsInMenuPane(Widget w) {
    const int type = CacheOf(w).menu_type;
    return type == XmMENU_PULLDOWN || type == XmMENU_POPUP;
}

// ---- Sources --------------------------------------------------------------------------------------

// IconG.cpp: those of the shared part. The class's own list is not fit for XtGetSubresources.
extern XtResource cache_resources[];
extern const Cardinal num_cache_resources;

// Cache.cpp: the shared part, and how it comes to be the gadget's own for a while.
extern XmCacheClassPart IconClassCachePart;
void SecondaryObjectCreate(Widget request, Widget new_w, ArgList args, Cardinal *num_args);
void InitializePosthook(Widget request, Widget new_w, ArgList args, Cardinal *num_args);
Boolean SetValuesPrehook(Widget old_w, Widget request, Widget new_w, ArgList args,
                         Cardinal *num_args);
Boolean SetValuesPosthook(Widget old_w, Widget request, Widget new_w, ArgList args,
                          Cardinal *num_args);
void GetValuesPrehook(Widget w, ArgList args, Cardinal *num_args);
void GetValuesPosthook(Widget w, ArgList args, Cardinal *num_args);
Cardinal GetIconBGClassSecResData(WidgetClass widget_class, XmSecondaryResourceData **data);
void SetOverrideCallback(Widget w);

// LabelMirror.cpp: what the toolkit sees of the gadget where it takes it for a label gadget.
void CreateMirror(Widget w);
void HoldMirror(Widget w);
void UpdateMirror(const XmvIconGCacheObjPart &before, Widget w);
void ReleaseMirror(Widget w);
// The margins with what a row or column added to them.
Margins MarginsOf(Widget w);

// Contents.cpp: text, picture, sizes and places.
void MeasureContents(Widget w);
// Of the picture, or of the insensitive one; 0 where there is none.
int DepthOfPicture(Widget w, bool insensitive);
void ForgetInsensitivePicture(Widget w);
void ForgetPictures(Widget w);
void SetSize(Widget w);
XtGeometryResult QueryGeometry(Widget w, XtWidgetGeometry *intended, XtWidgetGeometry *reply);
Extent TextSizeOf(Widget w);

// TextPlaces.cpp, as the toolkit asks for them
Boolean BaselinesForParent(Widget w, Dimension **baselines, int *line_count);
Boolean DisplayRectForParent(Widget w, XRectangle *rect);

// Drawing.cpp
void FetchTextGCs(Widget w);
void FetchShadowGCs(Widget w);
void ReleaseTextGCs(Widget w);
void ReleaseShadowGCs(Widget w);
void Redisplay(Widget w, XEvent *event, Region region);

// ResourceChanges.cpp
Boolean SetValues(Widget old_w, Widget request, Widget new_w, ArgList args, Cardinal *num_args);
void SetValuesAlmost(Widget old_w, Widget new_w, XtWidgetGeometry *request,
                     XtWidgetGeometry *reply);

// IconG.cpp: what creation and changes share.
// With a warning unless it is.
bool IsValidAlignment(Widget w);
bool IsValidDirection(Widget w);
// Copies the fonts, the default ones where there are none.
void TakeFonts(Widget w);
_XmString NameAsLabel(Widget w);
void TakeMenuTraversal(Widget w);
void TakeMenuHighlight(Widget w);
void SelectInput(Widget w);
// XmMENU_POPDOWN of the menu, or XmMENU_MEMWIDGET_UPDATE of the gadget.
void CallMenuProcedure(int what, Widget w, XEvent *event);

} // namespace corvidlmw::icon_gadget
