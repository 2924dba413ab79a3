// marked-scrollbar FILE [WORD]: a text whose scroll bar shows where a word occurs.

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>

#include <X11/Xatom.h>
#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/TextF.h>

#include "MarkedText.h"

#include <Locale.h>

namespace {

using namespace marked_scrollbar;

char *fallback_resources[] = {
#include <MarkedScrollbarResources.inc>
    nullptr,
};

// ---- Resources -------------------------------------------------------------------------------------

struct Options {
    Pixel mark_color;
};

XtResource option_resources[] = {
    {const_cast<char *>("markColor"), const_cast<char *>("MarkColor"), const_cast<char *>(XmRPixel),
     sizeof(Pixel), XtOffsetOf(Options, mark_color), const_cast<char *>(XmRString),
     const_cast<char *>("red")},
};

Pixel MarkColor(Widget shell) {
    Options options{};
    XtGetApplicationResources(shell, &options, option_resources, XtNumber(option_resources),
                              nullptr, 0);
    return options.mark_color;
}

// ---- Window ----------------------------------------------------------------------------------------

struct MarkedWindow {
    Widget word;
    Widget count;
    MarkedText *text;
};

void ShowCount(const MarkedWindow &window) {
    const int number = window.text->NumOccurrences();
    const std::string words = std::to_string(number) + (number == 1 ? " time" : " times") + " in " +
                              std::to_string(window.text->NumMarkedLines()) + " lines";
    XmString label = XmStringCreateLocalized(const_cast<char *>(words.c_str()));
    XtVaSetValues(window.count, XmNlabelString, label, nullptr);
    XmStringFree(label);
}

void WordChanged(Widget field, XtPointer closure, XtPointer) {
    auto &window = *static_cast<MarkedWindow *>(closure);
    wchar_t *word = XmTextFieldGetStringWcs(field);
    window.text->SetWord(word);
    XtFree(reinterpret_cast<char *>(word));
}

void GoToNext(Widget, XtPointer closure, XtPointer) {
    static_cast<MarkedWindow *>(closure)->text->GoToNext();
}

Widget CreateLabel(Widget form, const char *name, const char *text) {
    XmString label = XmStringCreateLocalized(const_cast<char *>(text));
    Widget widget =
        XtVaCreateManagedWidget(name, xmLabelWidgetClass, form, XmNlabelString, label,
                                XmNtopAttachment, XmATTACH_FORM, XmNtopOffset, 8, nullptr);
    XmStringFree(label);
    return widget;
}

// The row with the word, above the text.
MarkedWindow CreateRow(Widget form) {
    Widget find = CreateLabel(form, "find", "Find");
    Widget count = CreateLabel(form, "count", "");
    XtVaSetValues(find, XmNleftAttachment, XmATTACH_FORM, XmNleftOffset, 6, nullptr);
    XtVaSetValues(count, XmNrightAttachment, XmATTACH_FORM, XmNrightOffset, 6, nullptr);
    Widget word = XtVaCreateManagedWidget(
        "word", xmTextFieldWidgetClass, form, XmNtopAttachment, XmATTACH_FORM, XmNtopOffset, 4,
        XmNleftAttachment, XmATTACH_WIDGET, XmNleftWidget, find, XmNleftOffset, 6,
        XmNrightAttachment, XmATTACH_WIDGET, XmNrightWidget, count, XmNrightOffset, 12, nullptr);
    return {word, count, nullptr};
}

// A script that takes a picture waits for the property MARKED_SCROLLBAR_SHOWN: it is there when
// nothing is left to be drawn.
Boolean TellWhenShown(XtPointer closure) {
    Widget shell = static_cast<Widget>(closure);
    Display *display = XtDisplay(shell);
    XSync(display, False);
    if (XPending(display) > 0)
        return False;
    const unsigned char shown = 1;
    XChangeProperty(display, XtWindow(shell), XInternAtom(display, "MARKED_SCROLLBAR_SHOWN", False),
                    XA_CARDINAL, 8, PropModeReplace, &shown, 1);
    XFlush(display);
    return True;
}

void Exposed(Widget w, XtPointer shell, XEvent *, Boolean *) {
    XtRemoveEventHandler(w, ExposureMask, False, Exposed, shell);
    XtAppAddWorkProc(XtWidgetToApplicationContext(w), TellWhenShown, shell);
}

void Run(XtAppContext app, Widget shell, const std::wstring &content, char *word) {
    Widget form = XtVaCreateManagedWidget("form", xmFormWidgetClass, shell, nullptr);
    MarkedWindow window = CreateRow(form);
    MarkedText text(form, MarkColor(shell));
    window.text = &text;
    XtVaSetValues(text.Window(), XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, window.word,
                  XmNtopOffset, 4, XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment,
                  XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM, nullptr);
    text.WhenSearched([&] { ShowCount(window); });
    text.SetText(content);
    XtAddCallback(window.word, XmNvalueChangedCallback, WordChanged, &window);
    XtAddCallback(window.word, XmNactivateCallback, GoToNext, &window);
    XmTextFieldSetString(window.word, word);
    XtAddEventHandler(text.Bar(), ExposureMask, False, Exposed, shell);
    XtRealizeWidget(shell);
    XmProcessTraversal(window.word, XmTRAVERSE_CURRENT);
    XtAppMainLoop(app);
}

// ---- Program ---------------------------------------------------------------------------------------

// Nothing, with errno set, if it cannot be read.
std::optional<std::string> BytesOf(const char *file) {
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    if (stream && stream.peek() != std::ifstream::traits_type::eof())
        bytes << stream.rdbuf();
    return errno == 0 ? std::optional(bytes.str()) : std::nullopt;
}

} // namespace

int main(int argc, char **argv) {
    XtSetLanguageProc(nullptr, example::SetLocale, nullptr);
    XtToolkitInitialize();
    XtAppContext app = XtCreateApplicationContext();
    XtAppSetFallbackResources(app, fallback_resources);
    Display *display =
        XtOpenDisplay(app, nullptr, nullptr, "MarkedScrollbar", nullptr, 0, &argc, argv);
    if (!display) {
        std::cerr << "marked-scrollbar: no display\n";
        return 1;
    }
    if (argc < 2 || argc > 3 || argv[1][0] == '-') {
        std::cerr << "usage: marked-scrollbar FILE [WORD]\n";
        return 2;
    }
    const auto bytes = BytesOf(argv[1]);
    if (!bytes) {
        std::cerr << "marked-scrollbar: " << argv[1] << ": " << std::strerror(errno) << '\n';
        return 1;
    }
    const std::string title = std::string("marked-scrollbar: ") + argv[1];
    Widget shell = XtVaAppCreateShell(nullptr, "MarkedScrollbar", applicationShellWidgetClass,
                                      display, XmNtitle, title.c_str(), nullptr);
    char nothing[] = "";
    Run(app, shell, TextOf(*bytes), argc == 3 ? argv[2] : nothing);
}
