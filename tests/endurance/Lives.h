// What a client does with a widget of each class from its creation to its end, and the same with one of
// the toolkit's nearest class.
#pragma once

#include <tests/endurance/Stage.h>

#include <ostream>

namespace corvidlmw::test {

enum class Whose { ours, toolkits };

struct Life {
    const char *name;
    const char *toolkits_name;
    // Makes the widget on the stage's board, uses and destroys it.
    void (*live)(Stage &, Whose);
    // Of a hundred rounds; drags from widget to widget take their time.
    int share = 100;
};

inline std::ostream &operator<<(std::ostream &out, const Life &life) {
    return out << life.name;
}

extern const std::vector<Life> lives;

void LiveGraph(Stage &, Whose);
void LiveArc(Stage &, Whose);
void LiveList(Stage &, Whose);
void LiveDraggedList(Stage &, Whose);
void LiveScrollBar(Stage &, Whose);
void LiveIconGadget(Stage &, Whose);
void LiveDraggedIconGadget(Stage &, Whose);
void LiveGrid(Stage &, Whose);
void LiveHorzPanedWindow(Stage &, Whose);
void LiveRubberBoard(Stage &, Whose);
void LiveSpringBox(Stage &, Whose);

// ---- Parts of more than one life --------------------------------------------------------------------

// Colours, units, sensitivity, help: what all classes have.
void UseCommonResources(Widget);
void UseKeyboard(Stage &, Widget);
void DragToText(Stage &, Widget source, XPoint start);
void End(Stage &, Widget);

} // namespace corvidlmw::test
