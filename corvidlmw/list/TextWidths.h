// The measures of plain strings in a render table of one core font, from the widths of its characters: the
// toolkit asks the font anew for every string, which is most of what a new row costs.
#pragma once

#include <corvidlmw/toolkit/MotifPrivate.h>
#include <corvidlmw/toolkit/Memory.h>

#include <array>
#include <cstdint>
#include <optional>

namespace corvidlmw::list {

// What XmStringExtent and XmStringLength say of a string of one line.
struct LineMeasures {
    Dimension width = 0;
    Dimension height = 0;
    int length = 0;
};

class TextWidths {
public:
    TextWidths() = default;
    ~TextWidths() { DropContext(); }
    TextWidths(const TextWidths &) = delete;
    TextWidths &operator=(const TextWidths &) = delete;

    // To be called whenever the fonts are others.
    void Take(XmFontList fonts);

    // Nothing for what the toolkit has to measure: other fonts, several lines, tabs, more than ASCII.
    std::optional<LineMeasures> Measure(XmString string);

private:
    using Width = std::int64_t;

    bool AgreesWithToolkit(XmFontList fonts, const Text &text);
    bool BeginWalk(XmString string);
    void DropContext();
    Width WidthOf(const char *text, unsigned length) const;

    // Of a character that is not plain more than all others of a string together.
    static constexpr Width not_plain = Width{1} << 40;
    std::array<Width, 256> widths_{};
    Dimension height_ = 0;
    bool usable_ = false;
    XmStringContext context_ = nullptr; // of the last string, if that was plain
};

} // namespace corvidlmw::list
