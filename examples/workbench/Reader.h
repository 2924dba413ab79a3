// Reads a document little by little, so that a program can do something else in between.
#pragma once

#include <memory>
#include <string>
#include <variant>

#include "Document.h"

namespace workbench {

// Of what a directory or a project holds. A window is at most 32767 pixels high: it could hold no more.
constexpr int most_nodes = 2000;

struct Failure {
    std::string message;
};

class Reader {
public:
    virtual ~Reader() = default;

    // Reads a little more: a directory or a file. False when all is read, or nothing can be.
    virtual bool Step() = 0;
    // What was done so far, as "120 files read".
    virtual std::string Progress() const = 0;
    // Once, when Step() has returned false.
    virtual std::variant<Document, Failure> Take() = 0;
};

std::unique_ptr<Reader> MakeReader(Source source, const std::string &path);

// A directory is read as one, anything else as a DOT file.
Source GuessSource(const std::string &path);

} // namespace workbench
