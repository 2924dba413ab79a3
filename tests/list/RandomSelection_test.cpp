// Long random sequences of gestures, keys and calls, also from within callbacks, and what must hold
// whenever the user's hands are off; and clients that turn the list upside down in each callback.
#include <tests/list/SelectionTest.h>
#include <tests/support/Random.h>

#include <X11/keysym.h>

#include <functional>
#include <optional>

namespace {

using corvidlmw::LifeWatch;
using namespace corvidlmw::test;

class RandomSelectionTest : public SelectionTest {
protected:
    RandomSelectionTest()
        : SelectionTest([](XtPointer data) {
              FreeIfMine(*static_cast<LmListCallbackStruct *>(data));
              return std::string();
          }) {}

    // Strings differ, so that none is selected for its likeness to another.
    void ChangeRows() {
        const int count = Get(list, XmNitemCount);
        const int position = random.Between(1, count + 1);
        Strings fresh({"row " + std::to_string(serial++), "row " + std::to_string(serial++)});
        XmString strings[] = {fresh[0], fresh[1]};
        switch (random.Between(0, count > 40 ? 8 : 6)) {
        case 0: return LmListReplaceItemsPos(list, strings, 1, std::min(position, count));
        case 1: return LmListSelectPos(list, std::min(position, count), random.Chance(0.2));
        case 2: return LmListDeselectAllItems(list);
        case 3: return random.Chance(0.1) ? LmListDeleteAllItems(list) : (void)0;
        case 4:
        case 5: return LmListAddItems(list, strings, 2, position);
        case 6: return LmListSetPos(list, std::min(position, count));
        default: return LmListDeletePos(list, count ? std::min(position, count) : 0);
        }
    }

    void Gesture() {
        constexpr unsigned int modifiers[] = {0, 0, ShiftMask, ControlMask};
        const unsigned int held = modifiers[random.Between(0, 3)];
        PressModifiers(held);
        PressRow(random.Between(0, 8), random.Between(3, 160));
        for (int i = random.Between(0, 4); i > 0; i--) {
            MoveToRow(random.Between(-3, 12), random.Between(3, 190));
            if (random.Chance(0.1))
                RunWorkProcs();
            if (random.Chance(0.1))
                Key(XK_Escape);
            if (random.Chance(0.1))
                ChangeRows();
        }
        Release();
        ReleaseModifiers(held);
    }

    void Press1Key() {
        constexpr KeySym keys[] = {XK_Up,  XK_Down,  XK_Down, XK_Next,  XK_Prior,     XK_Home,
                                   XK_End, XK_space, XK_F8,   XK_slash, XK_backslash, XK_Return};
        constexpr unsigned int modifiers[] = {0, 0, ShiftMask, ControlMask,
                                              ShiftMask | ControlMask};
        Key(keys[random.Between(0, XtNumber(keys) - 1)], modifiers[random.Between(0, 4)]);
    }

    void ExpectAtRest() {
        const auto &part = PartOf(list);
        ASSERT_NO_FATAL_FAILURE(ExpectInOrder(list));
        ASSERT_EQ(part.event_flags, 0);
        ASSERT_EQ(part.drag_timer, 0u);
        ASSERT_EQ(part.append_in_progress, False);
        const Rows selected = Selected();
        if (part.selection_policy == XmSINGLE_SELECT || part.selection_policy == XmBROWSE_SELECT) {
            ASSERT_LE(selected.size(), 1u);
        }
        Rows answered;
        int *positions = nullptr;
        int count = 0;
        LmListUpdateSelectedList(list);
        if (LmListGetSelectedPos(list, &positions, &count))
            for (int i = 0; i < count; i++)
                answered.push_back(positions[i] - 1);
        XtFree(reinterpret_cast<char *>(positions));
        ASSERT_EQ(answered, selected);
    }

    Random random{2};
    int serial = 1000;
};

TEST_F(RandomSelectionTest, HoldsItsPromises) {
    log.OnEach([this](const auto &) {
        if (random.Chance(0.15))
            ChangeRows();
    });
    for (const int policy :
         {XmSINGLE_SELECT, XmMULTIPLE_SELECT, XmEXTENDED_SELECT, XmBROWSE_SELECT})
        for (const bool automatic : {false, true}) {
            SCOPED_TRACE(::testing::Message()
                         << "policy " << policy << ", automatic " << automatic);
            Start(policy, automatic, 20, {{XmNshowIcons, automatic}, {XmNdoubleClickInterval, 30}});
            XmProcessTraversal(list, XmTRAVERSE_CURRENT);
            for (int i = 0; i < 60; i++) {
                random.Chance(0.5) ? Gesture() : random.Chance(0.6) ? Press1Key() : ChangeRows();
                ASSERT_NO_FATAL_FAILURE(ExpectAtRest()) << "step " << i;
                if (i % 10 == 9)
                    ExpectDrawn();
            }
            XtDestroyWidget(list);
        }
}

// What is done to the list in mid-gesture, and what the user does.
TEST_F(RandomSelectionTest, SurvivesItsClients) {
    Strings few(Numbered(2)), many(Numbered(30));
    const std::function<void()> acts[] = {
        [this] { LmListDeleteAllItems(list); },
        [this] { LmListDeletePos(list, 0); },
        [&] { Set(list, few.Items()); },
        [&] { Set(list, many.Items()); },
        [this] {
            Set(list, {{XmNselectionPolicy, XmSINGLE_SELECT}, {XmNsensitive, False}});
        },
        [this] { XtDestroyWidget(list); }};
    const auto drag = [this](int x) {
        const LifeWatch life(list);
        PressRow(6, x);
        for (const int row : {2, 5})
            if (!life.Ended())
                MoveToRow(row, x);
        Release();
    };
    const auto key = [this](KeySym keysym, unsigned int modifiers = 0) {
        return [=, this] { Key(keysym, modifiers); };
    };
    const std::function<void()> gestures[] = {[&] { drag(60); },
                                              [&] { drag(5); },
                                              [&] { ClickRow(3); },
                                              [&] { ClickRow(3); },
                                              key(XK_Down),
                                              key(XK_Down, ShiftMask),
                                              key(XK_Next),
                                              key(XK_Prior),
                                              key(XK_space),
                                              key(XK_space, ShiftMask),
                                              key(XK_Return),
                                              key(XK_F8, ShiftMask),
                                              key(XK_slash, ControlMask),
                                              key(XK_Home, ControlMask),
                                              key(XK_End, ControlMask),
                                              key(XK_End, ControlMask | ShiftMask),
                                              key(XK_backslash, ControlMask)};
    for (const int policy :
         {XmSINGLE_SELECT, XmMULTIPLE_SELECT, XmEXTENDED_SELECT, XmBROWSE_SELECT})
        for (const auto &act : acts) {
            std::optional<LifeWatch> life;
            for (const auto &gesture : gestures) {
                if (!life || life->Ended()) {
                    log.OnEach(nullptr);
                    Start(policy, policy == XmBROWSE_SELECT, 20,
                          {{XmNshowIcons, True}, {XmNdoubleClickInterval, 5000}});
                    XmProcessTraversal(list, XmTRAVERSE_CURRENT);
                    life.emplace(list);
                    log.OnEach([&act](const auto &) { act(); });
                } else if (Get(list, XmNitemCount) < 8) {
                    Set(list, many.Items());
                }
                gesture();
            }
            if (!life->Ended())
                XtDestroyWidget(list);
        }
}

} // namespace
