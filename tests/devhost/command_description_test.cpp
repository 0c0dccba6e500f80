// The shipped description of the "logger" command against the plug-in
// itself: every form, value set, optional option and number range that help
// and completion offer is driven through the plug-in's CheckParam, and so is
// every option the description gives a form that the form must refuse. The
// number ranges are checked twice, with the built-in limits and with a
// limits file that moves every bound, so the key names are checked too.
#include <dlfcn.h>

#include <algorithm>
#include <iostream>
#include <memory>
#include <set>
#include <sstream>

#include "devhost/help/command_description.h"
#include "host/command.h"
#include "tests/devhost/devhost_test_support.h"

namespace devhost_test {
namespace {

using devhost::CFormDescription;
using devhost::COptionDescription;
using Words = std::vector<std::string>;

class CommandDescriptionTest : public DevhostTest {
 protected:
  void SetUp() override {
    DevhostTest::SetUp();
    SetEnv("KTL_PLUGIN_DIR", KTL_PLUGIN_DIR_FOR_TESTS);
    SetEnv("KTL_ROOT", Path("root"));
    std::string strError;
    ASSERT_TRUE(devhost::ReadCommandDescription("logger", m_description, strError)) << strError;
    m_pPlugin = dlopen(KTL_PLUGIN_DIR_FOR_TESTS "/libktl_cli-logger.so", RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    ASSERT_NE(m_pPlugin, nullptr) << dlerror();
    m_factory = reinterpret_cast<CCommand* (*)()>(dlsym(m_pPlugin, "GetCommandFactorylogger"));
    ASSERT_NE(m_factory, nullptr);
  }
  void TearDown() override {
    if (m_pPlugin) dlclose(m_pPlugin);
    DevhostTest::TearDown();
  }

  // True when the plug-in accepts the words; its refusal message is kept
  // off the test's output.
  bool Accepted(const Words& vecWords) {
    std::ostringstream refusal;
    std::streambuf* pSaved = std::cerr.rdbuf(refusal.rdbuf());
    std::unique_ptr<CCommand> pCommand(m_factory());
    const int nResult = pCommand->CheckParam(vecWords);
    std::cerr.rdbuf(pSaved);
    return nResult == 0;
  }
  void ExpectAccepted(const Words& vecWords, bool bAccepted) {
    std::string strLine = "logger";
    for (const std::string& strWord : vecWords) strLine += " " + strWord;
    EXPECT_EQ(Accepted(vecWords), bAccepted) << strLine;
  }

  // The form's required options, each with a value the description allows;
  // the selector (the first option) with strSelector when given.
  static Words Base(const CFormDescription& form, const std::string& strSelector = "") {
    Words vecWords;
    for (const COptionDescription& option : form.vecOptions) {
      if (option.bOptional) continue;
      vecWords.push_back(option.strName);
      if (&option == &form.vecOptions.front() && !strSelector.empty()) {
        vecWords.push_back(strSelector);
      } else if (!option.vecValues.empty()) {
        vecWords.push_back(option.vecValues.front());
      } else if (!option.strSample.empty()) {
        vecWords.push_back(option.strSample);
      }
    }
    return vecWords;
  }
  static Words With(Words vecWords, const Words& vecMore) {
    vecWords.insert(vecWords.end(), vecMore.begin(), vecMore.end());
    return vecWords;
  }

  void ExpectRangesInForce() {
    for (const CFormDescription& form : m_description.vecForms) {
      const COptionDescription& selector = form.vecOptions.front();
      const Words vecSelectors = selector.vecValues.empty() ? Words{""} : selector.vecValues;
      for (const COptionDescription& option : form.vecOptions) {
        if (!option.isNumber()) continue;
        for (const std::string& strSelector : vecSelectors) {
          const Words vecBase = Base(form, strSelector);
          const std::string strSection = devhost::LimitsSection(form, option, strSelector);
          if (strSection.empty()) {
            ExpectAccepted(With(vecBase, {option.strName, "50"}), false);
            continue;
          }
          const devhost::CLimitRange range = devhost::LimitsInForce(m_description, strSection, option.strNumberStem);
          ExpectAccepted(With(vecBase, {option.strName, std::to_string(range.nMin)}), true);
          ExpectAccepted(With(vecBase, {option.strName, std::to_string(range.nMax)}), true);
          ExpectAccepted(With(vecBase, {option.strName, std::to_string(range.nMin - 1)}), false);
          ExpectAccepted(With(vecBase, {option.strName, std::to_string(range.nMax + 1)}), false);
        }
      }
    }
  }

  devhost::CCommandDescription m_description;
  void* m_pPlugin = nullptr;
  CCommand* (*m_factory)() = nullptr;
};

TEST_F(CommandDescriptionTest, EveryFormOptionAndValueIsTheOneThePluginAccepts) {
  ASSERT_FALSE(m_description.vecForms.empty());
  std::set<std::string> setAllOptions;
  for (const CFormDescription& form : m_description.vecForms) {
    for (const COptionDescription& option : form.vecOptions) setAllOptions.insert(option.strName);
  }
  for (const CFormDescription& form : m_description.vecForms) {
    const Words vecBase = Base(form);
    ExpectAccepted(vecBase, true);
    for (const COptionDescription& option : form.vecOptions) {
      // Each value of a set, in any case, where the base has the first one.
      const auto itValue = std::find(vecBase.begin(), vecBase.end(), option.strName);
      if (!option.vecValues.empty() && itValue != vecBase.end()) {
        Words vecWords = vecBase;
        std::string& strValue = vecWords[(itValue - vecBase.begin()) + 1];
        for (std::string strAllowed : option.vecValues) {
          strValue = strAllowed;
          ExpectAccepted(vecWords, true);
          std::transform(strAllowed.begin(), strAllowed.end(), strAllowed.begin(), ::toupper);
          strValue = strAllowed;
          ExpectAccepted(vecWords, true);
        }
        strValue = "bogus";
        ExpectAccepted(vecWords, false);
        if (option.bOptionalValue) {
          vecWords.erase(vecWords.begin() + (itValue - vecBase.begin()) + 1);
          ExpectAccepted(vecWords, true);
        }
      }
      // An optional option without a value joins the base as it is.
      if (option.bOptional && !option.takesValue()) ExpectAccepted(With(vecBase, {option.strName}), true);
    }
    // What the description gives other forms only, this form refuses.
    for (const std::string& strOption : setAllOptions) {
      const bool bOwn = std::any_of(form.vecOptions.begin(), form.vecOptions.end(),
                                    [&](const COptionDescription& option) { return option.strName == strOption; });
      if (!bOwn) ExpectAccepted(With(vecBase, {strOption, "1"}), false);
    }
  }
}

// Completion offers nothing after a value that ends the form: the plug-in
// must refuse every optional option there, and accept them with another value.
TEST_F(CommandDescriptionTest, AValueThatEndsTheFormIsOneAfterWhichThePluginRefusesMore) {
  size_t nEnding = 0;
  for (const CFormDescription& form : m_description.vecForms) {
    for (const COptionDescription& option : form.vecOptions) {
      if (option.strEndsForm.empty()) continue;
      ++nEnding;
      Words vecBase = Base(form);
      const auto itOption = std::find(vecBase.begin(), vecBase.end(), option.strName);
      ASSERT_NE(itOption, vecBase.end()) << option.strName << " of " << form.strName << " is no required option";
      std::string& strValue = *(itOption + 1);
      for (const COptionDescription& more : form.vecOptions) {
        if (!more.bOptional) continue;
        const Words vecMore = {more.strName, more.vecValues.empty() ? "50" : more.vecValues.front()};
        strValue = option.strEndsForm;
        ExpectAccepted(With(vecBase, vecMore), false);
        for (const std::string& strOther : option.vecValues) {
          strValue = strOther;
          if (strOther != option.strEndsForm) ExpectAccepted(With(vecBase, vecMore), true);
        }
      }
    }
  }
  EXPECT_GT(nEnding, 0u) << "no value ends a form";
}

TEST_F(CommandDescriptionTest, NumbersAreAllowedExactlyWithinTheLimitsInForce) {
  ExpectRangesInForce();
  // Every bound moved by a limits file: the description must name the keys
  // the plug-in reads.
  std::string strLimits;
  for (const auto& section : m_description.mapBuiltinLimits) {
    strLimits += "[" + section.first + "]\n";
    for (const auto& key : section.second) {
      const bool bMin = key.first.size() > 4 && key.first.compare(key.first.size() - 4, 4, "_MIN") == 0;
      strLimits += key.first + " = " + std::to_string(key.second + (bMin ? 1 : -1)) + "\n";
    }
  }
  WriteFile(Path("root") + m_description.strLimitsFile, strLimits);
  ExpectRangesInForce();
}

}  // namespace
}  // namespace devhost_test
