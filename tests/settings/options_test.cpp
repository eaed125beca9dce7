#include <gtest/gtest.h>

#include "settings/ini_file.h"
#include "settings/mod_opt.h"
#include "settings/prj_opt.h"
#include "settings/profile.h"
#include "support/temp_folder.h"

namespace zemva {
namespace {

TEST(Options, LegalValues) {
  const test::TempFolder folder;
  const std::string directory = folder.Path().string();
  const std::string with_backslash = directory + "\\";
  const std::string missing = folder.File("none");
  struct Case {
    EOptType type;
    std::vector<std::string> legal;
    std::vector<std::string> illegal;
  };
  const Case cases[] = {
      {EOptType::CompLimLoa,
       {"1", "5.0", " +3. \t", "3e0", ".5e1"},
       {"", " ", "0.99", "5.01", "5.0000000001", "3,0", "3 0", "3x", "0x3", "nan", "."}},
      {EOptType::ExtMisVal,
       {"-1e300", "0", "-0", "12345678901234567890"},
       {"inf", "-nan", "1e999", "--1", "+-1", "infinity"}},
      {EOptType::MaxIter, {"0", " 200 ", "+7"}, {"-1", "1.0", "", "1e3", "99999999999", "x"}},
      {EOptType::SignLev,
       {"1e-400", "-1e-400", "1e-99999999999", "1" + std::string(400, '0') + "e-800"},
       {"1e400", "0." + std::string(400, '0') + "1e800"}},
      {EOptType::MaxMisValPS, {"0", "100"}, {"-0.1", "100.1"}},
      {EOptType::VarPltMarkLen, {"1", "25"}, {"0", "26"}},
      {EOptType::LogCompLim, {"On", "Off"}, {"on", "1", " On", ""}},
      {EOptType::ResidType, {"Scaled", "Standardized"}, {"standardized"}},
      {EOptType::AutofitStop, {"Auto", "CV", "Eig"}, {"NoCV", "On"}},
      {EOptType::CrossValidation, {"NoCV", "CV"}, {"Auto", "Eig", "On"}},
      {EOptType::DefaultProjectDir,
       {directory.c_str(), with_backslash.c_str()},
       {"", "\\", missing.c_str()}},
      {EOptType::XOpt1, {}, {"0", "", "1"}},
      {EOptType::XScoreCritDistLimit, {"0", "4"}, {"4.1"}},
      {EOptType::None, {}, {"0"}},
      {static_cast<EOptType>(41), {}, {"0"}},
  };
  for (const auto& [type, legal, illegal] : cases) {
    const char* key = Options::GetString(type);
    for (const std::string& value : legal) {
      EXPECT_TRUE(Options::IsLegalValue(type, value.c_str())) << key << " " << value;
    }
    for (const std::string& value : illegal) {
      EXPECT_FALSE(Options::IsLegalValue(type, value.c_str())) << key << " " << value;
    }
    EXPECT_FALSE(Options::IsLegalValue(type, nullptr));
  }
}

TEST(Options, OnlyTheFirst36AreGlobal) {
  EXPECT_EQ(Options::GetOptType("ReconstructWavelets"), static_cast<EOptType>(36));
  EXPECT_EQ(Options::GetOptType("NumberFormat"), EOptType::None);
  EXPECT_EQ(Options::GetOptType("ncv"), EOptType::None);
  EXPECT_TRUE(Options::IsGlobalOption(static_cast<EOptType>(36)));
}

TEST(Options, AnIllegalValueChangesNothing) {
  PrjOpt options(true);
  EXPECT_FALSE(options.SetValue(EOptType::NCV, "many"));
  EXPECT_FALSE(options.SetValue(EOptType::ExtMisVal, ("1" + std::string(300, ' ')).c_str()));
  EXPECT_FALSE(options.SetMaxIter(-1));
  EXPECT_FALSE(options.SetXOpt1(1));
  EXPECT_FALSE(options.IsChanged());
  EXPECT_EQ(options.GetNCV(), 7);
  EXPECT_FLOAT_EQ(options.GetExtMisVal(), -100000.0F);

  EXPECT_TRUE(options.SetCompLimScr(1.5F));
  EXPECT_STREQ(options.GetValue(EOptType::CompLimScr), "1.5");
  EXPECT_TRUE(options.SetExtMisVal(-1234567.0F));
  EXPECT_STREQ(options.GetValue(EOptType::ExtMisVal), "-1.23457e+06");
  EXPECT_TRUE(options.SetAutofitStopCriteria(EValidate::Eig));
  EXPECT_TRUE(options.IsChanged());
  PrjOpt copy(true);
  copy.Copy(options);
  EXPECT_EQ(copy.GetAutofitStopCriteria(), EValidate::Eig);
}

class GlobalOptionsTest : public testing::Test {
 protected:
  GlobalOptionsTest() { IniFile::SetIniPath(folder_.Path().string().c_str()); }
  ~GlobalOptionsTest() override { IniFile::SetIniPath(nullptr); }

