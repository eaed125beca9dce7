// The names of the items of a ".vdo" file.
//
// The values are stored by programs that keep them: never renumber one, never use a number again.
#ifndef ZEMVA_DIO_FILE_ITEM_NAMES_H
#define ZEMVA_DIO_FILE_ITEM_NAMES_H

#include <array>
#include <string_view>

namespace zemva {

// The number of an item name; its text stands in kItemNames.
enum class ItemName : int {};

// One row of the table of names.
struct SymbolCell {
  const char* name;
  ItemName value;
};

// A quantity that ends in X or Y is the X-block or Y-block variant of the one without. A name that
// takes a component number carries it in the file as one or two digits, which stand here nowhere.
inline constexpr std::array<SymbolCell, 212> kItemNames = {{
    {"itemSize", ItemName{0}},
    {"ItemName", ItemName{1}},
    {"itemType", ItemName{2}},
    {"itemWay", ItemName{3}},
    {"itemWayDim", ItemName{4}},
    {"DSName", ItemName{5}},
    {"DSNum", ItemName{6}},
    {"Title", ItemName{7}},
    {"Dataset", ItemName{8}},
    {"objNam", ItemName{9}},
    {"objNum", ItemName{10}},
    {"varNam", ItemName{11}},
    {"varNum", ItemName{12}},
    {"timSamp", ItemName{13}},
    {"timLag", ItemName{14}},
    {"lagSta", ItemName{15}},
    {"900TAB", ItemName{16}},
    {"900IX", ItemName{17}},
    {"nsamp", ItemName{18}},
    {"samp", ItemName{19}},
    {"MType", ItemName{21}},
    {"Number", ItemName{22}},
    {"mDim", ItemName{23}},
    {"VStatus", ItemName{24}},
    {"OStatus", ItemName{25}},
    {"P", ItemName{35}},
    {"W", ItemName{36}},
    {"WSTAR", ItemName{37}},
    {"C", ItemName{38}},
    {"T", ItemName{39}},
    {"U", ItemName{40}},
    {"TMin", ItemName{41}},
    {"TMax", ItemName{42}},
    {"S2T", ItemName{43}},
    {"CV", ItemName{45}},
    {"CVAcc", ItemName{46}},
    {"CVV", ItemName{47}},
    {"CVVAcc", ItemName{48}},
    {"dim", ItemName{49}},
    {"sdXrc", ItemName{50}},
    {"sdXrwc", ItemName{51}},
    {"dfcl", ItemName{52}},
    {"dfclw", ItemName{53}},
    {"sdT", ItemName{54}},
    {"ypred", ItemName{55}},
    {"sdYpred", ItemName{56}},
    {"dcl", ItemName{57}},
    {"pcl", ItemName{58}},
    {"seqData", ItemName{59}},
    {"SeqNam", ItemName{60}},
    {"StaTim", ItemName{61}},
    {"SeqVal", ItemName{62}},
    {"dcrit", ItemName{63}},
    {"resid", ItemName{64}},
    {"expIx1", ItemName{65}},
    {"expIx2", ItemName{66}},
    {"isCenter", ItemName{67}},
    {"isCV", ItemName{68}},
    {"isStepW", ItemName{69}},
    {"isSeq", ItemName{70}},
    {"isRule", ItemName{71}},
    {"isX", ItemName{72}},
    {"isY", ItemName{73}},
    {"NComp", ItemName{74}},
    {"MaxIter", ItemName{75}},
    {"NCV", ItemName{76}},
    {"CLL", ItemName{77}},
    {"CLS", ItemName{78}},
    {"isShoScrLim", ItemName{79}},
    {"isShoLoaLim", ItemName{80}},
    {"isXDesigned", ItemName{81}},
    {"misObj", ItemName{82}},
    {"misVar", ItemName{83}},
    {"misObjPS", ItemName{84}},
    {"misVarPS", ItemName{85}},
    {"isRuleValidate", ItemName{86}},
    {"isSeqValidate", ItemName{87}},
    {"lagDecay", ItemName{88}},
    {"1ixopt", ItemName{89}},
    {"isBackTraYLS", ItemName{90}},
    {"isBackTraYPS", ItemName{91}},
    {"isNormDistLS", ItemName{92}},
    {"isNormDistPS", ItemName{93}},
    {"signLevLS", ItemName{94}},
    {"signLevPS", ItemName{95}},
    {"auseLS", ItemName{96}},
    {"ausePS", ItemName{97}},
    {"isStdResLS", ItemName{98}},
    {"isStdResPS", ItemName{99}},
    {"isWResPS", ItemName{100}},
    {"isWResLS", ItemName{101}},
    {"aShow", ItemName{102}},
    {"pltCoef", ItemName{103}},
    {"pltVariance", ItemName{104}},
    {"pltVarMrk", ItemName{105}},
    {"pltVarMrkSta", ItemName{106}},
    {"pltVarMrkLen", ItemName{107}},
    {"pltObjMrk", ItemName{108}},
    {"pltObjMrkSta", ItemName{109}},
    {"pltObjMrkLen", ItemName{110}},
    {"pltVarSel", ItemName{111}},
    {"isResFilPS", ItemName{112}},
    {"isResWinPS", ItemName{113}},
    {"isSavResPS", ItemName{114}},
    {"isScaResPS", ItemName{115}},
    {"isModByUsr", ItemName{116}},
    {"MinIX", ItemName{117}},
    {"MinIY", ItemName{118}},
    {"MaxIX", ItemName{119}},
    {"MaxIY", ItemName{120}},
    {"BMat", ItemName{121}},
    {"B", ItemName{122}},
    {"S2U", ItemName{123}},
    {"SSTVec", ItemName{124}},
    {"SST", ItemName{125}},
    {"SSUVec", ItemName{126}},
    {"SSU", ItemName{127}},
    {"SignRule", ItemName{128}},
    {"NOBJ", ItemName{129}},
    {"iNVarX", ItemName{130}},
    {"iNVarY", ItemName{131}},
    {"NVar", ItemName{132}},
    {"INVARBLK1", ItemName{133}},
    {"INVARBLK2", ItemName{134}},
    {"ObjInfo", ItemName{135}},
    {"VarInfoX", ItemName{136}},
    {"VarInfoY", ItemName{137}},
    {"VarInfo", ItemName{138}},
    {"TraInfoX", ItemName{139}},
    {"TraInfoY", ItemName{140}},
    {"ExpInfoX", ItemName{141}},
    {"ExpInfoY", ItemName{142}},
    {"LagInfoX", ItemName{143}},
    {"LagInfoY", ItemName{144}},
    {"BlkInfoX", ItemName{145}},
    {"BlkInfoY", ItemName{146}},
    {"ScaInfoX", ItemName{147}},
    {"ScaInfoY", ItemName{148}},
    {"AvgIX", ItemName{149}},
    {"AvgIY", ItemName{150}},
    {"AvgX", ItemName{151}},
    {"AvgY", ItemName{152}},
    {"WeigX", ItemName{154}},
    {"WeigY", ItemName{155}},
    {"DFIX", ItemName{157}},
    {"DFIY", ItemName{158}},
    {"DFCX", ItemName{159}},
    {"DFCY", ItemName{160}},
    {"DFAX", ItemName{161}},
    {"DFAY", ItemName{162}},
    {"SSOIX", ItemName{163}},
    {"SSOIY", ItemName{164}},
    {"S2OIX", ItemName{165}},
    {"S2OIY", ItemName{166}},
    {"SSOCX", ItemName{167}},
    {"SSOCY", ItemName{168}},
    {"S2OCX", ItemName{169}},
    {"S2OCY", ItemName{170}},
    {"SSOAX", ItemName{171}},
    {"SSOAY", ItemName{172}},
    {"S2OAX", ItemName{173}},
    {"S2OAY", ItemName{174}},
    {"SSVIX", ItemName{175}},
    {"SSVIY", ItemName{176}},
    {"S2VIX", ItemName{177}},
    {"S2VIY", ItemName{178}},
    {"SSVCX", ItemName{179}},
    {"SSVCY", ItemName{180}},
    {"S2VCX", ItemName{181}},
    {"S2VCY", ItemName{182}},
    {"SSVAX", ItemName{183}},
    {"SSVAY", ItemName{184}},
    {"S2VAX", ItemName{185}},
    {"S2VAY", ItemName{186}},
    {"SSIX", ItemName{187}},
    {"SSIY", ItemName{188}},
    {"S2IX", ItemName{189}},
    {"S2IY", ItemName{190}},
    {"SSCX", ItemName{191}},
    {"SSCY", ItemName{192}},
    {"S2CX", ItemName{193}},
    {"S2CY", ItemName{194}},
    {"SSAX", ItemName{195}},
    {"SSAY", ItemName{196}},
    {"S2AX", ItemName{197}},
    {"S2AY", ItemName{198}},
    {"SSX", ItemName{199}},
    {"SSY", ItemName{200}},
    {"S2X", ItemName{201}},
    {"S2Y", ItemName{202}},
    {"OLevX", ItemName{203}},
    {"OLevY", ItemName{204}},
    {"VInfM", ItemName{205}},
    {"VInf2M", ItemName{206}},
    {"S2WCX", ItemName{207}},
    {"S2WAX", ItemName{208}},
    {"MPowCX", ItemName{209}},
    {"MPowAX", ItemName{210}},
    {"A0", ItemName{211}},
    {"AMod", ItemName{212}},
    {"InclAvg", ItemName{213}},
    {"Eig", ItemName{214}},
    {"NIter", ItemName{215}},
    {"YBlockData", ItemName{217}},
    {"XBlockData", ItemName{218}},
    {"SVData", ItemName{219}},
    {"isSVData", ItemName{219}},
    {"Object", ItemName{220}},
    {"Variable", ItemName{221}},
    {"Q2cum", ItemName{222}},
    {"oClass", ItemName{223}},
    {"iOClassM", ItemName{224}},
}};

// What a name that is not in the table is answered with.
inline constexpr ItemName kUndefinedName = ItemName{216};
inline constexpr const char* kUndefinedNameText = "UndefinedName";

// The number of a name that stands in the table; another one does not compile.
consteval ItemName ItemNamed(std::string_view name) {
  for (const SymbolCell& row : kItemNames) {
    if (name == row.name) return row.value;
  }
  throw "no such item name";
}

// The items of a data set.
namespace item {
inline constexpr ItemName kDSName = ItemNamed("DSName");
inline constexpr ItemName kDSNum = ItemNamed("DSNum");
inline constexpr ItemName kTitle = ItemNamed("Title");
inline constexpr ItemName kDataset = ItemNamed("Dataset");
inline constexpr ItemName kNObs = ItemNamed("NOBJ");
inline constexpr ItemName kNVar = ItemNamed("NVar");
inline constexpr ItemName kObsInfo = ItemNamed("ObjInfo");
inline constexpr ItemName kVarInfo = ItemNamed("VarInfo");
inline constexpr ItemName kTable900 = ItemNamed("900TAB");
inline constexpr ItemName kIndex900 = ItemNamed("900IX");
}  // namespace item

}  // namespace zemva

#endif  // ZEMVA_DIO_FILE_ITEM_NAMES_H
