// file-list DIR: a directory and what is in its directories, in a list with icons and columns.

#include "FileWindow.h"

#include <X11/Xatom.h>
#include <Xm/Xm.h>

#include <clocale>
#include <filesystem>
#include <iostream>
#include <system_error>

namespace {

using namespace file_list;

char *fallback_resources[] = {
#include <FileListResources.inc>
    nullptr,
};

// A script that takes a picture waits for this property.
Boolean TellWhenShown(XtPointer closure) {
    Widget shell = static_cast<Widget>(closure);
    Display *display = XtDisplay(shell);
    XSync(display, False);
    if (XPending(display) > 0) {
        return False;
    }
    const unsigned char shown = 1;
    XChangeProperty(display, XtWindow(shell), XInternAtom(display, "FILE_LIST_SHOWN", False),
                    XA_CARDINAL, 8, PropModeReplace, &shown, 1);
    XFlush(display);
    return True;
}

void Exposed(Widget w, XtPointer shell, XEvent *, Boolean *) {
    XtRemoveEventHandler(w, ExposureMask, False, Exposed, shell);
    XtAppAddWorkProc(XtWidgetToApplicationContext(w), TellWhenShown, shell);
}

bool IsReadable(const char *directory) {
    std::error_code error;
    const std::filesystem::directory_iterator first(directory, error);
    if (error) {
        std::cerr << "file-list: " << directory << ": " << error.message() << '\n';
    }
    return !error;
}

} // namespace

int main(int argc, char **argv) {
    XtSetLanguageProc(nullptr, nullptr, nullptr);
    XtAppContext app = nullptr;
    Widget shell = XtVaOpenApplication(&app, "FileList", nullptr, 0, &argc, argv,
                                       fallback_resources, applicationShellWidgetClass, nullptr);
    // Names are UTF-8, also where the environment says nothing of a locale.
    std::setlocale(LC_CTYPE, "C.UTF-8");
    if (argc != 2) {
        std::cerr << "usage: file-list DIR\n";
        return EXIT_FAILURE;
    }
    if (!IsReadable(argv[1])) {
        return EXIT_FAILURE;
    }
    FileWindow window(shell, argv[1]);
    XtAddEventHandler(window.files().list(), ExposureMask, False, Exposed, shell);
    XtRealizeWidget(shell);
    XtAppMainLoop(app);
    return EXIT_SUCCESS;
}
