#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "Form.h"

namespace form_designer {

// What a file cannot be shown for; line 0 if no line is to blame.
struct FileError {
    int line = 0;
    std::string text;
};

// "FILE:LINE: TEXT"
std::string Describe(const std::string &file, const FileError &error);

// A form as an X resource file: a client whose grid is named "form" and whose widgets bear the items'
// names gets the design by loading it. "children" and "widgetClass" say which widgets there are.
std::string WriteForm(const Form &form);
// The form of such a text, or the first thing that is wrong with it.
std::variant<Form, FileError> ReadForm(std::string_view text);
std::variant<Form, FileError> ReadFormFile(const std::string &file);

} // namespace form_designer
