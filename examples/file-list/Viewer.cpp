#include "Viewer.h"

#include <Lines.h>

#include <Xm/Text.h>
#include <Xm/Xm.h>

#include <X11/Shell.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>

namespace file_list {

namespace {

constexpr std::streamsize longest_text = 200'000; // bytes

std::string BeginningOf(const std::filesystem::path &file) {
    std::string text(static_cast<std::size_t>(longest_text), '\0');
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        return std::strerror(errno);
    }
    stream.read(text.data(), longest_text);
    text.resize(static_cast<std::size_t>(stream.gcount()));
    std::replace(text.begin(), text.end(), '\0', ' ');
    return text;
}

} // namespace

void ShowFile(Widget shell, const std::filesystem::path &file) {
    const std::string title = file.filename().string();
    Widget window = XtVaCreatePopupShell("viewer", topLevelShellWidgetClass, shell, XmNtitle,
                                         title.c_str(), nullptr);
    Arg args[] = {{const_cast<char *>(XmNeditMode), XmMULTI_LINE_EDIT},
                  {const_cast<char *>(XmNeditable), False},
                  {const_cast<char *>(XmNrows), 30},
                  {const_cast<char *>(XmNcolumns), 90}};
    Widget text =
        XmCreateScrolledText(window, const_cast<char *>("contents"), args, XtNumber(args));
    XmTextSetStringWcs(text, marked_scrollbar::TextOf(BeginningOf(file)).data());
    XtManageChild(text);
    XtPopup(window, XtGrabNone);
}

} // namespace file_list
