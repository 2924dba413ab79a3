/* Input as a user gives it: through the server's XTEST extension, from the robot's connection.
 * Each call returns after the server has worked it off. Tests use the members of DisplayTest. */

#ifndef CORVIDLMW_TESTS_SUPPORT_INPUT_H
#define CORVIDLMW_TESTS_SUPPORT_INPUT_H

#include <X11/Xlib.h>

namespace corvidlmw::test::input {

void MovePointer(Window window, int x, int y);
void SetButton(unsigned int button, bool pressed);
void SetModifiers(unsigned int modifiers, bool pressed);
void TypeKey(KeySym keysym, unsigned int modifiers);

// Lets go of everything pressed and parks the pointer in the far corner of the screen.
void Reset();

} // namespace corvidlmw::test::input

#endif
