#include <corvidlmw/gadget/IconGGeometry.h>

#include <algorithm>

namespace corvidlmw::icon_gadget {

namespace {

bool IsBeside(Placement placement) {
    return placement == Placement::left || placement == Placement::right;
}

int WidthOf(const Contents &contents) {
    const int text = TextSize(contents).width + contents.arrow_space;
    if (!contents.picture) {
        return text;
    }
    return IsBeside(contents.placement) ? text + contents.picture->width + contents.gap
                                        : std::max(text, contents.picture->width);
}

// The gap counts above and below also where there is no picture.
int HeightOf(const Contents &contents) {
    const int text = TextSize(contents).height;
    const int picture = contents.picture.value_or(Extent{}).height;
    return IsBeside(contents.placement) ? std::max(text, picture) : text + picture + contents.gap;
}

struct Band {
    int left;
    int right;
};

// Between what stands at the left and at the right of the text.
Band TextBand(const Contents &contents, int width) {
    const Margins &margins = contents.margins;
    Band band = {contents.border + margins.width + margins.left,
                 width - contents.border - margins.width - margins.right - contents.arrow_space};
    if (contents.picture) {
        const int taken = contents.picture->width + contents.gap;
        band.left += contents.placement == Placement::left ? taken : 0;
        band.right -= contents.placement == Placement::right ? taken : 0;
    }
    return band;
}

int TextX(const Contents &contents, const Band &band) {
    switch (contents.alignment) {
    case Alignment::beginning: return band.left;
    case Alignment::center: return (band.right - band.left - contents.text.width) / 2 + band.left;
    case Alignment::end: return band.right - contents.text.width;
    }
    return band.left;
}

// A centred text has its picture beside it; otherwise the picture at the band's fixed end stays there.
std::optional<int> PictureX(const Contents &contents, const Band &band, int text_x, int width) {
    if (!contents.picture && contents.alignment == Alignment::beginning) {
        return std::nullopt;
    }
    const Extent picture = contents.picture.value_or(Extent{});
    const bool centered = contents.alignment == Alignment::center;
    switch (contents.placement) {
    case Placement::left: return (centered ? text_x : band.left) - contents.gap - picture.width;
    case Placement::right:
        return contents.gap +
               (contents.alignment == Alignment::end ? band.right : text_x + contents.text.width);
    case Placement::top:
    case Placement::bottom: return (width - picture.width) / 2;
    }
    return std::nullopt;
}

// Above the text, the picture shifts it by the gap only, not by its own height: where the height is
// fixed, a tall picture and the text overlap.
void PlaceVertically(const Contents &contents, Places &places) {
    const Margins &margins = contents.margins;
    const int top = contents.border + margins.height + margins.top;
    const int room =
        places.size.height - margins.top - margins.bottom - 2 * (margins.height + contents.border);
    const int text_height = contents.text.height;
    const int picture_height = contents.picture.value_or(Extent{}).height;
    switch (contents.placement) {
    case Placement::top:
        places.text.y = (room - text_height) / 2 + top + contents.gap;
        places.picture_y = top;
        return;
    case Placement::bottom:
        places.text.y = top;
        places.picture_y = top + contents.gap + text_height;
        return;
    case Placement::left:
    case Placement::right:
        places.text.y = (room - text_height) / 2 + top;
        places.picture_y = (room - picture_height) / 2 + top;
        return;
    }
}

// In the 16 bits of a size, since places are counted from it.
int SizeOr(int given, int natural) {
    return given != 0 ? given : CutToDimension(natural);
}

} // namespace

Extent TextSize(const Contents &contents) {
    const Margins &margins = contents.margins;
    return {contents.text.width + margins.left + margins.right +
                2 * (margins.width + contents.border),
            contents.text.height + margins.top + margins.bottom +
                2 * (margins.height + contents.border)};
}

Places Place(const Contents &contents, Extent size) {
    Places places;
    places.size = {SizeOr(size.width, WidthOf(contents)), SizeOr(size.height, HeightOf(contents))};
    const Band band = TextBand(contents, places.size.width);
    places.text.x = TextX(contents, band);
    places.picture_x = PictureX(contents, band, places.text.x, places.size.width);
    PlaceVertically(contents, places);
    places.size.width = std::max(places.size.width, 1);
    places.size.height = std::max(places.size.height, 1);
    return places;
}

} // namespace corvidlmw::icon_gadget
