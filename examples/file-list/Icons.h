// Small pictures of the kinds of files, drawn when the program starts, also with a check mark, and as they
// look while they are pressed.
#pragma once

#include "Directory.h"

#include <X11/Intrinsic.h>

#include <map>
#include <utility>

namespace file_list {

enum class Look { Plain, Pressed, Checked };

class Icons {
public:
    // For a widget whose screen, colours and background they have.
    explicit Icons(Widget w);
    ~Icons();
    Icons(const Icons &) = delete;
    Icons &operator=(const Icons &) = delete;

    Pixmap Of(Kind kind, Look look) const { return pixmaps_.at({kind, look}); }

private:
    Display *display_;
    std::map<std::pair<Kind, Look>, Pixmap> pixmaps_;
};

} // namespace file_list
