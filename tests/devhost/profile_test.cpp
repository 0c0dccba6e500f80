// GetPrivateProfileIntA of the development host, on real INI files.
#include <climits>

#include "host/profile.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

using devhost_test::DevhostTest;

const char kLimitsFile[] =
    "; limits of the logger command\n"
    "[CPU]\n"
    "INTERVAL_MIN = 10\n"
    "interval_max=600\n"
    "Spaced =     42   \n"
    "Negative = -5\n"
    "Positive = +7\n"
    "Text = abc\n"
    "Prefix = 12abc\n"
    "Sign only = -\n"
    "Empty =\n"
    "Huge = 99999999999\n"
    "Hex = 0x1F\n"
    "a.b = 3\n"
    "[disk]\n"
    "THRESHOLD_MIN = 40\n"
    "[Empty section]\n";

struct ProfileCase {
  const char* name;
  const char* pszSection;
  const char* pszKey;
  int nExpected;
};
void PrintTo(const ProfileCase& c, std::ostream* os) { *os << c.name; }

const int kDefault = -1234;

class ProfileTest : public DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    devhost_test::WriteFile(Path("limits.ini"), kLimitsFile);
  }
};

class ProfileValueTest : public ProfileTest, public ::testing::WithParamInterface<ProfileCase> {};

TEST_P(ProfileValueTest, ReadsTheValueOrGivesTheDefault) {
  const ProfileCase& c = GetParam();
  EXPECT_EQ(GetPrivateProfileIntA(c.pszSection, c.pszKey, kDefault, Path("limits.ini").c_str()), c.nExpected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ProfileValueTest,
    ::testing::Values(ProfileCase{"plain value", "CPU", "INTERVAL_MIN", 10},
                      ProfileCase{"section in other case", "cpu", "INTERVAL_MIN", 10},
                      ProfileCase{"key in other case", "CPU", "INTERVAL_MAX", 600},
                      ProfileCase{"lower-case section in file", "DISK", "threshold_min", 40},
                      ProfileCase{"blanks around the value", "CPU", "Spaced", 42},
                      ProfileCase{"minus sign", "CPU", "Negative", -5}, ProfileCase{"plus sign", "CPU", "Positive", 7},
                      ProfileCase{"no digits", "CPU", "Text", 0}, ProfileCase{"digits then text", "CPU", "Prefix", 12},
                      ProfileCase{"sign without digits", "CPU", "Sign only", 0},
                      ProfileCase{"hex is not read", "CPU", "Hex", 0},
                      ProfileCase{"too large is clamped", "CPU", "Huge", INT_MAX},
                      ProfileCase{"dot in the key name", "CPU", "a.b", 3},
                      ProfileCase{"empty value", "CPU", "Empty", kDefault},
                      ProfileCase{"missing key", "CPU", "COUNT_MIN", kDefault},
                      ProfileCase{"missing section", "MEMORY", "INTERVAL_MIN", kDefault},
                      ProfileCase{"empty section", "Empty section", "INTERVAL_MIN", kDefault},
                      ProfileCase{"key of another section", "DISK", "INTERVAL_MIN", kDefault}),
    devhost_test::CaseName<ProfileCase>);

TEST_F(ProfileTest, AMissingFileGivesTheDefault) {
  EXPECT_EQ(GetPrivateProfileIntA("CPU", "INTERVAL_MIN", 5, Path("none.ini").c_str()), 5);
}

TEST_F(ProfileTest, AMalformedFileIsReportedOnceAndGivesTheDefaults) {
  devhost_test::WriteFile(Path("bad.ini"), "[CPU]\nINTERVAL_MIN = 10\nthis line has no equals sign\n");
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(GetPrivateProfileIntA("CPU", "INTERVAL_MIN", 5, Path("bad.ini").c_str()), 5);
  EXPECT_EQ(GetPrivateProfileIntA("CPU", "INTERVAL_MIN", 6, Path("bad.ini").c_str()), 6);
  const std::string strError = ::testing::internal::GetCapturedStderr();
  const std::string strWhere = Path("bad.ini") + ":3:";
  ASSERT_NE(strError.find(strWhere), std::string::npos) << strError;
  EXPECT_EQ(strError.find(strWhere, strError.find(strWhere) + 1), std::string::npos) << "reported twice: " << strError;
}

TEST_F(ProfileTest, ADuplicateKeyMakesTheFileMalformed) {
  devhost_test::WriteFile(Path("dup.ini"), "[CPU]\nCOUNT_MIN = 1\ncount_min = 2\n");
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(GetPrivateProfileIntA("CPU", "COUNT_MIN", 9, Path("dup.ini").c_str()), 9);
  EXPECT_NE(::testing::internal::GetCapturedStderr().find(Path("dup.ini")), std::string::npos);
}

TEST_F(ProfileTest, AnAbsolutePathIsLookedUpUnderTheRoot) {
  std::filesystem::create_directories(Path("root/opt/velmora"));
  devhost_test::WriteFile(Path("root/opt/velmora/Params.ini"), "[DISK]\nTHRESHOLD_MAX = 95\n");
  m_env.Set("KTL_ROOT", Path("root") + "/");
  EXPECT_EQ(GetPrivateProfileIntA("DISK", "THRESHOLD_MAX", 100, "/opt/velmora/Params.ini"), 95);
  m_env.Set("KTL_ROOT", Path("elsewhere"));
  EXPECT_EQ(GetPrivateProfileIntA("DISK", "THRESHOLD_MAX", 100, "/opt/velmora/Params.ini"), 100);
}

}  // namespace
