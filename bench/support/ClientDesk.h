/* A client's window on the screen, for the widgets that are measured. */

#ifndef CORVIDLMW_BENCH_SUPPORT_CLIENT_DESK_H
#define CORVIDLMW_BENCH_SUPPORT_CLIENT_DESK_H

#include <X11/Intrinsic.h>

namespace corvidlmw::bench {

struct ClientDesk {
    XtAppContext context;
    Display *display;
    Widget shell;
    Widget parent; // gives its child any size
};

// On the screen, 1200 by 900 pixels. Ends the program if there is no server.
ClientDesk OpenDesk();
// Dispatches all that the server has for us, until it has no more.
void Pump(const ClientDesk &desk, XtInputMask what = XtIMAll);

} // namespace corvidlmw::bench

#endif
