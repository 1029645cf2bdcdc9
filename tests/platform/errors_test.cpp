#include "platform/runtime/errors.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace cumeron {
namespace {

TEST(ErrorText, TellsEachNumber) {
    const struct {
        int number;
        const char* text;
    } cases[] = {
        {5, "Invalid procedure call or argument"},
        {6, "Overflow"},
        {9, "Subscript out of range"},
        {11, "Division by zero"},
        {13, "Type mismatch"},
        {53, "File not found"},
        {55, "File already open"},
        {57, "Device I/O error"},
        {61, "Disk full"},
        {67, "Too many files"},
        {68, "Device unavailable"},
        {70, "Permission denied"},
        {75, "Path/File access error"},
        {76, "Path not found"},
        {380, "Invalid property value"},
        {482, "Printer error"},
        {8018, "Operation valid only when the port is open"},
        {32755, "Cancel was selected"},
        {0, "Application-defined or object-defined error"},
        {-1, "Application-defined or object-defined error"},
        {12345, "Application-defined or object-defined error"},
    };
    for (const auto& c : cases) EXPECT_EQ(ErrorText(c.number), c.text) << c.number;
}

TEST(RuntimeError, CarriesNumberTextAndSystemCode) {
    const RuntimeError plain(61);
    EXPECT_EQ(plain.Number, 61);
    EXPECT_EQ(plain.SystemCode, 0);
    EXPECT_STREQ(plain.what(), "Disk full");

    const RuntimeError fromSystem(70, 13);
    EXPECT_EQ(fromSystem.SystemCode, 13);
    EXPECT_STREQ(fromSystem.what(), "Permission denied");

    const RuntimeError withText(70, "Add yourself to the group dialout", 13);
    EXPECT_EQ(withText.Number, 70);
    EXPECT_EQ(withText.SystemCode, 13);
    EXPECT_STREQ(withText.what(), "Add yourself to the group dialout");
}

TEST(ResumeNext, GoesOnAfterAnError) {
    int done = 0;
    EXPECT_TRUE(ResumeNext([&] { ++done; }));
    EXPECT_FALSE(ResumeNext([&] {
        ++done;
        throw RuntimeError(6);
    }));
    EXPECT_FALSE(ResumeNext([] { throw std::out_of_range("index"); }));
    EXPECT_EQ(done, 2);
}

TEST(ResumeNext, LetsTheEndOfTheProcessThrough) {
    EXPECT_THROW(ResumeNext([] { throw ProcessEnd{3}; }), ProcessEnd);
}

}  // namespace
}  // namespace cumeron