  static void Set(const char* key, const char* value) {
    EXPECT_TRUE(
        Profile::OfThisSystem().Write({"Options", key, value}, IniFile::GetSettingsFile().c_str()));
  }
  static std::string InFile(const char* key) {
    std::string buffer(100, '\0');
    buffer.resize(Profile::OfThisSystem().ReadString("Options", key, "(none)", buffer,
                                                     IniFile::GetSettingsFile().c_str()));
    return buffer;
  }

  test::TempFolder folder_;
};

TEST_F(GlobalOptionsTest, IllegalValuesAreReplacedInTheFileToo) {
  const std::string long_path(1000, 'x');
  struct Case {
    const char* key;
    const char* stored;
    const char* loaded;
  };
  const Case cases[] = {
      {"CompLimLoa", "5.0", "5.0"},
      {"CompLimScr", "5.01", "3.0"},
      {"VarPltMarkLen", "26", "8"},
      {"ResidType", "Standardized", "standardized"},
      {"XOpt1", "7", "0"},
      {"DefaultProjectDir", long_path.c_str(), ""},
      {"NCV", "", "7"},
      {"MaxIter", "\"12\"", "12"},
      {"LagDecay", "0\xFF", "0.95"},
  };
  for (const Case& c : cases) Set(c.key, c.stored);
  Set("NumberFormat", "5");
  PrjOpt options(true);
  options.LoadGlobal();
  for (const Case& c : cases) {
    EXPECT_STREQ(options.GetValue(Options::GetOptType(c.key)), c.loaded);
    EXPECT_EQ(InFile(c.key), c.loaded);
  }
  EXPECT_EQ(InFile("ReconstructWavelets"), "On");
  EXPECT_EQ(options.GetFormatNumber(), 3) << "is no global option";
}

TEST_F(GlobalOptionsTest, AFileThatLacksNothingIsOnlyRead) {
  const std::string file = IniFile::GetSettingsFile();
  EXPECT_TRUE(PrjOpt(true).LoadGlobal());
  const std::filesystem::file_time_type old(std::chrono::hours(1));
  std::filesystem::last_write_time(file, old);
  EXPECT_TRUE(PrjOpt(true).LoadGlobal());
  EXPECT_EQ(std::filesystem::last_write_time(file), old);
  test::WriteBytes(file, "[Options]\nNCV\nNCV=9\n");
  PrjOpt options(true);
  EXPECT_TRUE(options.LoadGlobal());
  EXPECT_EQ(options.GetNCV(), 7) << "the first of a name counts";
  EXPECT_EQ(InFile("NCV"), "7");
}

TEST_F(GlobalOptionsTest, ASavedValueIsLoadedByTheNext) {
  PrjOpt first(true);
  first.LoadGlobal();
  first.SetNCV(5);
  EXPECT_TRUE(first.SaveGlobal());
  EXPECT_FALSE(first.IsChanged());
  PrjOpt second(true);
  second.LoadGlobal();
  EXPECT_EQ(second.GetNCV(), 5);
  first.SetNCV(4);
  first.SetMaxIter(10);
  EXPECT_TRUE(first.SaveGlobalValue(EOptType::MaxIter));
  second.LoadGlobal();
  EXPECT_EQ(second.GetMaxIter(), 10);
  EXPECT_EQ(second.GetNCV(), 5) << "that value was not to be saved";

  first.SetValue(EOptType::NCV, "6 ");
  EXPECT_FALSE(first.SaveGlobalValue(EOptType::NCV)) << "the blank is lost";

  std::filesystem::remove_all(folder_.Path());
  EXPECT_FALSE(first.SaveGlobal());
  EXPECT_FALSE(first.IsChanged());
}

// Words that SetValue refuses cannot be brought in; an enumeration's other legal words can.
TEST(PrjOpt, GettersMapWordsToValues) {
  PrjOpt options(true);
  EXPECT_EQ(options.GetResidType(), EResidType::Standardized) << "by the fallback";
  EXPECT_TRUE(options.SetValue(EOptType::AutofitStop, "Auto"));
  EXPECT_EQ(options.GetAutofitStopCriteria(), EValidate::CV);
  EXPECT_FALSE(options.SetCrossValidation(EValidate::Eig));
  EXPECT_TRUE(options.SetModDistTypePS(EModDist::Absolute));
  EXPECT_EQ(options.GetModDistTypePS(), EModDist::Absolute);
  EXPECT_EQ(options.GetModDistType(), EModDist::Normalized);
  EXPECT_EQ(options.GetFormatNumber(), 3);
  EXPECT_FLOAT_EQ(options.GetXScoreCritDistLimit(), 2.0F);
  EXPECT_FALSE(options.GetColumnPlotMark());
}

TEST(ModOpt, TakesOverAProjectsOptions) {
  PrjOpt project(true);
  project.SetModDistType(EModDist::Absolute);  // not ModDistTypePS
  project.SetMaxIter(100000);
  project.SetMaxMisValPS(10.0F);
  project.SetSignLev(0.25F);
  project.SetResFilePS(true);
  project.SetVarPltMarkSta(2);
  project.SetObjPltMarkLen(3);
  project.SetCrossValidation(EValidate::NoCV);
  const ModOpt options(&project);
  EXPECT_FALSE(options.GetIsRule());
  EXPECT_EQ(options.GetSeqValidate(), EValidate::NoCV);
  EXPECT_FALSE(options.GetIsNormDistLS());
  EXPECT_FALSE(options.GetIsNormDistPS());
  EXPECT_EQ(options.GetMaxIter(), 32767);
  EXPECT_FLOAT_EQ(options.GetMaxMisValVarPS(), 10.0F);
  EXPECT_FLOAT_EQ(options.GetSignLevPS(), 0.25F);
  EXPECT_TRUE(options.GetIsResFilePS());
  EXPECT_TRUE(options.GetIsSaveResPS());
  EXPECT_EQ(options.GetVariablePlotMarkStart(), 2);
  EXPECT_EQ(options.GetObjectPlotMarkLength(), 3);
}

TEST(ModOpt, OutsideAProjectDiffersFromTheDefaults) {
  const ModOpt defaults;
  const ModOpt outside(nullptr);
  EXPECT_FLOAT_EQ(defaults.GetLagDecay(), 0.95F);
  EXPECT_FLOAT_EQ(outside.GetLagDecay(), 1.0F);
  EXPECT_FLOAT_EQ(defaults.GetMaxMisValObsPS(), 50.0F);
  EXPECT_FLOAT_EQ(outside.GetMaxMisValObsPS(), 20.0F);
  EXPECT_TRUE(outside.GetIsXDesigned());
  EXPECT_FALSE(outside.GetIsBackTraYLS());
  ModOpt copy;
  copy.SetNComp(200);
  EXPECT_EQ(copy.GetNComp(), 127);
  copy.Copy(outside);
  EXPECT_EQ(copy.GetNComp(), 0);
  EXPECT_FLOAT_EQ(copy.GetLagDecay(), 1.0F);
}

}  // namespace
}  // namespace zemva
