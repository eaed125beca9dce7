#include "zemva/vectors/vec_spec.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "zemva/vectors/vec_catalogue.h"

namespace zemva {
namespace {

constexpr short kOpen = VecSpec::kNoComp;

TEST(VecSpec, NamesSayTypeUnitsIndicesAndComponents) {
  const struct {
    const char* name;
    CEVecType::EVT type;
    CEElmType::EET units;
    short ix, ix2, first, last;
  } cases[] = {
      {"VIP", CEVecType::VIP, CEElmType::Plain, 0, 0, kOpen, kOpen},
      {"t[2]", CEVecType::T, CEElmType::Plain, 0, 0, 2, 2},
      {"tPS[10]", CEVecType::TPS, CEElmType::Plain, 0, 0, 10, 10},
      {"AvgX[-1]", CEVecType::AvgX, CEElmType::Plain, 0, 0, -1, -1},
      {"R2VX(cum)adj[3]", CEVecType::R2VXCumAdj, CEElmType::Plain, 0, 0, 3, 3},
      {"w*c[1]", CEVecType::WStarC, CEElmType::Plain, 0, 0, 1, 1},
      {"VarDS32767", CEVecType::VarDS, CEElmType::Plain, 32767, 0, kOpen, kOpen},
      {"VarTr4", CEVecType::Var, CEElmType::Transformed, 4, 0, kOpen, kOpen},
      {"XResSt3[2]", CEVecType::XRes, CEElmType::Standardized, 3, 0, 2, 2},
      {"ObsXSc12[-1]", CEVecType::ObsX, CEElmType::Scaled, 12, 0, -1, -1},
      {"t1:3[5]", CEVecType::T, CEElmType::Plain, 5, 0, 1, 3},
      {"SSX-1:4[0]", CEVecType::SSX, CEElmType::Plain, 0, 0, -1, 4},
      {"Q21:2[0]", CEVecType::Q2, CEElmType::Plain, 0, 0, 1, 2},
      {"CoeffCSLag2[3]", CEVecType::CoeffCSLag, CEElmType::Plain, 2, 3, kOpen, kOpen},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    VecSpec spec;
    spec.SetDNum(7);
    ASSERT_EQ(spec.SetName(c.name), 0);
    EXPECT_EQ(spec.GetVType(), c.type);
    EXPECT_EQ(spec.GetEType(), c.units);
    EXPECT_EQ(spec.GetIx(), c.ix);
    EXPECT_EQ(spec.GetIx2(), c.ix2);
    EXPECT_EQ(spec.GetFirstComp(), c.first);
    EXPECT_EQ(spec.GetLastComp(), c.last);
    EXPECT_EQ(spec.GetDNum(), 0);
    EXPECT_EQ(spec.GetName(), c.name);
    CEVecType::EVT type;
    CEElmType::EET units;
    EXPECT_EQ(VecSpec::GetEVET(c.name, type, units), 0);
    EXPECT_EQ(type, c.type);
    EXPECT_EQ(units, c.units);
  }
}

// Names run into one another: "Q2" and "Q2V", "w*" and "w*c", "t" and "tPS".
TEST(VecSpec, EveryTypeIsFoundAgainInEveryFormOfItsName) {
  for (const VecRow& row : VecCatalogue()) {
    for (const char* const suffix : {"", "Tr", "St", "Sc"}) {
      for (const char* const rest : {"", "[2]", "[-1]", "3", "3[2]", "1:2[3]", "-1:2[0]"}) {
        if (row.comps == EVecComps::kResponse && std::string(rest) == "[-1]") continue;
        const std::string name = std::string(row.name) + suffix + rest;
        VecSpec spec;
        ASSERT_EQ(spec.SetName(name.c_str()), 0) << name;
        EXPECT_EQ(spec.GetVType(), row.type) << name;
        EXPECT_STREQ(CEElmType::GetString(spec.GetEType()), suffix) << name;
      }
    }
  }
}

TEST(VecSpec, WhatIsNoNameChangesNothing) {
  std::istringstream names(
      "|T|tt|t | t|t[]|t[2|t2]|t[2]x|t[+2]|t[02]|t[2][3]|t[40000]|t[-32768]|t[1.5]|VarDS0|VarDS-3|"
      "VarDS 3|t1:3|t1:3[]|t1:1[2]|t1:2[-1]|CoeffCSLag2[-1]|t:3[2]|t1:[2]|tTrSc[2]|tTr2Sc[2]|tTR|"
      "Undefined");
  for (std::string no_name; std::getline(names, no_name, '|');) {
    const char* const name = no_name.c_str();
    VecSpec spec(CEVecType::P, 1, 2);
    EXPECT_EQ(spec.SetName(name), 8016) << name;
    EXPECT_EQ(spec.GetName(), "p1[2]") << name;
    CEVecType::EVT type;
    CEElmType::EET units;
    EXPECT_EQ(VecSpec::GetEVET(name, type, units), 8016);
    EXPECT_EQ(type, CEVecType::Undefined);
    EXPECT_EQ(units, CEElmType::Undefined);
  }
  EXPECT_EQ(VecSpec().SetName(nullptr), 8022);
}

}  // namespace
}  // namespace zemva
