// A step of a storm: words and numbers, so that a step that was kept means the same when the storm has grown.
//
//     make 3 XmCreatePushButtonGadget 2 labelString "one\x20two
//     set 3 width 32767 userData nil
//     call XmGraphSelectNodes @2 [@3,@4] 2 1
//
// Words hold no blanks: what would be one within a text is written as \x20.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace corvidlmw::storm {

struct Step {
    std::vector<std::string> words;

    const std::string &verb() const { return words.front(); }
    // From a word on: what a step does that has another one in it.
    Step From(std::size_t word) const;
};

using Steps = std::vector<Step>;

std::string ToLine(const Step &step);
Step FromLine(const std::string &line);

// Empty lines and those that begin with # are passed over.
Steps ReadSteps(std::istream &in);

// As a word: a quote, then the text with everything escaped that the format needs itself.
std::string Quote(const std::string &text);
// Of a word that Quote made.
std::string Unquote(const std::string &word);
std::vector<std::string> SplitAt(const std::string &text, char separator);
// Of a word [a,b,c].
std::vector<std::string> ListIn(const std::string &word);
std::string ToList(const std::vector<std::string> &words);

} // namespace corvidlmw::storm
