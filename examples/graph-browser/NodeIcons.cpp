#include "NodeIcons.h"

#include <cmath>
#include <numbers>
#include <vector>

#include <corvidlmw/gadget/IconG.h>

namespace graph_browser {
namespace {

constexpr int size = 15;
constexpr int middle = size / 2;
constexpr int ring_distance = 3;

// The arrow is as large as the letters of a core font, the first one here; the text is in the other.
XmRenderTable MakeFonts(Widget w) {
    Arg args[] = {{Name(XmNfontType), XmFONT_IS_FONT},
                  {Name(XmNfontName), reinterpret_cast<XtArgVal>("fixed")}};
    XmRendition renditions[] = {
        XmRenditionCreate(w, Name(XmFONTLIST_DEFAULT_TAG), args, XtNumber(args)),
        XmRenditionCreate(w, Name(text_rendition), nullptr, 0)};
    XmRenderTable table = XmRenderTableAddRenditions(nullptr, renditions, 2, XmMERGE_NEW);
    XmRenditionFree(renditions[0]);
    XmRenditionFree(renditions[1]);
    return table;
}

// With one side at the bottom.
std::vector<XPoint> Polygon(int corners, int inset) {
    const double radius = middle - inset;
    std::vector<XPoint> points;
    for (int i = 0; i <= corners; ++i) {
        const double angle = (2 * i + 1) * std::numbers::pi / corners;
        points.push_back({static_cast<short>(std::lround(middle + radius * std::sin(angle))),
                          static_cast<short>(std::lround(middle + radius * std::cos(angle)))});
    }
    return points;
}

} // namespace

NodeIcons::NodeIcons(Widget graph_widget)
    : display(XtDisplay(graph_widget)), root(RootWindowOfScreen(XtScreen(graph_widget))),
      fonts(MakeFonts(graph_widget)) {}

NodeIcons::~NodeIcons() {
    for (const auto &[outline, pixmap] : pictures)
        XFreePixmap(display, pixmap);
    XmRenderTableFree(fonts);
}

// As bitmaps they are drawn in the node's own colours.
void NodeIcons::AddTo(NodeLook &look, const Node &node, bool hides_children) {
    const Pixmap picture = PictureOf(OutlineOf(node.shape));
    look.Add(XmNlabelPixmap, picture);
    look.Add(XmNlabelBitmap, picture);
    look.Add(XmNiconPlacement, XmICON_LEFT);
    look.Add(XmNshowArrow, hides_children ? True : False);
    look.Add(XmNfontList, fonts);
}

NodeIcons::Outline NodeIcons::OutlineOf(const std::string &shape) {
    static const std::map<std::string, Outline> outlines = {
        {"", {0, 1}},
        {"ellipse", {0, 1}},
        {"oval", {0, 1}},
        {"circle", {0, 1}},
        {"egg", {0, 1}},
        {"doublecircle", {0, 2}},
        {"point", {0, 3}},
        {"triangle", {3, 1}},
        {"pentagon", {5, 1}},
        {"hexagon", {6, 1}},
        {"septagon", {7, 1}},
        {"octagon", {8, 1}},
        {"doubleoctagon", {8, 2}},
        {"tripleoctagon", {8, 3}},
    };
    const auto found = outlines.find(shape);
    return found == outlines.end() ? Outline{4, 1} : found->second;
}

Pixmap NodeIcons::PictureOf(Outline outline) {
    const auto [found, is_new] = pictures.try_emplace(outline, None);
    if (is_new)
        found->second = Draw(outline);
    return found->second;
}

Pixmap NodeIcons::Draw(Outline outline) const {
    const Pixmap pixmap = XCreatePixmap(display, root, size, size, 1);
    XGCValues values{};
    values.foreground = 0;
    const GC gc = XCreateGC(display, pixmap, GCForeground, &values);
    XFillRectangle(display, pixmap, gc, 0, 0, size, size);
    XSetForeground(display, gc, 1);
    for (int inset = 0; inset < outline.rings * ring_distance; inset += ring_distance) {
        if (outline.corners == 0) {
            const auto extent = static_cast<unsigned>(size - 1 - 2 * inset);
            XDrawArc(display, pixmap, gc, inset, inset, extent, extent, 0, 360 * 64);
        } else {
            std::vector<XPoint> points = Polygon(outline.corners, inset);
            XDrawLines(display, pixmap, gc, points.data(), static_cast<int>(points.size()),
                       CoordModeOrigin);
        }
    }
    XFreeGC(display, gc);
    return pixmap;
}

} // namespace graph_browser
