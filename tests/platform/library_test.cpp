#include <gtest/gtest.h>

#include "platform/companion.h"
#include "platform/grvelk.h"
#include "platform/system.h"

namespace corvane {
namespace {

using Version = float CORVANE_STDCALL();
using Boolean = int16_t CORVANE_STDCALL(int16_t);
using Nothing = void CORVANE_STDCALL(char*, int32_t);

TEST(LibraryFunction, MissingLibraryGivesTheNeutralResultAndError126) {
    LibraryFunction<Version> version{"NoSuchVelk.dll", "GetNoVersion"};
    EXPECT_EQ(version(), 0.0F);
    EXPECT_EQ(version.error, system::kErrorModuleNotFound);
    LibraryFunction<Boolean> boolean{"NoSuchVelk.dll", "IsNothing"};
    EXPECT_EQ(boolean(1), 0);
    EXPECT_EQ(boolean.error, system::kErrorModuleNotFound);
    LibraryFunction<Nothing> nothing{"NoSuchVelk.dll", "DoNothing"};
    char buffer[] = "unchanged";
    nothing(buffer, 9);
    EXPECT_STREQ(buffer, "unchanged");
    EXPECT_EQ(nothing.error, system::kErrorModuleNotFound);
}

TEST(LibraryFunction, MissingFunctionGivesTheNeutralResultAndError127) {
    LibraryFunction<Version> version{"GrVelk.dll", "GetNoVersion"};
    EXPECT_EQ(version(), 0.0F);
    EXPECT_EQ(version.error, system::kErrorProcedureNotFound);
    EXPECT_EQ(version(), 0.0F);
    EXPECT_EQ(version.error, system::kErrorProcedureNotFound);
}

TEST(LibraryFunction, CompanionBesideTheProgramIsFound) {
    LibraryFunction<Version> version{"GrVelk.dll", "GetGrVelkDataVersion"};
    EXPECT_EQ(version(), 2.002F);
    EXPECT_EQ(version.error, system::kErrorNone);
}

TEST(LibraryFunction, DeclaredTwinCallsTheFunction) {
    EXPECT_EQ(corvane::GetGrVelkBhaVersion(), 0.443F);
    EXPECT_EQ(corvane::GetGrVelkBhaVersion.error, system::kErrorNone);
}

}  // namespace
}  // namespace corvane
