// Small pictures of the kinds of files, drawn when the program starts.
#pragma once

#include "Directory.h"

#include <X11/Intrinsic.h>

#include <map>

namespace file_list {

class Icons {
public:
    // For a widget whose screen, colours and background they have.
    explicit Icons(Widget w);
    ~Icons();
    Icons(const Icons &) = delete;
    Icons &operator=(const Icons &) = delete;

    Pixmap Of(Kind kind) const { return pixmaps_.at(kind); }

private:
    Display *display_;
    std::map<Kind, Pixmap> pixmaps_;
};

} // namespace file_list
