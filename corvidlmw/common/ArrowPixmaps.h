// The pictures of the arrow of XmNshowArrow, shared by the gadgets that look alike.
#pragma once

#include <corvidlmw/toolkit/MotifPrivate.h>

namespace corvidlmw {

// Gives an icon gadget its arrow unless it has one. An arrow is made once: a later change of colours or
// font does not touch it. (The toolkit exports another function of this name: this one is ours alone.)
void _XmCreateArrowPixmaps(Widget gadget);

// Drops one gadget's share of an arrow. The last one frees the pixmap.
void ReleaseArrowPixmap(Pixmap arrow);

} // namespace corvidlmw
