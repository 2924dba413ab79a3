/* What the pages call types and values of resources. */
#ifndef CORVIDLMW_TESTS_MANUAL_RESOURCETYPES_H
#define CORVIDLMW_TESTS_MANUAL_RESOURCETYPES_H

#include <X11/Intrinsic.h>

#include <optional>
#include <string>

namespace corvidlmw::test {

// Whether the representation says no more than the type that the page gives. A page names all others,
// where it describes the resource: their strings are for resource files.
bool IsPlain(const XtResource &resource);

// Whether the page may call the resource's representation, of its size, so.
bool TypeFits(const XtResource &resource, const std::string &type);

// The number or the constant that a page gives as a default.
std::optional<XtArgVal> NumberOf(const std::string &text);

} // namespace corvidlmw::test

#endif
