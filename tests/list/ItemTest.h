// What the tests of the item functions share.
#pragma once

#include <tests/list/ListTest.h>

#include <limits>

namespace corvidlmw::test {

inline constexpr int lowest = std::numeric_limits<int>::min();
inline constexpr int highest = std::numeric_limits<int>::max();

inline Texts SelectedTexts(Widget list) {
    Texts texts;
    for (int i = 0; i < Get(list, XmNselectedItemCount); i++)
        texts.push_back(TextOf(Get<XmString *>(list, XmNselectedItems)[i]));
    return texts;
}

inline std::vector<int> PositionsFrom(Boolean found, int *positions, int count) {
    std::vector<int> all(positions, positions + (found ? count : 0));
    XtFree(reinterpret_cast<char *>(positions));
    return all;
}

class ItemTest : public ListTest {};

} // namespace corvidlmw::test
