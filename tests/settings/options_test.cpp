#include <gtest/gtest.h>

#include <initializer_list>
#include <sstream>
#include <utility>
#include <vector>

#include "zemva/settings/ini/ini_file.h"
#include "zemva/settings/options/mod_opt.h"
#include "zemva/settings/options/prj_opt.h"
#include "zemva/settings/profile/profile.h"
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

TEST(Options, KeysAndDefaults) {
  const std::string cells =
      "CompLimLoa=3.0 CompLimScr=3.0 ExtMisVal=-100000.0 LagDecay=0.95 LogCompLim=Off "
      "MaxIter=200 MaxMisValLS=50.0 MaxMisValPS=50.0 NCV=7 SignLev=0.05 SignLevLS=0.05 "
      "TimeMode=Discrete VariMode=R2 ModDistType=Normalized VarPltMark=Name VarPltMarkSta=1 "
      "VarPltMarkLen=8 ObsPltMark=Number ObsPltMarkSta=1 ObsPltMarkLen=8 PltTempl=Screen "
      "DesignedX=Undesigned DefaultProjectDir= ResidType=standardized AutofitStop=CV "
      "CrossValidation=CV BackTraYLS=On MPowResLS=Off MPowResPS=Off BackTraYPS=On "
      "ModDistTypePS=Normalized ResFilePS=Off ScaResPS=Off XOpt1=0 DModType=DModX "
      "ReconstructWavelets=On NumberFormat=3 DModXCritDistLimit=1 XScoreCritDistLimit=2 "
      "ColumnPlotMark=Off ";
  const PrjOpt options(true);
  std::string found;
  for (int number = 1; number <= 40; ++number) {
    const auto type = static_cast<EOptType>(number);
    const char* key = Options::GetString(type);
    found.append(key).append("=").append(options.GetValue(type)).append(" ");
    EXPECT_EQ(Options::GetOptType(key), number <= 36 ? type : EOptType::None);
    EXPECT_EQ(Options::IsGlobalOption(type), number <= 36);
  }
  EXPECT_EQ(found, cells);
  EXPECT_EQ(Options::GetOptType("ncv"), EOptType::None);
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
  const auto old = std::filesystem::last_write_time(file) - std::chrono::hours(1);
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

template <auto kGetter>
int Get(const PrjOpt& options) {
  return static_cast<int>((options.*kGetter)());
}

// A word that is not legal can still be in an option: the default of one is such.
TEST(PrjOpt, GettersMapWordsToValues) {
  struct Words : PrjOpt {
    Words() : PrjOpt(true) {}
    using Options::SetText;
  };
  using enum EOptType;
  struct Case {
    EOptType type;
    int (*get)(const PrjOpt&);
    std::string words;  // some that are none
    std::string values;
  };
  const Case cases[] = {
      {LogCompLim, Get<&PrjOpt::GetLogCompLim>, "Off On off", "011"},
      {BackTraYLS, Get<&PrjOpt::GetBackTraYLS>, "Off On x", "011"},
      {BackTraYPS, Get<&PrjOpt::GetBackTraYPS>, "Off On x", "011"},
      {ReconstructWavelets, Get<&PrjOpt::GetReconstructWavelets>, "Off On x", "011"},
      {ColumnPlotMark, Get<&PrjOpt::GetColumnPlotMark>, "Off On x", "011"},
      {MPowResLS, Get<&PrjOpt::GetMPowResLS>, "Off On on", "010"},
      {MPowResPS, Get<&PrjOpt::GetMPowResPS>, "Off On x", "010"},
      {ResFilePS, Get<&PrjOpt::GetResFilePS>, "Off On x", "010"},
      {ScaResPS, Get<&PrjOpt::GetScaResPS>, "Off On x", "010"},
      {VariMode, Get<&PrjOpt::GetVariMode>, "R2 R2adj r2", "011"},
      {DModType, Get<&PrjOpt::GetDModType>, "DModX DModY x", "011"},
      {DesignedX, Get<&PrjOpt::GetDesignedX>, "Designed Undesigned x", "011"},
      {ResidType, Get<&PrjOpt::GetResidType>, "Scaled Standardized standardized", "011"},
      {ModDistType, Get<&PrjOpt::GetModDistType>, "Absolute Normalized x", "010"},
      {ModDistTypePS, Get<&PrjOpt::GetModDistTypePS>, "Absolute Normalized x", "011"},
      {VarPltMark, Get<&PrjOpt::GetVarPltMark>, "Number Name x", "120"},
      {ObsPltMark, Get<&PrjOpt::GetObjPltMark>, "Number Name x", "120"},
      {TimeMode, Get<&PrjOpt::GetTimeType>, "Time Discrete x", "010"},
      {CrossValidation, Get<&PrjOpt::GetCrossValidation>, "NoCV CV On Eig", "0220"},
      {AutofitStop, Get<&PrjOpt::GetAutofitStopCriteria>, "Auto CV Eig x", "2230"},
  };
  Words options;
  for (const auto& [type, get, words, values] : cases) {
    std::istringstream stream(words);
    std::string found;
    for (std::string word; stream >> word;) {
      options.SetText(type, word.c_str());
      found += std::to_string(get(options));
    }
    EXPECT_EQ(found, values) << Options::GetString(type) << ": " << words;
  }
  EXPECT_FALSE(options.SetCrossValidation(EValidate::Eig));
  EXPECT_EQ(options.GetFormatNumber(), 3);
  EXPECT_FLOAT_EQ(options.GetDModXCritDistLimit(), 1.0F);
  EXPECT_FLOAT_EQ(options.GetXScoreCritDistLimit(), 2.0F);
  EXPECT_EQ(options.GetValidatePermutations(), 10);
}

// What the getters of a record return, in the order of its fields.
std::vector<double> FieldsOf(const ModOpt& o) {
  std::vector<double> fields;
  const auto add = [&fields](auto... values) {
    (fields.push_back(static_cast<double>(values)), ...);
  };
  add(o.GetIsCenter(), o.GetIsXDesigned(), o.GetIsSeq(), o.GetIsRule(), o.GetRuleValidate(),
      o.GetSeqValidate(), o.GetNComp(), o.GetMaxIter(), o.GetNCV(), o.GetCLS());
  add(o.GetMaxMisValObsLS(), o.GetMaxMisValVarLS(), o.GetMaxMisValObsPS(), o.GetMaxMisValVarPS(),
      o.GetLagDecay(), o.GetIsShoScrLim(), o.GetIsShoLoaLim(), o.GetXOpt1());
  add(o.GetAUseLS(), o.GetIsBackTraYLS(), o.GetIsNormDistLS(), o.GetSignLevLS(), o.GetIsStdResLS(),
      o.GetAUsePS(), o.GetIsBackTraYPS(), o.GetIsNormDistPS(), o.GetSignLevPS());
  add(o.GetIsWResPS(), o.GetIsWResLS(), o.GetIsResFilePS(), o.GetIsResWinPS(), o.GetIsStdResPS(),
      o.GetIsSaveResPS(), o.GetIsScaResPS(), o.GetAShow(), o.GetECoefficient());
  add(o.GetDModType(), o.GetEObjectPlotMark(), o.GetER2(), o.GetEVariablePlotMark(),
      o.GetObjectPlotMarkLength(), o.GetObjectPlotMarkStart(), o.GetVariablePlotMarkLength(),
      o.GetVariablePlotMarkStart(), o.GetSelectVariable(), o.GetIsModifiedByUser());
  return fields;
}

TEST(ModOpt, EveryFieldOfTheThreeConstructors) {
  PrjOpt project(true);
  project.SetValue(EOptType::AutofitStop, "Eig");
  project.SetCrossValidation(EValidate::NoCV);
  project.SetMaxIter(100000);
  project.SetNCV(5);
  project.SetCompLimScr(2.0F);
  project.SetMaxMisValLS(30.0F);
  project.SetMaxMisValPS(10.0F);
  project.SetLagDecay(0.5F);
  project.SetLogCompLim(true);
  project.SetBackTraYLS(false);
  project.SetModDistType(EModDist::Absolute);  // of the prediction set too
  project.SetSignLevLS(0.125F);
  project.SetSignLev(0.25F);
  project.SetResidType(EResidType::Scaled);
  project.SetMPowResPS(true);
  project.SetResFilePS(true);
  project.SetDModType(EDModType::DModY);
  project.SetObjPltMark(EPltMark::None);
  project.SetVarPltMark(EPltMark::Number);
  project.SetVariMode(EVariType::R2adj);
  project.SetObjPltMarkLen(3);
  project.SetObjPltMarkSta(4);
  project.SetVarPltMarkLen(5);
  project.SetVarPltMarkSta(6);
  const auto row = [](std::initializer_list<double> values) {
    std::vector<double> rounded;
    for (const double value : values) rounded.push_back(static_cast<float>(value));
    return rounded;
  };
  EXPECT_EQ(FieldsOf(ModOpt()), row({0, 0, 1, 1,  2, 2,    0, 200, 7, 3, 50,   50, 50, 50, 0.95, 0,
                                     0, 0, 0, 1,  1, 0.05, 1, 0,   1, 1, 0.05, 0,  0,  0,  0,    1,
                                     0, 1, 0, 65, 0, 1,    0, 2,   8, 1, 8,    1,  1,  0}));
  EXPECT_EQ(FieldsOf(ModOpt(nullptr)),
            row({0, 1, 0, 1,    2, 2, 0, 200, 7, 3, 20, 20, 20, 20, 1, 0, 0, 0, 0, 0, 0, 0.05, 1,
                 0, 1, 1, 0.05, 0, 0, 0, 0,   1, 0, 1,  0,  65, 0,  1, 0, 2, 8, 1, 8, 1, 1,    0}));
  const ModOpt of_project(&project);
  EXPECT_EQ(
      FieldsOf(of_project),
      row({0, 0, 1, 0,    3, 0, 0, 32767, 5, 2, 30, 30, 10, 10, 0.5, 1, 1, 0, 0, 0, 0, 0.125, 0,
           0, 1, 0, 0.25, 1, 0, 1, 0,     0, 1, 0,  0,  65, 1,  0,   1, 1, 3, 4, 5, 6, 1,     0}));
  ModOpt copy;
  copy.SetNComp(200);
  EXPECT_EQ(copy.GetNComp(), 127);
  copy.Copy(of_project);
  EXPECT_EQ(FieldsOf(copy), FieldsOf(of_project));
}

}  // namespace
}  // namespace zemva
