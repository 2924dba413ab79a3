#pragma once

#include <string>

#include <Xm/Xm.h>

namespace graph_browser {

// A compound string that is freed with its scope; every line break begins a new line.
class Text {
public:
    explicit Text(const std::string &utf8)
        : string(XmStringCreateLtoR(const_cast<char *>(utf8.c_str()),
                                    const_cast<char *>(XmFONTLIST_DEFAULT_TAG))) {}
    ~Text() { XmStringFree(string); }
    // In the fonts of this rendition.
    Text(const std::string &utf8, const char *rendition) : Text(utf8) {
        XmString plain = string;
        string = XmStringPutRendition(plain, const_cast<char *>(rendition));
        XmStringFree(plain);
    }
    Text(const Text &) = delete;
    Text &operator=(const Text &) = delete;

    XmString Get() const { return string; }

private:
    XmString string;
};

// The toolkit's `String` is not const, although it only reads it.
inline char *Name(const char *text) {
    return const_cast<char *>(text);
}

} // namespace graph_browser
