// Long random sequences of gestures, keys and calls, held against a model; and clients that turn the list
// upside down in each callback.
#include <tests/list/GestureModel.h>
#include <tests/list/ItemWalk.h>
#include <tests/list/SelectionTest.h>

#include <X11/keysym.h>

#include <functional>
#include <optional>

namespace {

using corvidlmw::LifeWatch;
using namespace corvidlmw::test;

class RandomSelectionTest : public SelectionTest {
protected:
    RandomSelectionTest()
        : SelectionTest([](XtPointer call_data) {
              const auto &data = *static_cast<LmListCallbackStruct *>(call_data);
              FreeIfMine(data);
              std::string told = data.reason == XmCR_DEFAULT_ACTION ? "default " : "selection ";
              told += std::to_string(data.item_position);
              for (int i = 0; i < data.selected_item_count; i++)
                  told += ' ' + std::to_string(data.selected_item_positions[i]);
              return told;
          }) {}

    Random random{2};
};

// ---- Against the model --------------------------------------------------------------------------------

class Hands : public RandomSelectionTest {
protected:
    void Begin(int policy, bool automatic) {
        Start(policy, automatic, 20, {{XmNscrollBarDisplayPolicy, XmSTATIC}});
        // Room for the pointer above it.
        Set(XtParent(list), {{XmNy, 100}});
        // The pointer held outside scrolls in good time, not here.
        Set(PartOf(list).vertical_scroll_bar,
            {{XmNinitialDelay, 1000000}, {XmNrepeatDelay, 1000000}});
        XmProcessTraversal(list, XmTRAVERSE_CURRENT);
        Pump();
        model.emplace(Model{.items = Numbered(20),
                            .visible = PartOf(list).visible_item_count,
                            .policy = policy,
                            .automatic = automatic,
                            .has_keyboard = true});
    }
    // Each time at another place, so that the server tells of it.
    void PointAt(int line) { MoveToRow(line, x ^= 1); }

    void Gesture(Walk &walk) {
        constexpr std::pair<GestureModel::Modifier, unsigned int> modifiers[] = {
            {GestureModel::plain, 0},
            {GestureModel::shift, ShiftMask},
            {GestureModel::control, ControlMask}};
        const int visible = model->visible;
        const auto [with, mask] = modifiers[random.Between(0, 2)];
        int line = random.Between(0, visible - 1);
        PressModifiers(mask);
        PointAt(line);
        Press();
        model->Press(line, with);
        ASSERT_EQ(TakeTold(), std::exchange(model->told, {}));
        for (int i = random.Between(0, 4); i > 0; i--) {
            if (random.Chance(0.15)) {
                walk.StepOfRows();
            } else if (with == GestureModel::plain && random.Chance(0.1)) {
                Key(XK_Escape);
                model->Cancel();
            }
            line = random.Between(-1, visible);
            PointAt(line == visible ? visible + 4 : line < 0 ? -4 : line);
            model->Move(line);
            ASSERT_EQ(Selected(), model->SelectedRows());
            ASSERT_EQ(TakeTold(), std::exchange(model->told, {}));
        }
        // In every policy a gesture ends, whatever key is down by then.
        if (random.Chance(0.2))
            PressModifiers(ShiftMask);
        Release();
        model->Release(line);
        ReleaseModifiers(mask | ShiftMask);
    }

    void UseKey() {
        using M = GestureModel;
        switch (random.Between(0, 15)) {
        case 0:
        case 1: return Key(XK_Up), model->Step(-1, M::plain);
        case 2:
        case 3: return Key(XK_Down), model->Step(1, M::plain);
        case 4: return Key(XK_Up, ShiftMask), model->Step(-1, M::shift);
        case 5: return Key(XK_Down, ShiftMask), model->Step(1, M::shift);
        case 6: return Key(XK_Prior), model->TurnPage(false);
        case 7: return Key(XK_Next), model->TurnPage(true);
        case 8: return Key(XK_Home, ControlMask), model->GoToEnd(false, M::plain);
        case 9: return Key(XK_End, ControlMask), model->GoToEnd(true, M::plain);
        case 10: {
            const bool last = random.Chance(0.5);
            Key(last ? XK_End : XK_Home, ControlMask | ShiftMask);
            return model->GoToEnd(last, M::shift);
        }
        case 11: return Key(XK_space), model->Space(M::plain);
        case 12: return Key(XK_space, ShiftMask), model->Space(M::shift);
        case 13: return Key(XK_F8, ShiftMask), model->ToggleAddMode();
        case 14: return Key(XK_Return), model->Activate();
        default:
            if (random.Chance(0.5))
                return Key(XK_slash, ControlMask), model->SelectAll();
            return Key(XK_backslash, ControlMask), model->DeselectAllByKey();
        }
    }

    int x = 40;
    std::optional<GestureModel> model;
};

TEST_F(Hands, DoToAListWhatTheyDoToItsModel) {
    for (const int policy :
         {XmSINGLE_SELECT, XmMULTIPLE_SELECT, XmEXTENDED_SELECT, XmBROWSE_SELECT})
        for (const bool automatic : {false, true}) {
            SCOPED_TRACE(::testing::Message()
                         << "policy " << policy << ", automatic " << automatic);
            Begin(policy, automatic);
            Walk walk(list, *model);
            for (int step = 0; step < 400; step++) {
                const int kind = random.Between(0, 9);
                ASSERT_NO_FATAL_FAILURE(kind < 6   ? walk.Step()
                                        : kind < 8 ? UseKey()
                                                   : Gesture(walk))
                    << step;
                Pump();
                ASSERT_EQ(TakeWarnings(), std::exchange(model->warned, 0)) << step;
                ASSERT_NO_FATAL_FAILURE(ExpectAsModel(list, *model)) << step;
                ASSERT_EQ(TakeTold(), std::exchange(model->told, {})) << step;
                ASSERT_EQ(PartOf(list).event_flags, 0) << step;
                ASSERT_EQ(PartOf(list).drag_timer, 0u) << step;
                if (step % 40 == 0)
                    ExpectDrawn();
            }
            XtDestroyWidget(list);
        }
}

// ---- With clients that interfere ------------------------------------------------------------------------

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
                if (!life->Ended())
                    ExpectInOrder(list);
            }
            if (!life->Ended())
                XtDestroyWidget(list);
        }
}

} // namespace
