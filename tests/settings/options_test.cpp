#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>
#include <utility>
#include <vector>

#include "support/temp_folder.h"
#include "zemva/settings/ini/ini_file.h"
#include "zemva/settings/options/mod_opt.h"
#include "zemva/settings/options/prj_opt.h"
#include "zemva/settings/profile/profile.h"

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
       {directory, with_backslash, folder.Path().root_path().string()},
       {"", "\\", missing}},
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

// The rows "| number | `key` | `default` | ..." of docs/settings.md.
TEST(Options, AreAsDocumented) {
  const std::regex row("\\| (\\d+) \\| `(\\w+)` \\| (?:`(.*?)` )?\\|.*");
  std::ifstream document(ZEMVA_DOCS "/settings.md");
  const PrjOpt options(true);
  int number = 0;
  for (std::string line; std::getline(document, line);) {
    std::smatch cells;
    if (!std::regex_match(line, cells, row)) continue;
    const auto type = static_cast<EOptType>(++number);
    EXPECT_EQ(cells[1], std::to_string(number));
    EXPECT_EQ(cells[2], Options::GetString(type));
    EXPECT_EQ(cells[3], options.GetValue(type)) << cells[2];
    const bool is_global = number <= 36;
    EXPECT_EQ(Options::IsGlobalOption(type), is_global);
    EXPECT_EQ(Options::IsLocalOption(type), is_global);
    EXPECT_EQ(Options::GetOptType(cells[2].str().c_str()), is_global ? type : EOptType::None);
  }
  EXPECT_EQ(number, 40);
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
  EXPECT_FALSE(first.SaveGlobalValue(EOptType::NumberFormat));
  second.LoadGlobal();
  EXPECT_EQ(second.GetMaxIter(), 10);
  EXPECT_EQ(second.GetNCV(), 5) << "that value was not to be saved";

  first.SetValue(EOptType::NCV, "6 ");
  EXPECT_FALSE(first.SaveGlobalValue(EOptType::NCV)) << "the blank would be lost";
  EXPECT_EQ(InFile("NCV"), "5");

  std::filesystem::remove_all(folder_.Path());
  EXPECT_FALSE(first.SaveGlobal());
  EXPECT_TRUE(first.IsChanged());
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

template <auto kGetter>
double Field(const ModOpt& options) {
  return static_cast<double>((options.*kGetter)());
}

TEST(ModOpt, TakesOverEachOptionOfAProject) {
  using enum EOptType;
  const struct {
    EOptType option;
    const char* value;
    double (*field)(const ModOpt&);
    double expected;
  } cases[] = {
      {AutofitStop, "Eig", Field<&ModOpt::GetRuleValidate>, 3},
      {CrossValidation, "NoCV", Field<&ModOpt::GetSeqValidate>, 0},
      {MaxIter, "100000", Field<&ModOpt::GetMaxIter>, 32767},
      {NCV, "5", Field<&ModOpt::GetNCV>, 5},
      {CompLimScr, "2", Field<&ModOpt::GetCLS>, 2},
      {MaxMisValLS, "30", Field<&ModOpt::GetMaxMisValObsLS>, 30},
      {MaxMisValLS, "30", Field<&ModOpt::GetMaxMisValVarLS>, 30},
      {MaxMisValPS, "10", Field<&ModOpt::GetMaxMisValObsPS>, 10},
      {MaxMisValPS, "10", Field<&ModOpt::GetMaxMisValVarPS>, 10},
      {LagDecay, "0.5", Field<&ModOpt::GetLagDecay>, 0.5},
      {LogCompLim, "On", Field<&ModOpt::GetIsShoScrLim>, 1},
      {LogCompLim, "On", Field<&ModOpt::GetIsShoLoaLim>, 1},
      {BackTraYLS, "Off", Field<&ModOpt::GetIsBackTraYLS>, 0},
      {BackTraYPS, "Off", Field<&ModOpt::GetIsBackTraYPS>, 0},
      {ModDistType, "Absolute", Field<&ModOpt::GetIsNormDistLS>, 0},
      {ModDistType, "Absolute", Field<&ModOpt::GetIsNormDistPS>, 0},
      {ModDistTypePS, "Absolute", Field<&ModOpt::GetIsNormDistPS>, 1},
      {SignLevLS, "0.125", Field<&ModOpt::GetSignLevLS>, 0.125},
      {SignLev, "0.25", Field<&ModOpt::GetSignLevPS>, 0.25},
      {ResidType, "Scaled", Field<&ModOpt::GetIsStdResLS>, 0},
      {ResidType, "Scaled", Field<&ModOpt::GetIsStdResPS>, 0},
      {MPowResPS, "On", Field<&ModOpt::GetIsWResPS>, 1},
      {MPowResLS, "On", Field<&ModOpt::GetIsWResLS>, 1},
      {ResFilePS, "On", Field<&ModOpt::GetIsResFilePS>, 1},
      {ResFilePS, "On", Field<&ModOpt::GetIsSaveResPS>, 1},
      {ScaResPS, "On", Field<&ModOpt::GetIsScaResPS>, 1},
      {DModType, "DModY", Field<&ModOpt::GetDModType>, 1},
      {ObsPltMark, "None", Field<&ModOpt::GetEObjectPlotMark>, 0},
      {VarPltMark, "Number", Field<&ModOpt::GetEVariablePlotMark>, 1},
      {VariMode, "R2adj", Field<&ModOpt::GetER2>, 1},
      {ObsPltMarkLen, "3", Field<&ModOpt::GetObjectPlotMarkLength>, 3},
      {ObsPltMarkSta, "4", Field<&ModOpt::GetObjectPlotMarkStart>, 4},
      {VarPltMarkLen, "5", Field<&ModOpt::GetVariablePlotMarkLength>, 5},
      {VarPltMarkSta, "6", Field<&ModOpt::GetVariablePlotMarkStart>, 6},
      {NumberFormat, "4", Field<&ModOpt::GetIsRule>, 0},  // whatever the options are
  };
  for (const auto& [option, value, field, expected] : cases) {
    PrjOpt project(true);
    EXPECT_TRUE(project.SetValue(option, value));
    EXPECT_EQ(field(ModOpt(&project)), expected) << Options::GetString(option);
  }
}

TEST(ModOpt, OutsideAProjectDiffersFromTheDefaults) {
  const ModOpt defaults;
  const ModOpt outside(nullptr);
  const auto differences = [&](auto... fields) {
    std::ostringstream text;
    ((text << fields(defaults) << "/" << fields(outside) << " "), ...);
    return text.str();
  };
  EXPECT_EQ(differences(Field<&ModOpt::GetIsXDesigned>, Field<&ModOpt::GetIsSeq>,
                        Field<&ModOpt::GetIsBackTraYLS>, Field<&ModOpt::GetIsNormDistLS>,
                        Field<&ModOpt::GetMaxMisValObsLS>, Field<&ModOpt::GetMaxMisValVarLS>,
                        Field<&ModOpt::GetMaxMisValObsPS>, Field<&ModOpt::GetMaxMisValVarPS>,
                        Field<&ModOpt::GetIsRule>, Field<&ModOpt::GetIsBackTraYPS>),
            "0/1 1/0 1/0 1/0 50/20 50/20 50/20 50/20 1/1 1/1 ");
  EXPECT_EQ(defaults.GetLagDecay(), 0.95F);
  EXPECT_EQ(outside.GetLagDecay(), 1.0F);
  ModOpt copy;
  copy.SetNComp(200);
  EXPECT_EQ(copy.GetNComp(), 127) << "the most that 8 bits hold";
  copy.Copy(outside);
  EXPECT_EQ(copy.GetNComp(), 0);
}

}  // namespace
}  // namespace zemva
