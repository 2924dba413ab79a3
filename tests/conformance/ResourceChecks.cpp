// Units, and the direction of layout.

#include <tests/conformance/Bed.h>

#include <Xm/GadgetP.h>

namespace corvidlmw::test {

namespace {

bool IsMeasure(const XtResource &resource) {
    const std::string type = resource.resource_type;
    return type.ends_with("Dimension") || type.ends_with("Position");
}

// The toolkit's label gadget leaves the variable of who asks for the resource as it was.
XmDirection DirectionOf(Widget w) {
    if (XmIsGadget(w))
        return reinterpret_cast<XmGadget>(w)->gadget.layout_direction;
    XmDirection direction = 0;
    XtVaGetValues(w, XmNlayoutDirection, &direction, nullptr);
    return direction;
}

} // namespace

// A fifth of an inch each; the subject's place and size are larger.
Settings Bed::Measures() const {
    Settings settings = {{XmNunitType, Xm1000TH_INCHES}};
    for (const auto &[name, resource] : SharedResources())
        if (IsMeasure(resource))
            settings.emplace_back(resource.resource_name, 200);
    settings.insert(settings.end(),
                    {{XmNx, 300}, {XmNy, 700}, {XmNwidth, 3000}, {XmNheight, 2000}});
    return settings;
}

void Bed::NoteMeasures() {
    for (auto [unit, unit_name] :
         {std::pair{Xm1000TH_INCHES, " in inches"}, {XmPIXELS, " in pixels"}}) {
        Set(subject, {{XmNunitType, static_cast<XtArgVal>(unit)}});
        for (const auto &[name, resource] : SharedResources())
            if (IsMeasure(resource))
                Note(name + unit_name, Get<Dimension>(subject, name.c_str()));
    }
}

void Bed::UnitsAtCreation() {
    Make(Measures());
    Show();
    NoteMeasures();
}

void Bed::UnitsAfterwards() {
    Make();
    Show();
    Set(subject, Measures());
    Pump();
    NoteMeasures();
}

void Bed::LayoutDirection() {
    Make({}, {{XmNlayoutDirection, XmRIGHT_TO_LEFT}});
    Show();
    Note("inherited", DirectionOf(subject));
    Note("inherited, of strings", Get<unsigned char>(subject, XmNstringDirection));
    Set(subject, {{XmNlayoutDirection, XmLEFT_TO_RIGHT}});
    Note("set afterwards", DirectionOf(subject));
    XtDestroyWidget(board);
    Make({{XmNlayoutDirection, XmRIGHT_TO_LEFT_TOP_TO_BOTTOM}});
    Pump();
    Note("of its own", DirectionOf(subject));
}

// Which half of the subject something from one place to another is in.
const char *HalfOf(int from, int to, int width) {
    return from >= width / 2 ? "right" : to <= width / 2 ? "left" : "both";
}

// Of its own alone, and in a parent that is so too.
void Bed::RightToLeftLooks() {
    for (XmDirection of_board : {XmLEFT_TO_RIGHT, XmRIGHT_TO_LEFT}) {
        const char *where = of_board == XmRIGHT_TO_LEFT ? ", as its parent" : ", alone";
        Settings settings = {{XmNlayoutDirection, XmRIGHT_TO_LEFT},
                             {XmNforeground, Colour("blue")}};
        if (SharedResources().contains(XmNprocessingDirection))
            settings.emplace_back(XmNorientation, XmHORIZONTAL);
        Make(settings, {{XmNlayoutDirection, of_board}});
        Show();
        NoteHalves(where);
        XtDestroyWidget(board);
    }
}

void Bed::NoteHalves(const std::string &where) {
    if (SharedResources().contains(XmNprocessingDirection))
        Note("processing" + where, Get<unsigned char>(subject, XmNprocessingDirection));
    const auto box = Look().Box(Colour("blue"));
    const int width = Get<Dimension>(subject, XmNwidth);
    Note("ink" + where, box ? HalfOf(box->x, box->x + box->width, width) : "none");
    if (!XtIsComposite(subject))
        return;
    for (const char *child : {"one", "two"}) {
        Widget w = XtNameToWidget(subject, child);
        Note(child + where, HalfOf(w->core.x, w->core.x + w->core.width, width));
    }
}

} // namespace corvidlmw::test
