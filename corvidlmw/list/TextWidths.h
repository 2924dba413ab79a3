// The extents of plain strings in a render table of one core font, from the widths of its characters: the
// toolkit asks the font anew for every string, which is most of what a new row costs.
#pragma once

#include <corvidlmw/toolkit/MotifPrivate.h>

#include <array>

namespace corvidlmw::list {

class TextWidths {
public:
    // To be called whenever the fonts are others.
    void Take(XmFontList fonts);

    // False for what the toolkit has to measure: other fonts, several lines, tabs, more than ASCII.
    bool Measure(XmString string, Dimension *width, Dimension *height) const;

private:
    static constexpr unsigned char first = ' ';
    static constexpr unsigned char last = '~';

    bool AddText(const char *text, unsigned length, int *width) const;

    std::array<short, last - first + 1> widths_{};
    Dimension height_ = 0;
    bool usable_ = false;
};

} // namespace corvidlmw::list
