// Colours that change while a widget is shown.

#include <tests/conformance/Bed.h>

#include <cstdio>

namespace corvidlmw::test {

namespace {

const char *const colours[] = {XmNbackground,        XmNforeground,     XmNtopShadowColor,
                               XmNbottomShadowColor, XmNhighlightColor, XmNtroughColor,
                               XmNselectColor,       XmNarmColor};

std::string Hex(Pixel pixel) {
    char text[20];
    std::snprintf(text, sizeof text, "%06lx", pixel);
    return text;
}

} // namespace

void Bed::NoteColours(const std::vector<std::pair<const char *, Pixel>> &old) {
    Pump();
    const Picture picture = Look();
    const auto shared = SharedResources();
    for (const char *name : colours) {
        if (!shared.contains(name))
            continue;
        const auto pixel = Get<Pixel>(subject, name);
        Note(name, Hex(pixel));
        Note(std::string(name) + " drawn", picture.Count(pixel) > 0);
    }
    for (const auto &[name, pixel] : old)
        Note(std::string(name) + ", old one drawn", picture.Count(pixel) > 0);
}

void Bed::ChangeColor() {
    const Pixel old = Colour("wheat");
    Make({{XmNbackground, old}, {XmNshadowThickness, 3}});
    Show();
    const auto old_top = Get<Pixel>(subject, XmNtopShadowColor);
    XmChangeColor(subject, Colour("steel blue"));
    NoteColours({{XmNbackground, old}, {XmNtopShadowColor, old_top}});
}

void Bed::ColoursSetAfterwards() {
    const Pixel old = Colour("wheat");
    Make({{XmNbackground, old}, {XmNforeground, Colour("navy")}, {XmNshadowThickness, 3}});
    Show();
    const auto old_top = Get<Pixel>(subject, XmNtopShadowColor);
    const auto old_bottom = Get<Pixel>(subject, XmNbottomShadowColor);
    Set(subject, {{XmNforeground, Colour("red")},
                  {XmNbackground, Colour("yellow")},
                  {XmNtopShadowColor, Colour("green")},
                  {XmNbottomShadowColor, Colour("purple")}});
    NoteColours({{XmNbackground, old},
                 {XmNforeground, Colour("navy")},
                 {XmNtopShadowColor, old_top},
                 {XmNbottomShadowColor, old_bottom}});
}

} // namespace corvidlmw::test
