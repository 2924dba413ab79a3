// All that an icon gadget can look like, in rows.
#pragma once

#include "Pictures.h"

#include <Xm/Xm.h>

#include <string>
#include <vector>

namespace icon_board {

class Board {
public:
    // Fills `parent`, a bulletin board or drawing area.
    Board(Widget parent, bool sensitive);
    Board(const Board &) = delete;
    Board &operator=(const Board &) = delete;

private:
    using Settings = std::vector<Arg>;

    void StartRow(const std::string &title);
    // A gadget of this width beside the last one; 0 is the width that it wants.
    Widget Add(const std::string &text, int width, const Settings &settings,
               const char *name = "icon");

    void ShowPlacements();
    void ShowShadows();
    void ShowArrows();
    void ShowPictures();
    void ShowTexts();
    void ShowStates();

    Widget parent_;
    bool sensitive_;
    Pictures pictures_;
    int x_ = 0;
    int y_ = 0;
    int row_height_ = 0;
};

} // namespace icon_board
