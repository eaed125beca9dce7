#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "zemva/vectors/info_type.h"
#include "zemva/vectors/vec_catalogue.h"

namespace zemva {
namespace {

// The names of values 1, 2 and so on, between blanks.
constexpr const char* kVecTypes =
    "Num Time None DFX DFY Eig Iter Q2 Q2(cum) R2X R2Y R2X(cum) R2Y(cum) R2Xadj R2Yadj "
    "R2Xadj(cum) R2Yadj(cum) S2X S2Y SDt SDu SSX SSY DModX DModXPS DModY DModYPS OLevX "
    "OLevY PModX PModXPS PModY PModYPS S2OX S2OY SerrL SerrLPS SerrU SerrUPS SSOX SSOY t "
    "Tsquare TsquarePS tPS u VarDS Var VarPS VarRes VarResPS VarPred VarPredPS X XRes "
    "XResPS Y YRes YResPS YPS AvgX AvgY Coeff CoeffC CoeffCS CoeffMR c MaxX MaxY MinX "
    "MinY MPowX ObsDS Obs ObsPS ObsX ObsXPS ObsXRes ObsXResPS ObsY ObsYPS ObsYRes "
    "ObsYResPS p Q2V Q2V(cum) R2VX R2VXadj R2VY R2VYadj R2VX(cum) R2VX(cum)adj R2VY(cum) "
    "R2VY(cum)adj S2VX S2VY SSVX SSVY VIP w w* w*c wc wsX wsY CoeffCSLag pLag VIPLag wLag "
    "w*Lag ";

template <typename GetString, typename GetValue>
void ExpectNames(const std::string& names, GetString get_string, GetValue get_value) {
  std::istringstream words(names);
  std::string name;
  int value = 0;
  while (words >> name) {
    EXPECT_EQ(get_string(++value), name);
    EXPECT_EQ(get_value(name.c_str()), value) << name;
  }
  for (const int other : {-1, 0, value + 1}) EXPECT_EQ(get_string(other), "Undefined") << other;
  for (const char* const other : {"Undefined", "dataset", "r2x", "T2", "R2X ", " "}) {
    EXPECT_EQ(get_value(other), 0) << other;
  }
  EXPECT_EQ(get_value(nullptr), 0);
}

TEST(VectorEnumerations, HaveTheirNamesBothWays) {
  ExpectNames(
      kVecTypes,
      [](int v) { return std::string(CEVecType::GetString(static_cast<CEVecType::EVT>(v))); },
      CEVecType::GetEVT);
  ExpectNames(
      "Dataset Model Predset Workset",
      [](int v) { return std::string(CEDatType::GetString(static_cast<CEDatType::EDT>(v))); },
      CEDatType::GetEDT);
  ExpectNames(
      "DS M PS WS",
      [](int v) { return std::string(CEDatType::GetShortString(static_cast<CEDatType::EDT>(v))); },
      CEDatType::GetEDT);
  ExpectNames(
      "BlockInfo ExpInfo LagInfo ObsInfo OStat ClaInfo ScaInfo TraInfo VarInfo VStat",
      [](int v) { return std::string(CEInfoType::GetString(static_cast<CEInfoType::EIT>(v))); },
      CEInfoType::GetEIT);
}

TEST(VectorEnumerations, UnitsAreSuffixes) {
  const struct {
    CEElmType::EET units;
    const char* suffix;
  } cases[] = {{CEElmType::Plain, ""},
               {CEElmType::Transformed, "Tr"},
               {CEElmType::Standardized, "St"},
               {CEElmType::Scaled, "Sc"}};
  int value = 0;
  for (const auto& c : cases) {
    EXPECT_EQ(c.units, ++value);
    EXPECT_STREQ(CEElmType::GetString(c.units), c.suffix);
    EXPECT_EQ(CEElmType::GetEET(c.suffix), c.units);
  }
  EXPECT_EQ(CEElmType::GetEET("tr"), CEElmType::Undefined);
}

TEST(VectorEnumerations, ATypeBelongsToAKindOfObject) {
  const struct {
    const char *name, *object;
  } cases[] = {{"Num", "DS"},   {"VarDS", "DS"}, {"ObsDS", "DS"}, {"Var", "WS"}, {"Obs", "WS"},
               {"VarPS", "PS"}, {"ObsPS", "PS"}, {"t", "M"},      {"tPS", "M"},  {"VarRes", "M"}};
  for (const auto& c : cases) {
    EXPECT_STREQ(CEDatType::GetShortString(CEVecType::GetEDT(CEVecType::GetEVT(c.name))), c.object)
        << c.name;
  }
  EXPECT_EQ(CEVecType::GetEDT(CEVecType::None), CEDatType::Undefined);
  EXPECT_EQ(CEVecType::GetEDT(CEVecType::Undefined), CEDatType::Undefined);
}

}  // namespace
}  // namespace zemva
