// The text of a DOT file with a document in it.
#pragma once

#include <string>
#include <variant>

#include "Document.h"
#include "Reader.h"

namespace workbench {

// What was in the DOT file that the document was read from, and is not shown, stays. It fails for what
// cannot be written as DOT, such as a second arc in a strict graph.
std::variant<std::string, Failure> WriteDocument(const Document &document);

} // namespace workbench
