#include <tests/storm/Author.h>

#include <tests/storm/Values.h>
#include <tests/storm/Words.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/list/LmList.h>
#include <corvidlmw/managers/Grid.h>
#include <corvidlmw/managers/HPanedW.h>
#include <corvidlmw/scrollbar/SvScrollBar.h>

#include <Xm/ManagerP.h>

#include <array>
#include <cstring>

namespace corvidlmw::storm {

namespace {

constexpr int most_widgets = 45;
constexpr int steps_between_scenes = 80;
constexpr int steps_between_gestures = 20;

class Author {
public:
    Author(const Scene &scene, std::uint64_t seed);

    Steps Write(int count);

private:
    using Verb = Step (Author::*)();
    struct Weighted {
        Verb verb;
        int weight;
        bool inner; // may stand in a callback
    };
    static const std::vector<Weighted> &Verbs();

    void Weigh();
    void SetScene(Steps &steps);
    void AddGesture(Steps &steps, int widget);
    void AddDeath(Steps &steps);
    Step AnyStep();
    Step InnerStep();

    bool IsWorkbench() const { return std::strcmp(scene_.name, "workbench") == 0; }
    // The class that the storm is about, or any of ours.
    WidgetClass Subject();
    int AnyWidget();
    int AnyParent();
    std::string Id(int id) const { return WordFor(id); }

    Step Set();
    Step SetOf(int id);
    Step Text();
    Step Call();
    Step Action();
    Step ActionOf(int id);
    Step Event();
    Step Point();
    Step Click();
    Step Press();
    Step Release();
    Step Key();
    Step HoldKey();
    Step Make();
    Step Kill();
    Step Manage();
    Step ManageMany();
    Step Configure();
    Step Size();
    Step On();
    Step Later();
    Step Inside();
    Step Uncover();
    Step Get();
    Step Ask();
    Step Traverse();
    Step Sensitive();
    Step Map();
    Step Adopt();
    Step Unrealize();
    Step Colour();
    Step Frame();
    Step Rest();
    Step Pump();
    Step Bench();

