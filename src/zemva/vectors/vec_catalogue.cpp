#include "zemva/vectors/vec_catalogue.h"

#include <array>
#include <iterator>

namespace zemva {
namespace {

using enum CEVecType::EVT;
using enum EVecAxis;
using enum EVecComps;
using enum EVecState;

constexpr VecObjects Set(CEDatType::EDT type) {
  return {1U << type};
}
constexpr VecObjects kNowhere = {0};
constexpr VecObjects kDS = Set(CEDatType::Dataset);
constexpr VecObjects kM = Set(CEDatType::Model);
constexpr VecObjects kPS = Set(CEDatType::Predset);
constexpr VecObjects kWS = Set(CEDatType::Workset);
constexpr VecObjects kAll = {kDS.bits | kM.bits | kPS.bits | kWS.bits};

constexpr VecFamilies kBoth = {true, true};
constexpr VecFamilies kPLS = {false, true};

constexpr VecUnits kPlain = {1U << CEElmType::Plain};
constexpr VecUnits kTr = {kPlain.bits | 1U << CEElmType::Transformed};
constexpr VecUnits kTrSc = {kTr.bits | 1U << CEElmType::Scaled};
constexpr VecUnits kTrScSt = {kTrSc.bits | 1U << CEElmType::Standardized};

// clang-format off
constexpr VecRow kRows[] = {
    // type, name, objects, along, of, components, families, state, units
    {Num,        "Num",          kAll,     kObs,          kNothing,   kUncounted,    kBoth, kData,      kPlain},
    {Time,       "Time",         kAll,     kObs,          kNothing,   kUncounted,    kBoth, kData,      kPlain},
    {None,       "None",         kNowhere, kNothing,      kNothing,   kUncounted,    kBoth, kRecords,   kPlain},
    {DFX,        "DFX",          kM,       kComponents,   kNothing,   kFromLoaded,   kBoth, kRecords,   kPlain},
    {DFY,        "DFY",          kM,       kComponents,   kNothing,   kFromLoaded,   kPLS,  kRecords,   kPlain},
    {Eig,        "Eig",          kM,       kComponents,   kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {Iter,       "Iter",         kM,       kComponents,   kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {Q2,         "Q2",           kM,       kComponents,   kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {Q2Cum,      "Q2(cum)",      kM,       kComponents,   kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {R2X,        "R2X",          kM,       kComponents,   kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {R2Y,        "R2Y",          kM,       kComponents,   kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {R2XCum,     "R2X(cum)",     kM,       kComponents,   kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {R2YCum,     "R2Y(cum)",     kM,       kComponents,   kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {R2XAdj,     "R2Xadj",       kM,       kComponents,   kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {R2YAdj,     "R2Yadj",       kM,       kComponents,   kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {R2XAdjCum,  "R2Xadj(cum)",  kM,       kComponents,   kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {R2YAdjCum,  "R2Yadj(cum)",  kM,       kComponents,   kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {S2X,        "S2X",          kM,       kComponents,   kNothing,   kFromLoaded,   kBoth, kRecords,   kPlain},
    {S2Y,        "S2Y",          kM,       kComponents,   kNothing,   kFromLoaded,   kPLS,  kRecords,   kPlain},
    {SDt,        "SDt",          kM,       kComponents,   kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {SDu,        "SDu",          kM,       kComponents,   kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {SSX,        "SSX",          kM,       kComponents,   kNothing,   kFromLoaded,   kBoth, kRecords,   kPlain},
    {SSY,        "SSY",          kM,       kComponents,   kNothing,   kFromLoaded,   kPLS,  kRecords,   kPlain},
    {DModX,      "DModX",        kM,       kObs,          kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {DModXPS,    "DModXPS",      kM,       kObsPS,        kNothing,   kLastPS,       kBoth, kPredicted, kPlain},
    {DModY,      "DModY",        kM,       kObs,          kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {DModYPS,    "DModYPS",      kM,       kObsPS,        kNothing,   kLastPS,       kPLS,  kPredicted, kPlain},
    {OLevX,      "OLevX",        kM,       kObs,          kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {OLevY,      "OLevY",        kM,       kObs,          kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {PModX,      "PModX",        kM,       kObs,          kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {PModXPS,    "PModXPS",      kM,       kObsPS,        kNothing,   kLastPS,       kBoth, kPredicted, kPlain},
    {PModY,      "PModY",        kM,       kObs,          kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {PModYPS,    "PModYPS",      kM,       kObsPS,        kNothing,   kLastPS,       kPLS,  kPredicted, kPlain},
    {S2OX,       "S2OX",         kM,       kObs,          kNothing,   kFromLoaded,   kBoth, kRecords,   kPlain},
    {S2OY,       "S2OY",         kM,       kObs,          kNothing,   kFromLoaded,   kPLS,  kRecords,   kPlain},
    {SerrL,      "SerrL",        kM,       kObs,          kResponses, kLast,         kPLS,  kExecuted,  kPlain},
    {SerrLPS,    "SerrLPS",      kM,       kObsPS,        kResponses, kLastPS,       kPLS,  kPredicted, kPlain},
    {SerrU,      "SerrU",        kM,       kObs,          kResponses, kLast,         kPLS,  kExecuted,  kPlain},
    {SerrUPS,    "SerrUPS",      kM,       kObsPS,        kResponses, kLastPS,       kPLS,  kPredicted, kPlain},
    {SSOX,       "SSOX",         kM,       kObs,          kNothing,   kFromLoaded,   kBoth, kRecords,   kPlain},
    {SSOY,       "SSOY",         kM,       kObs,          kNothing,   kFromLoaded,   kPLS,  kRecords,   kPlain},
    {T,          "t",            kM,       kObs,          kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {Tsquare,    "Tsquare",      kM,       kObs,          kNothing,   kSpan,         kBoth, kRecords,   kPlain},
    {TsquarePS,  "TsquarePS",    kM,       kObsPS,        kNothing,   kSpanPS,       kBoth, kPredicted, kPlain},
    {TPS,        "tPS",          kM,       kObsPS,        kNothing,   kFittedPS,     kBoth, kPredicted, kPlain},
    {U,          "u",            kM,       kObs,          kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {VarDS,      "VarDS",        kDS,      kObs,          kVars,      kUncounted,    kBoth, kRecords,   kPlain},
    {Var,        "Var",          kWS,      kObs,          kVars,      kUncounted,    kBoth, kRecords,   kTr},
    {VarPS,      "VarPS",        kPS,      kObs,          kVars,      kUncounted,    kBoth, kRecords,   kTr},
    {VarRes,     "VarRes",       kM,       kObs,          kVars,      kFromCentre,   kBoth, kData,      kTrScSt},
    {VarResPS,   "VarResPS",     kM,       kObsPS,        kVars,      kFromCentrePS, kBoth, kPredicted, kTrScSt},
    {VarPred,    "VarPred",      kM,       kObs,          kVars,      kFromCentre,   kBoth, kData,      kTrSc},
    {VarPredPS,  "VarPredPS",    kM,       kObsPS,        kVars,      kFromCentrePS, kBoth, kPredicted, kTrSc},
    {X,          "X",            kM,       kObs,          kVarsX,     kLoaded,       kBoth, kData,      kTrSc},
    {XRes,       "XRes",         kM,       kObs,          kVarsX,     kFromCentre,   kBoth, kData,      kTrScSt},
    {XResPS,     "XResPS",       kM,       kObsPS,        kVarsX,     kFromCentrePS, kBoth, kPredicted, kTrScSt},
    {Y,          "Y",            kM,       kObs,          kResponses, kLoaded,       kPLS,  kData,      kTrSc},
    {YRes,       "YRes",         kM,       kObs,          kResponses, kFromCentre,   kPLS,  kData,      kTrScSt},
    {YResPS,     "YResPS",       kM,       kObsPS,        kResponses, kLastPS,       kPLS,  kPredicted, kTrScSt},
    {YPS,        "YPS",          kM,       kObsPS,        kResponses, kLoaded,       kPLS,  kPredicted, kTrSc},
    {AvgX,       "AvgX",         kM,       kVarsX,        kNothing,   kToCentre,     kBoth, kRecords,   kPlain},
    {AvgY,       "AvgY",         kM,       kResponses,    kNothing,   kToCentre,     kPLS,  kRecords,   kPlain},
    {Coeff,      "Coeff",        kM,       kCoefficients, kResponses, kFitted,       kPLS,  kRecords,   kPlain},
    {CoeffC,     "CoeffC",       kM,       kVarsX,        kResponses, kFitted,       kPLS,  kRecords,   kPlain},
    {CoeffCS,    "CoeffCS",      kM,       kVarsX,        kResponses, kFitted,       kPLS,  kRecords,   kPlain},
    {CoeffMR,    "CoeffMR",      kM,       kCoefficients, kResponses, kFitted,       kPLS,  kRecords,   kPlain},
    {C,          "c",            kM,       kResponses,    kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {MaxX,       "MaxX",         kM,       kVarsX,        kNothing,   kLoaded,       kBoth, kRecords,   kPlain},
    {MaxY,       "MaxY",         kM,       kResponses,    kNothing,   kLoaded,       kPLS,  kRecords,   kPlain},
    {MinX,       "MinX",         kM,       kVarsX,        kNothing,   kLoaded,       kBoth, kRecords,   kPlain},
    {MinY,       "MinY",         kM,       kResponses,    kNothing,   kLoaded,       kPLS,  kRecords,   kPlain},
    {MPowX,      "MPowX",        kM,       kVarsX,        kNothing,   kFromCentre,   kBoth, kRecords,   kPlain},
    {ObsDS,      "ObsDS",        kDS,      kVars,         kObs,       kUncounted,    kBoth, kRecords,   kPlain},
    {Obs,        "Obs",          kWS,      kVars,         kObs,       kUncounted,    kBoth, kRecords,   kTr},
    {ObsPS,      "ObsPS",        kPS,      kVars,         kObs,       kUncounted,    kBoth, kRecords,   kTr},
    {ObsX,       "ObsX",         kM,       kVarsX,        kObs,       kLoaded,       kBoth, kData,      kTrSc},
    {ObsXPS,     "ObsXPS",       kM,       kVarsX,        kObsPS,     kLoaded,       kBoth, kPredicted, kTrSc},
    {ObsXRes,    "ObsXRes",      kM,       kVarsX,        kObs,       kFromCentre,   kBoth, kData,      kTrScSt},
    {ObsXResPS,  "ObsXResPS",    kM,       kVarsX,        kObsPS,     kFromCentrePS, kBoth, kPredicted, kTrScSt},
    {ObsY,       "ObsY",         kM,       kResponses,    kObs,       kLoaded,       kPLS,  kData,      kTrSc},
    {ObsYPS,     "ObsYPS",       kM,       kResponses,    kObsPS,     kLoaded,       kPLS,  kPredicted, kTrSc},
    {ObsYRes,    "ObsYRes",      kM,       kResponses,    kObs,       kFromCentre,   kPLS,  kData,      kTrScSt},
    {ObsYResPS,  "ObsYResPS",    kM,       kResponses,    kObsPS,     kLastPS,       kPLS,  kPredicted, kTrScSt},
    {P,          "p",            kM,       kVarsX,        kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {Q2V,        "Q2V",          kM,       kValidated,    kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {Q2VCum,     "Q2V(cum)",     kM,       kValidated,    kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {R2VX,       "R2VX",         kM,       kVarsX,        kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {R2VXAdj,    "R2VXadj",      kM,       kVarsX,        kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {R2VY,       "R2VY",         kM,       kResponses,    kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {R2VYAdj,    "R2VYadj",      kM,       kResponses,    kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {R2VXCum,    "R2VX(cum)",    kM,       kVarsX,        kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {R2VXCumAdj, "R2VX(cum)adj", kM,       kVarsX,        kNothing,   kFitted,       kBoth, kRecords,   kPlain},
    {R2VYCum,    "R2VY(cum)",    kM,       kResponses,    kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {R2VYCumAdj, "R2VY(cum)adj", kM,       kResponses,    kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {S2VX,       "S2VX",         kM,       kVarsX,        kNothing,   kFromLoaded,   kBoth, kRecords,   kPlain},
    {S2VY,       "S2VY",         kM,       kResponses,    kNothing,   kFromLoaded,   kPLS,  kRecords,   kPlain},
    {SSVX,       "SSVX",         kM,       kVarsX,        kNothing,   kFromLoaded,   kBoth, kRecords,   kPlain},
    {SSVY,       "SSVY",         kM,       kResponses,    kNothing,   kFromLoaded,   kPLS,  kRecords,   kPlain},
    {VIP,        "VIP",          kM,       kVarsX,        kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {W,          "w",            kM,       kVarsX,        kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {WStar,      "w*",           kM,       kVarsX,        kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {WStarC,     "w*c",          kM,       kVars,         kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {WC,         "wc",           kM,       kVars,         kNothing,   kFitted,       kPLS,  kRecords,   kPlain},
    {WsX,        "wsX",          kM,       kVarsX,        kNothing,   kUncounted,    kBoth, kRecords,   kPlain},
    {WsY,        "wsY",          kM,       kResponses,    kNothing,   kUncounted,    kPLS,  kRecords,   kPlain},
    {CoeffCSLag, "CoeffCSLag",   kM,       kLags,         kLagged,    kResponse,     kPLS,  kRecords,   kPlain},
    {PLag,       "pLag",         kM,       kLags,         kLagged,    kFitted,       kBoth, kRecords,   kPlain},
    {VIPLag,     "VIPLag",       kM,       kLags,         kLagged,    kFitted,       kPLS,  kRecords,   kPlain},
    {WLag,       "wLag",         kM,       kLags,         kLagged,    kFitted,       kPLS,  kRecords,   kPlain},
    {WStarLag,   "w*Lag",        kM,       kLags,         kLagged,    kFitted,       kPLS,  kRecords,   kPlain},
};
// clang-format on

constexpr bool IsInOrder() {
  int type = 0;
  for (const VecRow& row : kRows) {
    if (row.type != ++type) return false;
  }
  return type == CEVecType::kCount;
}
static_assert(IsInOrder());

}  // namespace

std::span<const VecRow> VecCatalogue() {
  return kRows;
}

const VecRow* FindVecRow(CEVecType::EVT type) {
  return type >= 1 && type <= CEVecType::kCount ? &kRows[type - 1] : nullptr;
}

}  // namespace zemva
