// Where text, picture and arrow of an icon gadget stand: arithmetic only.
#pragma once

#include <corvidlmw/toolkit/Geometry.h>

#include <optional>

namespace corvidlmw::icon_gadget {

enum class Alignment { beginning, center, end };
enum class Placement { top, bottom, left, right };

struct Extent {
    int width = 0;
    int height = 0;
    friend bool operator==(const Extent &, const Extent &) = default;
};

struct Margins {
    int width = 0; // on either side
    int height = 0;
    int left = 0;
    int right = 0;
    int top = 0;
    int bottom = 0;
};

struct Contents {
    Extent text;
    // A gadget whose pixmap is only unspecified counts as having a picture of no size, and keeps the gap.
    std::optional<Extent> picture;
    int gap = 0; // between text and picture
    Margins margins;
    int border = 0;      // highlight and shadow
    int arrow_space = 0; // 0 without an arrow
    Alignment alignment = Alignment::center;
    Placement placement = Placement::right;
};

struct Places {
    Extent size;
    Point text;
    std::optional<int> picture_x; // none: it stays where it was
    int picture_y = 0;
};

// What the text alone needs: picture and arrow do not enter.
Extent TextSize(const Contents &contents);

// A width or height of 0 becomes what text, picture and arrow need, at least 1.
Places Place(const Contents &contents, Extent size);

} // namespace corvidlmw::icon_gadget
