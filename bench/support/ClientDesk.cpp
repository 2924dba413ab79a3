#include <bench/support/ClientDesk.h>

#include <tests/support/Interpose.h>

#include <Xm/DrawingA.h>

#include <cstdio>
#include <cstdlib>

namespace corvidlmw::bench {

ClientDesk OpenDesk() {
    XtToolkitInitialize();
    ClientDesk desk{};
    desk.context = XtCreateApplicationContext();
    int argc = 0;
    desk.display =
        XtOpenDisplay(desk.context, nullptr, "bench", "Bench", nullptr, 0, &argc, nullptr);
    if (!desk.display) {
        std::fprintf(stderr, "bench: no connection to the X server\n");
        std::exit(EXIT_FAILURE);
    }
    desk.shell =
        XtVaAppCreateShell("bench", "Bench", topLevelShellWidgetClass, desk.display, XtNwidth, 1200,
                           XtNheight, 900, XtNoverrideRedirect, True, nullptr);
    desk.parent =
        XtVaCreateManagedWidget("parent", xmDrawingAreaWidgetClass, desk.shell, XmNresizePolicy,
                                XmRESIZE_GROW, XmNmarginWidth, 0, XmNmarginHeight, 0, nullptr);
    XtRealizeWidget(desk.shell);
    Pump(desk);
    return desk;
}

void Pump(const ClientDesk &desk, XtInputMask what) {
    test::interpose::SyncUnseen(desk.display);
    while ((XtAppPending(desk.context) & what) != 0) {
        XtAppProcessEvent(desk.context, what);
        if ((XtAppPending(desk.context) & what) == 0) {
            test::interpose::SyncUnseen(desk.display);
        }
    }
}

} // namespace corvidlmw::bench
