#include "Board.h"

#include <Xm/LabelG.h>
#include <corvidlmw/gadget/IconG.h>

#include <algorithm>
#include <utility>

namespace icon_board {

namespace {

constexpr int left_edge = 150;
constexpr int gap = 10;

constexpr std::pair<const char *, int> placements[] = {
    {"top", XmICON_TOP}, {"bottom", XmICON_BOTTOM}, {"left", XmICON_LEFT}, {"right", XmICON_RIGHT}};
constexpr std::pair<const char *, int> alignments[] = {
    {"beginning", XmALIGNMENT_BEGINNING}, {"center", XmALIGNMENT_CENTER}, {"end", XmALIGNMENT_END}};
constexpr std::pair<const char *, int> shadows[] = {{"etched in", XmSHADOW_ETCHED_IN},
                                                    {"etched out", XmSHADOW_ETCHED_OUT},
                                                    {"in", XmSHADOW_IN},
                                                    {"out", XmSHADOW_OUT},
                                                    {"drop", XmSHADOW_DROP}};

char *Name(const char *name) {
    return const_cast<char *>(name);
}

Arg Set(const char *name, XtArgVal value) {
    return {Name(name), value};
}

// A text below its picture moves down by half of the height that there is to spare.
int HeightFor(int placement) {
    constexpr int tall = 70;
    return placement == XmICON_TOP || placement == XmICON_BOTTOM ? tall : 0;
}

} // namespace

Board::Board(Widget parent, bool sensitive)
    : parent_(parent), sensitive_(sensitive), pictures_(parent) {
    ShowPlacements();
    ShowShadows();
    ShowArrows();
    ShowPictures();
    ShowTexts();
    ShowStates();
}

void Board::StartRow(const std::string &title) {
    y_ += row_height_ + gap;
    x_ = left_edge;
    row_height_ = 0;
    XtVaCreateManagedWidget(title.c_str(), xmLabelGadgetClass, parent_, XmNx, gap, XmNy, y_,
                            nullptr);
}

Widget Board::Add(const std::string &text, int width, const Settings &settings, const char *name) {
    XmString label = XmStringCreateLocalized(Name(text.c_str()));
    Settings all = {Set(XmNlabelString, reinterpret_cast<XtArgVal>(label)),
                    Set(XmNwidth, width),
                    Set(XmNx, x_),
                    Set(XmNy, y_),
                    Set(XmNsensitive, sensitive_),
                    Set(XmNlabelInsensitivePixmap, pictures_.grey_folder())};
    all.insert(all.end(), settings.begin(), settings.end());
    Widget gadget =
        XmvCreateIconGadget(parent_, Name(name), all.data(), static_cast<Cardinal>(all.size()));
    XmStringFree(label);
    XtManageChild(gadget);
    Dimension taken = 0;
    Dimension height = 0;
    XtVaGetValues(gadget, XmNwidth, &taken, XmNheight, &height, nullptr);
    x_ += taken + gap;
    row_height_ = std::max<int>(row_height_, height);
    return gadget;
}

// In gadgets that are wider than they need to be.
void Board::ShowPlacements() {
    for (const auto &[placement_name, placement] : placements) {
        StartRow(std::string("icon ") + placement_name);
        for (const auto &[alignment_name, alignment] : alignments) {
            Add(alignment_name, 160,
                {Set(XmNiconPlacement, placement), Set(XmNalignment, alignment),
                 Set(XmNlabelPixmap, pictures_.folder()), Set(XmNheight, HeightFor(placement))});
        }
    }
}

void Board::ShowShadows() {
    for (const int thickness : {2, 5}) {
        StartRow("shadow of " + std::to_string(thickness));
        for (const auto &[name, type] : shadows) {
            Add(name, 0,
                {Set(XmNshadowType, type), Set(XmNshadowThickness, thickness),
                 Set(XmNmarginMiddle, 0), Set(XmNmarginWidth, 8), Set(XmNmarginHeight, 5)});
        }
    }
}

// An arrow is as large as the letters of a core font: antialiased ones do not count.
void Board::ShowArrows() {
    StartRow("arrow");
    for (const auto &[name, placement] : placements) {
        Add(name, 120,
            {Set(XmNshowArrow, True), Set(XmNiconPlacement, placement),
             Set(XmNlabelPixmap, pictures_.folder()), Set(XmNheight, HeightFor(placement))},
            "core");
    }
}

void Board::ShowPictures() {
    const Arg bitmap = Set(XmNlabelBitmap, pictures_.check());
    const Arg as_picture = Set(XmNlabelPixmap, pictures_.check());
    const Arg insensitive = Set(XmNlabelInsensitivePixmap, pictures_.check());
    StartRow("pictures");
    Add("bitmap", 0, {as_picture, insensitive, bitmap});
    Add("bitmap in colours", 0,
        {as_picture, insensitive, bitmap, Set(XmNforeground, 0x205090),
         Set(XmNbackground, 0xf0e8d0)});
    Add("", 0, {Set(XmNlabelPixmap, pictures_.folder())});
    Add("without picture", 0, {});
}

void Board::ShowTexts() {
    StartRow("texts");
    Add("two\nlines", 0, {Set(XmNlabelPixmap, pictures_.folder())});
    Add("three lines,\nto the\nright", 0,
        {Set(XmNlabelPixmap, pictures_.folder()), Set(XmNiconPlacement, XmICON_LEFT),
         Set(XmNalignment, XmALIGNMENT_END)});
    Add("Dvořák, Ωδή", 0, {Set(XmNlabelPixmap, pictures_.folder())});
    Add("core font", 0, {Set(XmNlabelPixmap, pictures_.folder())}, "core");
    Widget fixed = Add("a text that has no room", 90, {Set(XmNlabelPixmap, pictures_.folder())});
    XtVaSetValues(fixed, XmNrecomputeSize, False, nullptr);
}

void Board::ShowStates() {
    const Arg folder = Set(XmNlabelPixmap, pictures_.folder());
    StartRow("states");
    Add("as the board", 0, {folder});
    Add("the other way", 0, {folder, Set(XmNsensitive, !sensitive_)});
    // The pointer highlights it where the focus follows the pointer.
    Add("traversed", 0, {folder, Set(XmNtraversalOn, True), Set(XmNhighlightThickness, 3)});
}

} // namespace icon_board
