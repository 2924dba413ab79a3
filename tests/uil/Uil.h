/* The UIL compiler, and what corvidlmw/uil/Corvidlmw.uil declares. */
#ifndef CORVIDLMW_TESTS_UIL_UIL_H
#define CORVIDLMW_TESTS_UIL_UIL_H

#include <filesystem>
#include <string>
#include <vector>

namespace corvidlmw::test {

// `XmNname : argument('resource', type);`, or a reason, whose type is "reason".
struct UilResource {
    std::string name, resource, type;
};

std::vector<UilResource> UilResources();
std::vector<std::string> UilProcedures();

// What goes between `module` and `end module`, which may use the declarations; it and the compiled file live
// as long as this.
class UilModule {
public:
    explicit UilModule(const std::string &body);
    ~UilModule();
    UilModule(const UilModule &) = delete;
    UilModule &operator=(const UilModule &) = delete;

    // What the compiler said; nothing if all is well.
    const std::string &complaints() const { return complaints_; }
    std::string uid_file() const { return (directory_ / "module.uid").string(); }

private:
    std::filesystem::path directory_;
    std::string complaints_;
};

std::string ReadFile(const std::filesystem::path &file);

} // namespace corvidlmw::test

#endif
