// Units, and the direction of layout.

#include <tests/conformance/Bed.h>

#include <cstring>

namespace corvidlmw::test {

namespace {

bool IsMeasure(const XtResource &resource) {
    const std::string type = resource.resource_type;
    return type.ends_with("Dimension") || type.ends_with("Position");
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
    Note("inherited", Get<XmDirection>(subject, XmNlayoutDirection));
    Note("inherited, of strings", Get<unsigned char>(subject, XmNstringDirection));
    Set(subject, {{XmNlayoutDirection, XmLEFT_TO_RIGHT}});
    Note("set afterwards", Get<XmDirection>(subject, XmNlayoutDirection));
    XtDestroyWidget(board);
    Make({{XmNlayoutDirection, XmRIGHT_TO_LEFT_TOP_TO_BOTTOM}});
    Pump();
    Note("of its own", Get<XmDirection>(subject, XmNlayoutDirection));
}

// Which half the foreground, the children and a bar's beginning are in.
void Bed::RightToLeftLooks() {
    const Pixel ink = Colour("blue");
    Settings settings = {{XmNlayoutDirection, XmRIGHT_TO_LEFT}, {XmNforeground, ink}};
    if (SharedResources().contains(XmNprocessingDirection))
        settings.emplace_back(XmNorientation, XmHORIZONTAL);
    Make(settings);
    Show();
    if (SharedResources().contains(XmNprocessingDirection))
        Note("processing", Get<unsigned char>(subject, XmNprocessingDirection));
    const auto box = Look().Box(ink);
    const auto half = [](int from, int to, int all) {
        return from >= all / 2 ? "right" : to <= all / 2 ? "left" : "both";
    };
    const int width = Get<Dimension>(subject, XmNwidth);
    Note("ink", box ? half(box->x, box->x + box->width, width) : "none");
    if (!XtIsComposite(subject))
        return;
    for (const char *child : {"one", "two"})
        if (Widget w = XtNameToWidget(subject, child))
            Note(child, half(w->core.x, w->core.x + w->core.width, width));
}

} // namespace corvidlmw::test
