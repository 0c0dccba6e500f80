// GetPrivateProfileIntA of the development host, on real INI files.
#include <climits>

#include "host/profile.h"
#include "tests/devhost/devhost_test_support.h"

namespace {

class ProfileTest : public devhost_test::DevhostTest {
 protected:
  int Get(const char* pszSection, const char* pszKey, int nDefault, const std::string& strName) {
    return GetPrivateProfileIntA(pszSection, pszKey, nDefault, Path(strName).c_str());
  }
};

TEST_F(ProfileTest, ReadsTheValueOrGivesTheDefault) {
  devhost_test::WriteFile(Path("limits.ini"),
                          "; limits of the logger command\n"
                          "[CPU]\nINTERVAL_MIN = 10\nSpaced =     42   \nNegative = -5\n"
                          "Text = abc\nPrefix = 12abc\nEmpty =\nHuge = 99999999999\n"
                          "[disk]\nTHRESHOLD_MIN = 40\n");
  const int kDefault = -1234;
  const struct {
    const char* name;
    const char* pszSection;
    const char* pszKey;
    int nExpected;
  } cases[] = {
      {"section and key in other case", "DISK", "threshold_min", 40},
      {"blanks around the value", "CPU", "Spaced", 42},
      {"minus sign", "CPU", "Negative", -5},
      {"no digits", "CPU", "Text", 0},
      {"digits then text", "CPU", "Prefix", 12},
      {"too large is clamped", "CPU", "Huge", INT_MAX},
      {"empty value", "CPU", "Empty", kDefault},
      {"missing key", "CPU", "COUNT_MIN", kDefault},
      {"key of another section", "DISK", "INTERVAL_MIN", kDefault},
  };
  for (const auto& c : cases) EXPECT_EQ(Get(c.pszSection, c.pszKey, kDefault, "limits.ini"), c.nExpected) << c.name;
}

TEST_F(ProfileTest, AMissingOrMalformedFileGivesTheDefaultsAndIsReportedOnce) {
  devhost_test::WriteFile(Path("bad.ini"), "[CPU]\nINTERVAL_MIN = 10\nthis line has no equals sign\n");
  devhost_test::WriteFile(Path("dup.ini"), "[CPU]\nINTERVAL_MIN = 1\ninterval_min = 2\n");
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(Get("CPU", "INTERVAL_MIN", 5, "none.ini"), 5);
  EXPECT_EQ(Get("CPU", "INTERVAL_MIN", 5, "bad.ini"), 5);
  EXPECT_EQ(Get("CPU", "INTERVAL_MIN", 6, "bad.ini"), 6);
  EXPECT_EQ(Get("CPU", "INTERVAL_MIN", 9, "dup.ini"), 9);
  const std::string strError = ::testing::internal::GetCapturedStderr();
  const std::string strWhere = Path("bad.ini") + ":3:";
  ASSERT_NE(strError.find(strWhere), std::string::npos) << strError;
  EXPECT_EQ(strError.find(strWhere, strError.find(strWhere) + 1), std::string::npos) << "reported twice: " << strError;
  EXPECT_NE(strError.find(Path("dup.ini")), std::string::npos) << strError;
}

TEST_F(ProfileTest, AnAbsolutePathIsLookedUpUnderTheRoot) {
  devhost_test::WriteFile(Path("root/opt/velmora/Params.ini"), "[DISK]\nTHRESHOLD_MAX = 95\n");
  SetEnv("KTL_ROOT", Path("root") + "/");
  EXPECT_EQ(GetPrivateProfileIntA("DISK", "THRESHOLD_MAX", 100, "/opt/velmora/Params.ini"), 95);
  SetEnv("KTL_ROOT", Path("elsewhere"));
  EXPECT_EQ(GetPrivateProfileIntA("DISK", "THRESHOLD_MAX", 100, "/opt/velmora/Params.ini"), 100);
}

}  // namespace
