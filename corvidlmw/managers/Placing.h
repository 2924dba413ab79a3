// Moving the children of one layout.
#pragma once

#include <corvidlmw/toolkit/Toolkit.h>

namespace corvidlmw {

// The toolkit would clear the old and the new place of each gadget, and join the exposures that come
// back to one region, in quadratic time. Here gadgets move in their records, and all that they left and
// took is cleared at once in the end. A child that stays costs nothing.
class Placing {
public:
    explicit Placing(Widget w);
    ~Placing();
    Placing(const Placing &) = delete;
    Placing &operator=(const Placing &) = delete;

    // With the child's own border, cut to 16 bits; an extent of 0 as XmeConfigureObject takes it.
    void Place(Widget child, const Rectangle &place);

private:
    void MoveGadget(Widget gadget, const Rectangle &place);
    void Clear() const;

    Widget w_;
    Rectangle stale_;
};

} // namespace corvidlmw
