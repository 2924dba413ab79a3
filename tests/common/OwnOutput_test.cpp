/* The version line in a program that brings its own output for messages. */

#include <corvidlmw/common/Version.h>

#include <gtest/gtest.h>

#include <cstdarg>
#include <cstdio>
#include <string>

namespace {

struct Printed {
    void *destination = nullptr;
    int number = 0;
    std::string text;
};
Printed printed;

} // namespace

extern "C" {

void imsg_print(void *destination, const char *format, int number, ...) {
    va_list arguments;
    va_start(arguments, number);
    char text[200];
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    printed = {destination, number, text};
}

void imsg_sprintf(char *buffer, const char *format, int number, ...) {
    va_list arguments;
    va_start(arguments, number);
    std::vsprintf(buffer, format, arguments);
    va_end(arguments);
    printed = {buffer, number, buffer};
}
}

namespace {

TEST(OwnOutput, GetsTheLine) {
    testing::internal::CaptureStdout();
    libcorvidlmw_print_verid();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(printed.destination, nullptr);
    EXPECT_EQ(printed.number, -1);
    const std::string line = printed.text;
    EXPECT_TRUE(line.starts_with("libcorvidlmw ")) << line;
    EXPECT_TRUE(line.ends_with(")\n")) << line;

    printed = {};
    char buffer[200];
    libcorvidlmw_sprintf_verid(buffer);
    EXPECT_EQ(printed.destination, buffer);
    EXPECT_EQ(printed.number, -1);
    EXPECT_EQ(buffer, line);
}

} // namespace
