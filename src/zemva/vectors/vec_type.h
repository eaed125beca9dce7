// The types of vectors.
#ifndef ZEMVA_VECTORS_VEC_TYPE_H
#define ZEMVA_VECTORS_VEC_TYPE_H

#include "zemva/base/export.h"
#include "zemva/vectors/dat_type.h"

namespace zemva {

class ZEMVA_API CEVecType {
 public:
  // The numbers are kept in model options: never renumber one. What each type is stands in
  // vec_catalogue.h.
  enum EVT : int {
    Undefined = 0,
    // What the elements of other vectors are drawn against.
    Num = 1,
    Time = 2,
    None = 3,
    // By component.
    DFX = 4,
    DFY = 5,
    Eig = 6,
    Iter = 7,
    Q2 = 8,
    Q2Cum = 9,
    R2X = 10,
    R2Y = 11,
    R2XCum = 12,
    R2YCum = 13,
    R2XAdj = 14,
    R2YAdj = 15,
    R2XAdjCum = 16,
    R2YAdjCum = 17,
    S2X = 18,
    S2Y = 19,
    SDt = 20,
    SDu = 21,
    SSX = 22,
    SSY = 23,
    // By observation; PS: of a prediction set.
    DModX = 24,
    DModXPS = 25,
    DModY = 26,
    DModYPS = 27,
    OLevX = 28,
    OLevY = 29,
    PModX = 30,
    PModXPS = 31,
    PModY = 32,
    PModYPS = 33,
    S2OX = 34,
    S2OY = 35,
    SerrL = 36,
    SerrLPS = 37,
    SerrU = 38,
    SerrUPS = 39,
    SSOX = 40,
    SSOY = 41,
    T = 42,
    Tsquare = 43,
    TsquarePS = 44,
    TPS = 45,
    U = 46,
    // Values, residuals and predictions of a variable, by observation.
    VarDS = 47,
    Var = 48,
    VarPS = 49,
    VarRes = 50,
    VarResPS = 51,
    VarPred = 52,
    VarPredPS = 53,
    X = 54,
    XRes = 55,
    XResPS = 56,
    Y = 57,
    YRes = 58,
    YResPS = 59,
    YPS = 60,
    // By variable.
    AvgX = 61,
    AvgY = 62,
    Coeff = 63,
    CoeffC = 64,
    CoeffCS = 65,
    CoeffMR = 66,
    C = 67,
    MaxX = 68,
    MaxY = 69,
    MinX = 70,
    MinY = 71,
    MPowX = 72,
    // Values and residuals of an observation, by variable.
    ObsDS = 73,
    Obs = 74,
    ObsPS = 75,
    ObsX = 76,
    ObsXPS = 77,
    ObsXRes = 78,
    ObsXResPS = 79,
    ObsY = 80,
    ObsYPS = 81,
    ObsYRes = 82,
    ObsYResPS = 83,
    // By variable.
    P = 84,
    Q2V = 85,
    Q2VCum = 86,
    R2VX = 87,
    R2VXAdj = 88,
    R2VY = 89,
    R2VYAdj = 90,
    R2VXCum = 91,
    R2VXCumAdj = 92,
    R2VYCum = 93,
    R2VYCumAdj = 94,
    S2VX = 95,
    S2VY = 96,
    SSVX = 97,
    SSVY = 98,
    VIP = 99,
    W = 100,
    WStar = 101,
    WStarC = 102,
    WC = 103,
    WsX = 104,
    WsY = 105,
    // Of a lagged variable, by lag.
    CoeffCSLag = 106,
    PLag = 107,
    VIPLag = 108,
    WLag = 109,
    WStarLag = 110
  };
  static constexpr int kCount = 110;

  // "R2X(cum)"; "Undefined" for what is no type.
  static const char* GetString(EVT type);
  // The type with exactly this name; Undefined where there is none.
  static EVT GetEVT(const char* name);
  // The kind of object that has vectors of the type; the data set where every kind has, Undefined
  // where none has.
  static CEDatType::EDT GetEDT(EVT type);
};

}  // namespace zemva

#endif  // ZEMVA_VECTORS_VEC_TYPE_H
