// Long random sequences of calls, held against what a list drawn anew shows.
#include <tests/list/ItemWalk.h>

namespace {

using namespace corvidlmw::test;

// Whatever changed, the window shows what it would show if it were drawn anew. Only a cursor that moves takes
// something of its neighbours along.
TEST_F(ItemTest, ShowsWhatItIsTold) {
    Widget list = MakeScrolled(
        {"aa"}, {{XmNvisibleItemCount, 7}, {XmNlistSizePolicy, XmCONSTANT}, {XmNwidth, 90}});
    const auto draw_anew = [&] {
        XClearArea(display, XtWindow(list), 0, 0, 0, 0, True);
        Pump();
        return Picture::Of(list);
    };
    Show();
    XmProcessTraversal(list, XmTRAVERSE_CURRENT);
    Pump();
    ASSERT_TRUE(PartOf(list).traversing);
    Model model{.items = {"aa"}};
    Walk walk(list, model);
    for (int step = 0; step < 600; step++) {
        if (step % 10 == 0) {
            LmListSelectPos(list, step / 10 % 9, False);
            LmListSetKbdItemPos(list, step / 10 % 8);
            draw_anew();
        }
        walk.StepOfRows();
        TakeWarnings();
        Pump();
        ASSERT_NO_FATAL_FAILURE(ExpectInOrder(list)) << step;
        ASSERT_EQ(ItemsOf(list), model.items) << step;
        const Picture shown = Picture::Of(list);
        ASSERT_TRUE(SamePicture(draw_anew(), shown)) << step;
    }
}

} // namespace
