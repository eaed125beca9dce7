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

// What a project answers, or a model that is made in it.
template <auto kGetter>
double Get(const PrjOpt& options) {
  if constexpr (requires { (options.*kGetter)(); }) {
    return static_cast<double>((options.*kGetter)());
  } else {
    return static_cast<double>((ModOpt(&options).*kGetter)());
  }
}

// A word that is not legal can still be in an option: the default of one is such.
TEST(PrjOpt, ValuesReachTheProjectAndItsModels) {
  struct Words : PrjOpt {
    Words() : PrjOpt(true) {}
    using Options::SetText;
  };
  using enum EOptType;
  const struct {
    EOptType type;
    double (*get)(const PrjOpt&);
    std::string words;
    std::string values;
  } cases[] = {
      {LogCompLim, Get<&ModOpt::GetIsShoScrLim>, "Off On off", "0 1 1 "},
      {LogCompLim, Get<&ModOpt::GetIsShoLoaLim>, "Off On off", "0 1 1 "},
      {BackTraYLS, Get<&ModOpt::GetIsBackTraYLS>, "Off On x", "0 1 1 "},
      {BackTraYPS, Get<&ModOpt::GetIsBackTraYPS>, "Off On x", "0 1 1 "},
      {ReconstructWavelets, Get<&PrjOpt::GetReconstructWavelets>, "Off On x", "0 1 1 "},
      {ColumnPlotMark, Get<&PrjOpt::GetColumnPlotMark>, "Off On x", "0 1 1 "},
      {MPowResLS, Get<&ModOpt::GetIsWResLS>, "Off On on", "0 1 0 "},
      {MPowResPS, Get<&ModOpt::GetIsWResPS>, "Off On x", "0 1 0 "},
      {ResFilePS, Get<&ModOpt::GetIsResFilePS>, "Off On x", "0 1 0 "},
      {ResFilePS, Get<&ModOpt::GetIsSaveResPS>, "Off On x", "0 1 0 "},
      {ScaResPS, Get<&ModOpt::GetIsScaResPS>, "Off On x", "0 1 0 "},
      {VariMode, Get<&ModOpt::GetER2>, "R2 R2adj r2", "0 1 1 "},
      {DModType, Get<&ModOpt::GetDModType>, "DModX DModY x", "0 1 1 "},
      {DesignedX, Get<&PrjOpt::GetDesignedX>, "Designed Undesigned x", "0 1 1 "},
      {ResidType, Get<&ModOpt::GetIsStdResLS>, "Scaled Standardized standardized", "0 1 1 "},
      {ResidType, Get<&ModOpt::GetIsStdResPS>, "Scaled Standardized standardized", "0 1 1 "},
      {ModDistType, Get<&ModOpt::GetIsNormDistLS>, "Absolute Normalized x", "0 1 0 "},
      {ModDistType, Get<&ModOpt::GetIsNormDistPS>, "Absolute Normalized x", "0 1 0 "},
      {ModDistTypePS, Get<&PrjOpt::GetModDistTypePS>, "Absolute Normalized x", "0 1 1 "},
      {ModDistTypePS, Get<&ModOpt::GetIsNormDistPS>, "Absolute Normalized", "1 1 "},
      {VarPltMark, Get<&ModOpt::GetEVariablePlotMark>, "Number Name x", "1 2 0 "},
      {ObsPltMark, Get<&ModOpt::GetEObjectPlotMark>, "Number Name x", "1 2 0 "},
      {TimeMode, Get<&PrjOpt::GetTimeType>, "Time Discrete x", "0 1 0 "},
      {CrossValidation, Get<&ModOpt::GetSeqValidate>, "NoCV CV On Eig", "0 2 2 0 "},
      {AutofitStop, Get<&ModOpt::GetRuleValidate>, "Auto CV Eig x", "2 2 3 0 "},
      {MaxIter, Get<&ModOpt::GetMaxIter>, "12 100000", "12 32767 "},
      {NCV, Get<&ModOpt::GetNCV>, "5", "5 "},
      {CompLimScr, Get<&ModOpt::GetCLS>, "2", "2 "},
      {MaxMisValLS, Get<&ModOpt::GetMaxMisValObsLS>, "30", "30 "},
      {MaxMisValLS, Get<&ModOpt::GetMaxMisValVarLS>, "30", "30 "},
      {MaxMisValPS, Get<&ModOpt::GetMaxMisValObsPS>, "10", "10 "},
      {MaxMisValPS, Get<&ModOpt::GetMaxMisValVarPS>, "10", "10 "},
      {LagDecay, Get<&ModOpt::GetLagDecay>, "0.5", "0.5 "},
      {SignLevLS, Get<&ModOpt::GetSignLevLS>, "0.125", "0.125 "},
      {SignLev, Get<&ModOpt::GetSignLevPS>, "0.25", "0.25 "},
      {ObsPltMarkLen, Get<&ModOpt::GetObjectPlotMarkLength>, "3", "3 "},
      {ObsPltMarkSta, Get<&ModOpt::GetObjectPlotMarkStart>, "4", "4 "},
      {VarPltMarkLen, Get<&ModOpt::GetVariablePlotMarkLength>, "5", "5 "},
      {VarPltMarkSta, Get<&ModOpt::GetVariablePlotMarkStart>, "6", "6 "},
      {NumberFormat, Get<&PrjOpt::GetFormatNumber>, "4", "4 "},
      {NumberFormat, Get<&ModOpt::GetIsRule>, "4", "0 "},  // whatever the options are
      {DModXCritDistLimit, Get<&PrjOpt::GetDModXCritDistLimit>, "1 2.5", "1 2.5 "},
      {XScoreCritDistLimit, Get<&PrjOpt::GetXScoreCritDistLimit>, "2 1.5", "2 1.5 "},
  };
  for (const auto& [type, get, words, values] : cases) {
    Words options;
    std::istringstream stream(words);
    std::ostringstream found;
    for (std::string word; stream >> word;) {
      options.SetText(type, word.c_str());
      found << get(options) << " ";
    }
    EXPECT_EQ(found.str(), values) << Options::GetString(type) << ": " << words;
  }
  EXPECT_EQ(PrjOpt(true).GetValidatePermutations(), 10);
  EXPECT_FALSE(PrjOpt(true).SetCrossValidation(EValidate::Eig));
}

TEST(ModOpt, OutsideAProjectDiffersFromTheDefaults) {
  ModOpt outside(nullptr);
  std::ostringstream text;
  for (const ModOpt& o : {ModOpt(), outside}) {
    text << o.GetIsXDesigned() << o.GetIsSeq() << o.GetIsBackTraYLS() << o.GetIsNormDistLS() << " "
         << o.GetMaxMisValObsLS() << " " << o.GetMaxMisValVarLS() << " " << o.GetMaxMisValObsPS()
         << " " << o.GetMaxMisValVarPS() << " " << o.GetLagDecay() << "; ";
  }
  EXPECT_EQ(text.str(), "0111 50 50 50 50 0.95; 1000 20 20 20 20 1; ");
  outside.SetNComp(200);
  EXPECT_EQ(outside.GetNComp(), 127) << "the most that 8 bits hold";
  outside.Copy(ModOpt());
  EXPECT_TRUE(outside == ModOpt());
}

}  // namespace
}  // namespace zemva
