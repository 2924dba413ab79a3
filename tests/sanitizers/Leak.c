/* Loses one block, from the toolkit's allocator and below one of its callbacks, as a widget of ours
 * would: the leak sanitizer has to say so. */
#include <X11/Intrinsic.h>

static void *volatile block;

static void LoseBlock(XtPointer client_data, XtIntervalId *timer) {
    (void)client_data;
    (void)timer;
    block = XtMalloc(333);
    block = NULL;
}

int main(void) {
    XtToolkitInitialize();
    XtAppContext app = XtCreateApplicationContext();
    XtAppAddTimeOut(app, 0, LoseBlock, NULL);
    XtAppProcessEvent(app, XtIMTimer);
    XtDestroyApplicationContext(app);
    return 0;
}
