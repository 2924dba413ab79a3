#include "Lines.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <functional>

namespace marked_scrollbar {

Lines::Lines(std::wstring_view text) : starts{0}, length(text.size()) {
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == L'\n')
            starts.push_back(i + 1);
}

int Lines::LineAt(std::size_t position) const {
    const auto after = std::upper_bound(starts.begin(), starts.end(), position);
    return static_cast<int>(after - starts.begin()) - 1;
}

std::size_t Lines::StartOf(int line) const {
    return line < Count() ? starts[static_cast<std::size_t>(std::max(line, 0))] : length;
}

std::vector<std::size_t> Occurrences(std::wstring_view text, std::wstring_view word) {
    std::vector<std::size_t> found;
    if (word.empty())
        return found;
    auto lower = [](wchar_t c) {
        return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
    };
    std::wstring folded_text(text);
    std::wstring folded_word(word);
    for (std::wstring *folded : {&folded_text, &folded_word})
        std::transform(folded->begin(), folded->end(), folded->begin(), lower);
    for (std::size_t at = folded_text.find(folded_word); at != std::wstring::npos;
         at = folded_text.find(folded_word, at + folded_word.size()))
        found.push_back(at);
    return found;
}

std::wstring TextOf(const std::string &bytes) {
    std::wstring text;
    std::mbstate_t state{};
    for (std::size_t i = 0; i < bytes.size();) {
        wchar_t character = 0;
        const std::size_t used = std::mbrtowc(&character, &bytes[i], bytes.size() - i, &state);
        const bool valid = used != 0 && used <= bytes.size() - i;
        text += valid ? character : L'?';
        i += valid ? used : 1;
        if (!valid)
            state = {};
    }
    return text;
}

} // namespace marked_scrollbar
