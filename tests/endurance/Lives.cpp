#include <tests/endurance/Lives.h>

namespace corvidlmw::test {

const std::vector<Life> lives = {
    {.name = "XmGraph", .toolkits_name = "XmDrawingArea", .live = LiveGraph},
    {.name = "XmArc", .toolkits_name = "XmSeparatorGadget", .live = LiveArc},
    {.name = "LmList", .toolkits_name = "XmList", .live = LiveList},
    {.name = "LmList, dragged",
     .toolkits_name = "XmList, dragged",
     .live = LiveDraggedList,
     .share = 4},
    {.name = "SvScrollBar", .toolkits_name = "XmScrollBar", .live = LiveScrollBar},
    {.name = "XmvIconGadget", .toolkits_name = "XmLabelGadget", .live = LiveIconGadget},
    {.name = "XmvIconGadget, dragged",
     .toolkits_name = "XmLabelGadget, dragged",
     .live = LiveDraggedIconGadget,
     .share = 4},
    {.name = "XmGrid", .toolkits_name = "XmForm", .live = LiveGrid},
    {.name = "XmHorzPanedWindow", .toolkits_name = "XmPanedWindow", .live = LiveHorzPanedWindow},
    {.name = "XmRubberBoard", .toolkits_name = "XmBulletinBoard", .live = LiveRubberBoard},
    {.name = "XmSpringBox", .toolkits_name = "XmForm", .live = LiveSpringBox},
};

} // namespace corvidlmw::test
