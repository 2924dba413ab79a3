#include <tests/conformance/Bed.h>

#include <Xm/BulletinB.h>
#include <Xm/List.h>
#include <Xm/PushB.h>

namespace corvidlmw::test {

namespace {

std::vector<Arg> ArgsOf(const Settings &settings) {
    std::vector<Arg> args;
    for (const auto &[name, value] : settings)
        args.push_back({Name(name), value});
    return args;
}

Widget MakeBy(Creator create, Widget parent, const char *name, const Settings &settings) {
    auto args = ArgsOf(settings);
    Widget w = create(parent, Name(name), args.data(), static_cast<Cardinal>(args.size()));
    XtManageChild(w);
    return w;
}

} // namespace

void Bed::Set(Widget w, const Settings &settings) {
    auto args = ArgsOf(settings);
    XtSetValues(w, args.data(), static_cast<Cardinal>(args.size()));
}

void Bed::Make(const Settings &settings, const Settings &of_board) {
    SetResource("*fontList: fixed");
    board = MakeBy(XmCreateBulletinBoard, shell, "board", of_board);
    before = MakeBy(XmCreatePushButton, board, "before", {{XmNx, 10}, {XmNy, 10}});
    // Of the size that it is given, where the class lets it be.
    Settings all = {{XmNx, 10},
                    {XmNy, 60},
                    {XmNwidth, 200},
                    {XmNheight, 150},
                    {XmNresizePolicy, XmRESIZE_NONE},
                    {XmNlistSizePolicy, XmCONSTANT}};
    all.insert(all.end(), settings.begin(), settings.end());
    subject = MakeBy(create, board, "subject", all);
    after = MakeBy(XmCreatePushButton, board, "after", {{XmNx, 10}, {XmNy, 300}});
}

void Bed::ShowTraversable(const Settings &settings) {
    Settings all = {{XmNtraversalOn, True}, {XmNhighlightThickness, 2}};
    all.insert(all.end(), settings.begin(), settings.end());
    Make(all);
    Show();
    XmProcessTraversal(before, XmTRAVERSE_CURRENT);
    Pump();
}

Widget Bed::Canvas() const {
    return pair->is_line ? XtParent(subject) : subject;
}

// In the window that the subject is on.
XPoint Bed::Middle() const {
    const XPoint origin = OriginInWindow(subject);
    return {static_cast<short>(origin.x + Get<Dimension>(subject, XmNwidth) / 2),
            static_cast<short>(origin.y + Get<Dimension>(subject, XmNheight) / 2)};
}

std::string Bed::NameOf(Widget w) const {
    if (!w)
        return "nothing";
    const std::string name = XtName(w);
    for (const char *known :
         {"before", "subject", "after", "one", "two", "board", "holder", "gadget"})
        if (name == known)
            return name;
    return w == shell ? "shell" : "a part";
}

namespace {

// What gadgets share with others that look alike.
void AddSecondaryResources(WidgetClass widget_class, std::map<std::string, XtResource> &resources) {
    XmSecondaryResourceData *blocks = nullptr;
    const Cardinal count = XmGetSecondaryResourceData(widget_class, &blocks);
    for (Cardinal i = 0; i < count; i++) {
        for (Cardinal j = 0; j < blocks[i]->num_resources; j++)
            resources[blocks[i]->resources[j].resource_name] = blocks[i]->resources[j];
        XtFree(reinterpret_cast<char *>(blocks[i]->resources));
        XtFree(reinterpret_cast<char *>(blocks[i]));
    }
    XtFree(reinterpret_cast<char *>(blocks));
}

std::map<std::string, XtResource> ResourcesOf(WidgetClass widget_class) {
    XtInitializeWidgetClass(widget_class);
    XtResourceList list = nullptr;
    Cardinal count = 0;
    XtGetResourceList(widget_class, &list, &count);
    std::map<std::string, XtResource> resources;
    for (Cardinal i = 0; i < count; i++)
        resources[list[i].resource_name] = list[i];
    XtFree(reinterpret_cast<char *>(list));
    AddSecondaryResources(widget_class, resources);
    return resources;
}

} // namespace

std::map<std::string, XtResource> Bed::SharedResources() const {
    auto shared = ResourcesOf(pair->our_class);
    const auto toolkits = ResourcesOf(pair->toolkits_class);
    std::erase_if(shared, [&](const auto &each) { return !toolkits.contains(each.first); });
    return shared;
}

Pixel Bed::Colour(const char *name) {
    XColor screen, exact;
    XAllocNamedColor(display, DefaultColormapOfScreen(XtScreen(shell)), name, &screen, &exact);
    return screen.pixel;
}

} // namespace corvidlmw::test
