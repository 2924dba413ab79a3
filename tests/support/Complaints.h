/* What the toolkit and the server complained of: warnings, X errors, fatal errors. */

#ifndef CORVIDLMW_TESTS_SUPPORT_COMPLAINTS_H
#define CORVIDLMW_TESTS_SUPPORT_COMPLAINTS_H

#include <X11/Intrinsic.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvidlmw::test {

struct XErrorRecord {
    std::string text;
    int error_code = 0;
    int request_code = 0;
    int minor_code = 0;
    XID resource = None;
    unsigned long serial = 0;
};

struct Complaints {
    std::vector<std::string> warnings;
    std::vector<XErrorRecord> x_errors;

    static Complaints &Current();
};

// Makes the toolkit's and Xlib's handlers fill Complaints::Current(). A fatal error ends the
// process: the toolkit's callers do not expect to get control back.
void InstallComplaintHandlers(XtAppContext app);

// Runs `act` with a shell of its own in a child process and expects that it ends in XtError (or
// XtErrorMsg) with a message that contains `part`. Widgets of the calling test are out of reach
// there: their connection stays with the parent.
void ExpectFatal(const std::function<void(Widget shell)> &act, std::string_view part);

} // namespace corvidlmw::test

#endif