    const Scene &scene_;
    std::uint64_t seed_;
    Chance chance_;
    Cast cast_;
    int next_id_ = first_free_id;
    std::vector<int> weights_;
};

// ---- The whole ------------------------------------------------------------------------------------

Author::Author(const Scene &scene, std::uint64_t seed) : scene_(scene), seed_(seed), chance_(seed) {
    cast_.Add(0, "shell", -1);
    Weigh();
}

const std::vector<Author::Weighted> &Author::Verbs() {
    static const std::vector<Weighted> verbs = {
        {&Author::Set, 20, true},       {&Author::Text, 6, true},
        {&Author::Call, 22, true},      {&Author::Action, 6, false},
        {&Author::Event, 8, false},     {&Author::Point, 9, false},
        {&Author::Click, 5, false},     {&Author::Press, 4, false},
        {&Author::Release, 5, false},   {&Author::Key, 7, false},
        {&Author::HoldKey, 2, false},   {&Author::Make, 6, true},
        {&Author::Kill, 3, true},       {&Author::Manage, 5, true},
        {&Author::ManageMany, 1, true}, {&Author::Configure, 3, true},
        {&Author::Size, 2, true},       {&Author::On, 4, true},
        {&Author::Later, 1, true},      {&Author::Inside, 5, false},
        {&Author::Uncover, 2, false},   {&Author::Get, 1, true},
        {&Author::Ask, 1, true},        {&Author::Traverse, 1, true},
        {&Author::Sensitive, 1, true},  {&Author::Map, 1, true},
        {&Author::Adopt, 2, false},     {&Author::Unrealize, 1, false},
        {&Author::Colour, 1, true},     {&Author::Frame, 1, false},
        {&Author::Rest, 1, false},      {&Author::Pump, 7, false},
    };
    return verbs;
}

// Each storm has moods of its own: some verbs it hardly uses, others all the time.
void Author::Weigh() {
    static constexpr std::array moods = {0, 1, 3, 3, 3, 10};
    for (const Weighted &verb : Verbs()) {
        const bool always = verb.verb == &Author::Pump;
        weights_.push_back(verb.weight * (always ? 3 : chance_.Of(moods)));
    }
}

// The bars that a widget has by itself.
std::string KindOfAdopted(const Step &step) {
    const std::string &name = step.words.back();
    if (name == XmNverticalScrollBar || name == XmNhorizontalScrollBar)
        return "SvScrollBar";
    return name == "*VertScrollBar" || name == "*HorScrollBar" ? "XmScrollBar" : "adopted";
}

// Scenes are set with the same draws each time.
void Author::SetScene(Steps &steps) {
    Chance chance(seed_ * 2 + 1);
    for (Step &step : scene_.set(chance)) {
        if (step.verb() == "make")
            cast_.Add(std::stoi(step.words[1]), step.words[2], std::stoi(step.words[3]));
        else if (step.words.size() > 3 && step.words[1] == "XmCreateAttachedArc")
            cast_.Add(std::stoi(step.words[2]), "XmArc", std::stoi(step.words[3].substr(1)));
        else if (step.verb().starts_with("adopt"))
            cast_.Add(std::stoi(step.words[1]), KindOfAdopted(step), 0);
        steps.push_back(std::move(step));
    }
}

Steps Author::Write(int count) {
    Steps steps;
    while (static_cast<int>(steps.size()) < count) {
        SetScene(steps);
        for (int i = 0; i < steps_between_scenes; i++)
            if (chance_.OneIn(steps_between_gestures))
                AddGesture(steps, AnyWidget());
            else
                steps.push_back(IsWorkbench() && chance_.OneIn(6) ? Bench() : AnyStep());
        if (!IsWorkbench())
            AddDeath(steps);
        if (chance_.OneIn(2))
            steps.push_back(Rest());
    }
    return steps;
}

// A button that is held on and beyond the widget, while other things happen.
void Author::AddGesture(Steps &steps, int widget) {
    const std::string id = Id(widget);
    const std::string button = chance_.Of({"1", "1", "2", "3"});
    const auto point = [&](int low, int high) {
        steps.push_back(
            {{"pointat", id, SmallNumber(chance_, low, high), SmallNumber(chance_, low, high)}});
    };
    point(0, chance_.OneIn(3) ? 250 : 30);
    steps.push_back({{"press", button}});
    for (int left = chance_.Between(1, 4); left > 0; left--) {
        steps.push_back(Pump());
        point(-60, chance_.OneIn(3) ? 400 : 60);
        if (chance_.OneIn(2))
            steps.push_back(chance_.OneIn(3) ? Step{{"wait"}} : Pump());
        if (chance_.OneIn(2))
            steps.push_back(InnerStep());
    }
    if (!chance_.OneIn(4))
        steps.push_back({{"release", button}});
    steps.push_back(Pump());
}

// The first callback is the last: it ends the widget, or its parent. The scene is set again after that.
void Author::AddDeath(Steps &steps) {
    const int id = cast_.AnyOf(chance_, Subject());
    if (!id)
        return;
    const std::string victim = Id(chance_.OneIn(3) ? cast_.ParentOf(id) : id);
    for (const std::string &callback : CallbacksOf(cast_.ClassOf(id)))
        if (callback != XmNdestroyCallback && !chance_.OneIn(4))
            steps.push_back({{"on", Id(id), callback, "1", "kill", victim}});
    for (int left = chance_.Between(3, 9); left > 0; left--)
        switch (chance_.Between(1, 4)) {
        case 1: AddGesture(steps, id); break;
        case 2: steps.push_back(Call()); break;
        case 3: steps.push_back(SetOf(id)); break;
        default: steps.push_back(ActionOf(id));
        }
}

Step Author::AnyStep() {
    int sum = 0;
    for (const int weight : weights_)
        sum += weight;
    int drawn = chance_.Between(0, sum - 1);
    for (std::size_t i = 0; i < weights_.size(); i++) {
        drawn -= weights_[i];
        if (drawn < 0)
            return (this->*Verbs()[i].verb)();
    }
    return Pump();
}

Step Author::InnerStep() {
    for (;;) {
        const Weighted &verb = chance_.Of(Verbs());
        if (verb.inner && verb.verb != &Author::On && verb.verb != &Author::Later)
            return (this->*verb.verb)();
    }
}

WidgetClass Author::Subject() {
    if (scene_.subject) {
        const bool arcs = *scene_.subject == xmGraphWidgetClass && chance_.OneIn(3);
        return arcs ? xmArcWidgetClass : *scene_.subject;
    }
    const auto &scenes = Scenes();
    for (;;)
        if (const Scene &scene = chance_.Of(scenes); scene.subject)
            return *scene.subject;
}

int Author::AnyWidget() {
    const int subject = chance_.Percent(65) ? cast_.AnyOf(chance_, Subject()) : 0;
    return subject ? subject : cast_.Any(chance_);
}

// Mostly one of the subject's class, where that takes children.
int Author::AnyParent() {
    const auto takes_children = [this](int id) { return cast_.IsA(id, xmManagerWidgetClass); };
    const int parent = AnyWidget();
    return takes_children(parent) ? parent : cast_.Any(chance_, takes_children);
}

// ---- Resources and functions ------------------------------------------------------------------------

Step Author::Set() {
    return SetOf(AnyWidget());
}

Step Author::SetOf(int id) {
    const WidgetClass widget_class = cast_.ClassOf(id);
    if (!widget_class)
        return Pump();
    const int parent = cast_.ParentOf(id);
    const auto &settings = SettingsOf(
        widget_class, cast_.IsA(parent, constraintWidgetClass) ? cast_.ClassOf(parent) : nullptr);
    Step step{{"set", Id(id)}};
    for (int left = chance_.Percent(70) ? 1 : chance_.Between(2, 6); left > 0; left--)
        for (auto &word : WordsToSet(chance_, cast_, chance_.Of(settings)))
            step.words.push_back(std::move(word));
    return step;
}

// A table's text would leave its count as it was; a class has none that would name it; and no size of 0 is the
// toolkit's to refuse.
bool CanBeText(const Setting &setting) {
    return setting.type != XmRXmStringTable && setting.name != XmNdefaultNodeClass &&
           setting.name != XmNwidth && setting.name != XmNheight;
}

Step Author::Text() {
    const int id = AnyWidget();
    const WidgetClass widget_class = cast_.ClassOf(id);
    if (!widget_class)
        return Pump();
    const Setting &setting = chance_.Of(SettingsOf(widget_class, nullptr));
    if (!CanBeText(setting))
        return Pump();
    return {{"text", Id(id), setting.name, AnyResourceText(chance_, setting.type)}};
}

Step Author::Call() {
    const WidgetClass subject = Subject();
    const auto call = AnyCall(chance_, cast_,
                              subject == xmArcWidgetClass ? xmGraphWidgetClass : subject, next_id_);
    if (!call)
        return Set();
    if (call->words[1] == "XmCreateAttachedArc" && call->words[3] != "nil" &&
        cast_.size() < most_widgets)
        cast_.Add(std::stoi(call->words[2]), "XmArc", std::stoi(call->words[3].substr(1)));
    return *call;
}

Step Author::Get() {
    return {{"get", Id(AnyWidget())}};
}

Step Author::Ask() {
    return {{"ask", Id(AnyWidget()), SmallNumber(chance_, 0, 15), AnyExtent(chance_),
             AnyExtent(chance_)}};
}

// ---- Events that never happened -----------------------------------------------------------------------

Step Author::Event() {
    static constexpr std::array types = {
        KeyPress,    KeyRelease,  ButtonPress,     ButtonRelease, MotionNotify,   EnterNotify,
        LeaveNotify, FocusIn,     FocusOut,        Expose,        GraphicsExpose, VisibilityNotify,
        MapNotify,   UnmapNotify, ConfigureNotify, ButtonPress,   ButtonRelease,  MotionNotify};
    return {{chance_.OneIn(6) ? "send" : "event", Id(AnyWidget()), WordFor(chance_.Of(types)),
             AnyPlace(chance_), AnyPlace(chance_), SmallNumber(chance_, 0, 0x1fff),
             SmallNumber(chance_, 0, 5), SmallNumber(chance_, 0, 100000), Id(AnyWidget())}};
}

Step Author::Action() {
    return ActionOf(cast_.AnyOf(chance_, Subject()));
}

Step Author::ActionOf(int id) {
    const WidgetClass widget_class = cast_.ClassOf(id);
    if (!widget_class || widget_class->core_class.num_actions == 0)
        return Event();
    const Cardinal which = static_cast<Cardinal>(
        chance_.Between(0, static_cast<int>(widget_class->core_class.num_actions) - 1));
    XtActionList actions = nullptr;
    Cardinal count = 0;
    XtInitializeWidgetClass(widget_class);
    XtGetActionList(widget_class, &actions, &count);
    Step step{{"action", Id(id), SmallNumber(chance_, KeyPress, LeaveNotify), AnyPlace(chance_),
               AnyPlace(chance_), SmallNumber(chance_, 0, 0x1fff), SmallNumber(chance_, 0, 5),
               SmallNumber(chance_, 0, 100000), Id(AnyWidget()), actions[which].string}};
    XtFree(reinterpret_cast<char *>(actions));
    for (int left = chance_.Between(0, 2); left > 0; left--)
        step.words.push_back(
            Quote(chance_.Of({"0", "1", "-1", "", "Up", "garbage", "2147483648"})));
    return step;
}

// ---- Input ------------------------------------------------------------------------------------------

Step Author::Point() {
    if (chance_.OneIn(4))
        return {{"point", SmallNumber(chance_, -10, 700), SmallNumber(chance_, -10, 520)}};
    const int most = chance_.OneIn(3) ? 300 : 40;
    return {{"pointat", Id(AnyWidget()), SmallNumber(chance_, -5, most),
             SmallNumber(chance_, -5, most)}};
}

// Mostly with the first buttons.
std::string SomeButton(Chance &chance) {
    return chance.Of({"1", "1", "1", "2", "2", "3", "4", "5"});
}

Step Author::Press() {
    return {{"press", SomeButton(chance_)}};
}

Step Author::Click() {
    return chance_.OneIn(2) ? Press() : Release();
}

Step Author::Release() {
    return {{"release", SomeButton(chance_)}};
}

Step Author::Key() {
    return {{"key", chance_.Of({"Up",    "Down",      "Left",      "Right",  "Home",   "End",
                                "Prior", "Next",      "space",     "Return", "Escape", "Tab",
                                "a",     "b",         "r",         "Insert", "Delete", "F10",
                                "slash", "backslash", "BackSpace", "Menu",   "1",      "F1"})}};
}

Step Author::HoldKey() {
    return {{chance_.OneIn(2) ? "down" : "up",
             chance_.Of({"Shift_L", "Control_L", "Alt_L", "Shift_L", "Control_L", "Caps_Lock"})}};
}

// Behind it lie those between shells: they end in the toolkit's own traversal, with its own managers too, after
// a paned window has died before it was realized.
constexpr int last_safe_direction = XmTRAVERSE_RIGHT;

Step Author::Traverse() {
    return {{"traverse", Id(AnyWidget()), SmallNumber(chance_, 0, last_safe_direction)}};
}

// ---- Life -------------------------------------------------------------------------------------------

constexpr std::array child_kinds = {"XmPushButton",   "XmPushButtonGadget", "XmLabelGadget",
                                    "XmToggleButton", "XmvIconGadget",      "SvScrollBar",
                                    "LmList",         "LmScrolledList",     "XmSeparatorGadget",
                                    "XmGrid",         "XmSpringBox",        "XmRubberBoard",
                                    "XmGraph",        "XmHorzPanedWindow",  "XmRowColumn"};

// The toolkit's scrolled window, which a scrolled list's settings go to as well, takes anything for a bar.
Step Author::Make() {
    if (cast_.size() >= most_widgets || IsWorkbench())
        return Kill();
    const int parent = AnyParent();
    if (!parent) // the shell takes one child, the scene's
        return Point();
    const bool arc = cast_.IsA(parent, xmGraphWidgetClass) && chance_.OneIn(3);
    const std::string kind = arc ? "XmArc" : chance_.Of(child_kinds);
    const int id = next_id_++;
    Step step{{"make", Id(id), kind, Id(parent)}};
    const auto &settings = SettingsOf(storm::ClassOf(kind), cast_.ClassOf(parent));
    for (int left = chance_.Between(0, 3); left > 0; left--)
        if (const Setting &setting = chance_.Of(settings); !setting.name.ends_with("ScrollBar"))
            for (auto &word : WordsToSet(chance_, cast_, setting))
                step.words.push_back(std::move(word));
    cast_.Add(id, kind, parent);
    return step;
}

// What the scene needs dies less often.
Step Author::Kill() {
    const int id = AnyWidget();
    if (id == 0 || IsWorkbench() || (id < first_free_id && !chance_.OneIn(4)))
        return Manage();
    cast_.Remove(id);
    return {{"kill", Id(id)}};
}

Step Author::Manage() {
    const int id = AnyWidget();
    if (id == 0 || IsWorkbench())
        return Point();
    return {{chance_.Percent(65) ? "manage" : "unmanage", Id(id)}};
}

Step Author::ManageMany() {
    if (IsWorkbench())
        return Point();
    const int parent = AnyParent();
    Step step{{"managemany", SmallNumber(chance_, 0, 1)}};
    for (int left = chance_.Between(1, 6); left > 0; left--)
        if (const int child = cast_.AnyChildOf(chance_, parent))
            step.words.push_back(Id(child));
    return step;
}

Step Author::Adopt() {
    const int id = cast_.AnyOf(chance_, chance_.OneIn(2) ? xmGraphWidgetClass : lmListWidgetClass);
    if (!id || IsWorkbench())
        return Event();
    const int adopted = next_id_++;
    if (cast_.IsA(id, lmListWidgetClass)) {
        cast_.Add(adopted, "SvScrollBar", 0);
        return {{"adopt", Id(adopted), Id(id),
                 chance_.Of({"verticalScrollBar", "horizontalScrollBar"})}};
    }
    const bool arc = chance_.OneIn(2);
    cast_.Add(adopted, arc ? "XmArc" : "XmPushButtonGadget", id);
    return {{arc ? "adoptarc" : "adopt", Id(adopted), Id(id), SmallNumber(chance_, 0, 9)}};
}

// ---- Places -----------------------------------------------------------------------------------------

Step Author::Configure() {
    const int id = AnyWidget();
    if (id == 0)
        return Size();
    return {{"configure", Id(id), AnyPlace(chance_), AnyPlace(chance_), AnyExtent(chance_),
             AnyExtent(chance_)}};
}

Step Author::Size() {
    return {{"size", AnyExtent(chance_), AnyExtent(chance_)}};
}

Step Author::Uncover() {
    return {{"expose", Id(AnyWidget()), SmallNumber(chance_, -5, 300),
             SmallNumber(chance_, -5, 300), SmallNumber(chance_, 0, 200),
             SmallNumber(chance_, 0, 200)}};
}

Step Author::Colour() {
    return {{"colour", Id(AnyWidget()), SmallNumber(chance_, 0, 0xffffff)}};
}

Step Author::Sensitive() {
    return {{"sensitive", Id(AnyWidget()), chance_.Percent(60) ? "1" : "0"}};
}

Step Author::Map() {
    return {{chance_.OneIn(2) ? "map" : "unmap", Id(AnyWidget())}};
}

// The shell is the window manager's.
Step Author::Unrealize() {
    const int id = AnyWidget();
    if (id == 0 || IsWorkbench())
        return Map();
    return {{chance_.OneIn(2) ? "unrealize" : "realize", Id(id)}};
}

Step Author::Frame() {
    return {{"frame"}};
}

// ---- Steps within steps -------------------------------------------------------------------------------

Step Author::On() {
    const int id = chance_.OneIn(4) ? cast_.Any(chance_) : cast_.AnyOf(chance_, Subject());
    const WidgetClass widget_class = cast_.ClassOf(id);
    const auto callbacks = widget_class ? CallbacksOf(widget_class) : std::vector<std::string>();
    if (callbacks.empty() || IsWorkbench())
        return Event();
    Step step{{"on", Id(id), chance_.Of(callbacks), SmallNumber(chance_, 1, 5)}};
    Step inner = chance_.OneIn(8) ? Step{{"refuse"}} : InnerStep();
    if (id && chance_.OneIn(8))
        inner = {{"kill", Id(chance_.OneIn(3) ? cast_.ParentOf(id) : id)}};
    step.words.insert(step.words.end(), inner.words.begin(), inner.words.end());
    return step;
}

Step Author::Later() {
    Step step{{"later", SmallNumber(chance_, 0, 3)}};
    const Step inner = InnerStep();
    step.words.insert(step.words.end(), inner.words.begin(), inner.words.end());
    return step;
}

Step Author::Inside() {
    Step step{{"inside"}};
    const Step inner = InnerStep();
    step.words.insert(step.words.end(), inner.words.begin(), inner.words.end());
    return step;
}

Step Author::Rest() {
    return {{"rest"}};
}

Step Author::Pump() {
    return {{"pump"}};
}

Step Author::Bench() {
    const std::string command =
        chance_.Of({"select", "rename", "find", "hit", "add", "delete", "layout", "undo", "undo",
                    "redo", "stop", "zoom", "turn"});
    Step step{{"bench", command, SmallNumber(chance_, -3, 30)}};
    if (command == "find")
        step.words[2] = Quote(chance_.Of({"", "n", "n1", "x", "garbage"}));
    if (command == "rename")
        step.words.push_back(Quote(chance_.Of({"", "name", "two words", "n1"})));
    return step;
}

} // namespace

Steps WriteSteps(const Scene &scene, std::uint64_t seed, int count) {
    return Author(scene, seed).Write(count);
}

} // namespace corvidlmw::storm
