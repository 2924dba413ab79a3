// The fitting of panes against a second computation, and what holds of it in any case.
#include <tests/fuzz/Input.h>
#include <tests/managers/PaneModel.h>

using namespace corvidlmw;
using namespace corvidlmw::managers;
using fuzz::Input, fuzz::Require;

namespace {

Pane ReadPane(Input &input) {
    Pane pane;
    pane.width = input.Position();
    pane.border = input.Dimension();
    pane.least = input.Between(1, 65535);
    pane.most = input.Between(pane.least, 65535);
    pane.skip_adjust = input.Flag();
    return pane;
}

void CheckSash(Input &input) {
    SashRules rules;
    rules.height = input.Dimension();
    rules.spacing = input.Dimension();
    rules.indent = input.Position();
    rules.offset = input.Position();
    const int pane_end = input.Position();
    const int width = input.Dimension();
    const int height = input.Dimension();
    const Point place = SashPlace(rules, pane_end, width, height, input.Dimension());
    Require(place.y == 0 || CutToPosition(place.y) == place.y);
    Require(height > rules.height || place.y < 0 || place.y + height <= rules.height);
    const int separator = SeparatorPlace(rules, pane_end, width, 0);
    Require(CutToPosition(separator) == separator);
    TrackPlace(pane_end, width, rules.spacing);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Input input(data, size);
    const PaneRow row{input.Dimension(), input.Dimension(), input.Dimension()};
    std::vector<Pane> panes(static_cast<std::size_t>(input.Between(1, 12)));
    const int index = input.Between(0, static_cast<int>(panes.size()) - 1);
    const Direction way = input.Flag() ? Direction::Right : Direction::Left;
    const FitRules rules{input.Flag(), input.Flag()};
    for (Pane &pane : panes) {
        pane = ReadPane(input);
    }
    const auto expected = pane_model::Expected(row, panes, index, static_cast<int>(way), rules);
    FitPanes(row, panes, index, way, rules);
    for (std::size_t i = 0; i < panes.size(); ++i) {
        Require(panes[i].width == expected[i].width && panes[i].x == expected[i].x);
        Require(panes[i].width >= 1);
        const bool holds = panes[i].width >= panes[i].least && panes[i].width <= panes[i].most;
        Require(holds || (!rules.keep_limits && static_cast<int>(i) == index));
    }
    CheckSash(input);
    return 0;
}
