/* The version line in a program without an output of its own for messages. */

#include <corvidlmw/common/Version.h>
#include <corvidlmw/common/VersionLine.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <regex>
#include <string>

namespace corvidlmw::test {
namespace {

std::string Sprintf() {
    std::array<char, 200> buffer{};
    libcorvidlmw_sprintf_verid(buffer.data());
    return buffer.data();
}

TEST(Version, SaysNameVersionAndWhenItWasBuilt) {
    const std::string line = Sprintf();
    std::smatch parts;
    ASSERT_TRUE(std::regex_match(
        line, parts, std::regex(R"((libcorvidlmw {21}) (\d+\.\d+\.\d+\.\d+) \(([^)]+)\)\n)")))
        << line;
    EXPECT_EQ(parts[1].length(), 33);
    std::tm built{};
    const std::string stamp = parts[3];
    const char *end = strptime(stamp.c_str(), "%A %B %d %H:%M:%S UTC %Y", &built);
    ASSERT_NE(end, nullptr) << stamp;
    EXPECT_STREQ(end, "");
    const int weekday = built.tm_wday;
    const std::time_t then = timegm(&built);
    EXPECT_EQ(built.tm_wday, weekday);
    if (const char *epoch = std::getenv("SOURCE_DATE_EPOCH"); !epoch) {
        EXPECT_LE(then, std::time(nullptr));
    }
}

TEST(Version, IsPrintedToStandardOutput) {
    testing::internal::CaptureStdout();
    libcorvidlmw_print_verid();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), Sprintf());
    libcorvidlmw_sprintf_verid(nullptr);
}

TEST(Version, TellsOfAVariant) {
    std::string line;
    PrintVersionLine({"name", "1.2.3.4", "with bells", "today"},
                     [&](const char *format, auto... arguments) {
                         std::array<char, 200> buffer{};
                         std::snprintf(buffer.data(), buffer.size(), format, arguments...);
                         line = buffer.data();
                     });
    EXPECT_EQ(line, "name" + std::string(29, ' ') + " 1.2.3.4 \"with bells\" (today)\n");
}

} // namespace
} // namespace corvidlmw::test
