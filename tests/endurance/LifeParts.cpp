#include <tests/endurance/Lives.h>

#include <X11/keysym.h>
#include <Xm/Text.h>

namespace corvidlmw::test {

void UseCommonResources(Widget w) {
    const auto nothing = [](Widget, XtPointer, XtPointer) {};
    SetByText(w, {{XmNunitType, "1000th_inches"}, {XmNunitType, "pixels"}});
    XtAddCallback(w, XmNhelpCallback, nothing, nullptr);
    XtSetSensitive(w, False);
    XtSetSensitive(w, True);
    XtRemoveCallback(w, XmNhelpCallback, nothing, nullptr);
    // The converter does not reach what gadgets share.
    if (XtIsWidget(w))
        SetByText(w, {{XmNforeground, "navy"},
                      {XmNbackground, "wheat"},
                      {XmNbackgroundPixmap, "50_foreground"},
                      {XmNborderWidth, "1"}});
}

void UseKeyboard(Stage &stage, Widget w) {
    XmProcessTraversal(w, XmTRAVERSE_CURRENT);
    stage.Pump();
    for (const KeySym key :
         {XK_Down, XK_Right, XK_space, XK_Up, XK_Left, XK_Tab, XK_Next, XK_Prior})
        stage.Key(key);
}

void DragToText(Stage &stage, Widget source, XPoint start) {
    Widget text =
        XtVaCreateManagedWidget("text", xmTextWidgetClass, stage.board, XmNx, 300, XmNeditMode,
                                XmMULTI_LINE_EDIT, XmNrows, 10, XmNcolumns, 30, nullptr);
    stage.Pump();
    stage.DragAndDrop(source, start, text, {40, 40}, Button2,
                      [&] { return XmTextGetLastPosition(text) != 0; });
    XtDestroyWidget(text);
}

void End(Stage &stage, Widget w) {
    XtDestroyWidget(w);
    stage.RunWorkProcs();
}

} // namespace corvidlmw::test
