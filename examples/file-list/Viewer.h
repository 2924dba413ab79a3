// A file's text in a window of its own.
#pragma once

#include <X11/Intrinsic.h>

#include <filesystem>

namespace file_list {

// Shows the beginning of a file, to be read, in a window that the user closes.
void ShowFile(Widget shell, const std::filesystem::path &file);

} // namespace file_list
