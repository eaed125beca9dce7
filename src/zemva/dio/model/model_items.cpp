#include "zemva/dio/model/model_items.h"

#include <array>
#include <cstddef>
#include <limits>
#include <type_traits>

#include "zemva/dio/model/table_items.h"
#include "zemva/settings/options/option_types.h"

namespace zemva {
namespace {

constexpr int kLeastShort = std::numeric_limits<short>::min();
constexpr int kMostShort = std::numeric_limits<short>::max();

// --- The model ---

using MItem = StoredItem<ModelRecord>;

template <int Least, int Most, class Access>
constexpr MItem Number(const char* name, Access access) {
  return NumberItem<Least, Most, ModelRecord>(NameOf(name), access);
}

// The largest value of an option.
template <class Value>
constexpr int kMostOf = kMostShort;
template <>
constexpr int kMostOf<bool> = 1;
template <>
constexpr int kMostOf<EValidate> = static_cast<int>(EValidate::Eig);
template <>
constexpr int kMostOf<EDModType> = static_cast<int>(EDModType::DModY);
template <>
constexpr int kMostOf<EVariType> = static_cast<int>(EVariType::R2adj);
template <>
constexpr int kMostOf<EPltMark> = static_cast<int>(EPltMark::Name);
template <>
constexpr int kMostOf<CEVecType::EVT> = 110;

template <auto Get, auto Set>
constexpr MItem Option(const char* name) {
  using Value = std::remove_cvref_t<decltype((ModOpt().*Get)())>;
  if constexpr (std::is_same_v<Value, float>) {
    return {NameOf(name), "f4", IsAlwaysThere<ModelRecord>,
            [](const ModelRecord& model, PayloadWriter& payload) {
              payload.Add((model.options.*Get)());
            },
            [](ModelRecord& model, PayloadReader& payload) {
              (model.options.*Set)(payload.Take<float>());
            }};
  } else {
    constexpr int kLeast = std::is_same_v<Value, short> ? kLeastShort : 0;
    return {NameOf(name), "i2", IsAlwaysThere<ModelRecord>,
            [](const ModelRecord& model, PayloadWriter& payload) {
              payload.Add(static_cast<short>((model.options.*Get)()));
            },
            [](ModelRecord& model, PayloadReader& payload) {
              const auto value = payload.Take<short>();
              if (value < kLeast || value > kMostOf<Value>) return payload.Fail();
              (model.options.*Set)(static_cast<Value>(value));
            }};
  }
}

// --- The execution on the work set: X, and Y where there is one ---

bool HasResults(const ModelRecord& model) {
  return model.results != nullptr;
}

// What was not there until the first of its items came. How many responses there are, their items
// tell.
Results& ResultsOf(ModelRecord& model) {
  if (!model.results) {
    if (model.HasY()) {
      model.results = std::make_shared<PLSResults>(EExecuted::kWorkset, 0, 0, 0);
    } else {
      model.results = std::make_shared<PCResults>(EExecuted::kWorkset, 0, 0);
    }
  }
  return *model.results;
}

// The same vector of each block, a row a block.
template <WholeVector DistanceResults::*Values>
void AddOfBlocks(const ModelRecord& model, PayloadWriter& payload) {
  const Results& results = *model.results;
  payload.AddExtent(results.y ? 2 : 1);
  payload.AddExtent((results.x.*Values).NVal());
  payload.AddText("");
  payload.Add((results.x.*Values).Values());
  if (results.y) payload.Add(((*results.y).*Values).Values());
}

template <WholeVector DistanceResults::*Values>
void TakeOfBlocks(ModelRecord& model, PayloadReader& payload) {
  Results& results = ResultsOf(model);
  const XFMatrix matrix = TakeMatrix(payload);
  if (matrix.NRow() != (results.y ? 2 : 1)) return payload.Fail();
  const auto take = [&](int row, DistanceResults& block) {
    WholeVector& values = block.*Values;
    WholeVector read(values.GetName(), matrix.NCol(), 0.0f);
    std::ranges::copy(matrix.Row(row), read.Values().begin());
    read.SetActValInfo();
    values = read;
  };
  take(1, results.x);
  if (results.y) take(2, *results.y);
}

void AddLimits(const ModelRecord& model, PayloadWriter& payload) {
  payload.AddExtent(2);
  payload.Add(model.results->x.limits.of_others);
  payload.Add(model.results->x.limits.of_members);
}

void TakeLimits(ModelRecord& model, PayloadReader& payload) {
  if (payload.GetExtent(0) != 2) payload.Fail();
  DistanceLimits& limits = ResultsOf(model).x.limits;
  limits.of_others = payload.Take<float>();
  limits.of_members = payload.Take<float>();
}

constexpr std::array<WholeVector PredictionErrors::*, 6> kErrors = {
    &PredictionErrors::rss,   &PredictionErrors::press, &PredictionErrors::sd_adj_ls,
    &PredictionErrors::sd_ts, &PredictionErrors::np_ws, &PredictionErrors::np_ts};

void AddErrors(const ModelRecord& model, PayloadWriter& payload) {
  const PredictionErrors& errors = *model.results->errors;
  payload.AddExtent(static_cast<int>(kErrors.size()));
  payload.AddExtent(errors.rss.NVal());
  payload.AddText("");
  for (const auto vector : kErrors) payload.Add((errors.*vector).Values());
}

void TakeErrors(ModelRecord& model, PayloadReader& payload) {
  Results& results = ResultsOf(model);
  const XFMatrix matrix = TakeMatrix(payload);
  if (!results.errors || matrix.NRow() != std::ssize(kErrors)) return payload.Fail();
  results.errors.emplace(matrix.NCol());
  int row = 0;
  for (const auto vector : kErrors) {
    XFVector& values = (*results.errors).*vector;
    std::ranges::copy(matrix.Row(++row), values.Values().begin());
    values.SetActValInfo();
  }
}

bool WasLoaded(const ModelRecord& model) {
  return model.x.info != nullptr;
}

// clang-format off
constexpr MItem kModelItems[] = {
    Number<1, 10>("MType", [](auto& m) -> auto& { return m.type; }),
    Number<kLeastShort, kMostShort>("Number", [](auto& m) -> auto& { return m.header.number; }),
    TextItem<ModelRecord>(NameOf("ItemName"), "sz25", [](auto& m) -> auto& { return m.header.name; }),
    TextItem<ModelRecord>(NameOf("Title"), "sz61", [](auto& m) -> auto& { return m.header.title; }),
    TextItem<ModelRecord>(NameOf("StaTim"), "sz23", [](auto& m) -> auto& { return m.header.creation_date; }),
    TextItem<ModelRecord>(NameOf("DSName"), "sz25", [](auto& m) -> auto& { return m.dataset_name; }),
    Number<0, ClaInfo::kMaxClass>("iOClassM", [](auto& m) -> auto& { return m.selector; }),
    Number<0, kMostShort>("NOBJ", [](auto& m) -> auto& { return m.row_count; }),
    Number<0, kMostModelComponents>("AMod", [](auto& m) -> auto& { return m.component_count; }),
    Number<0, 1>("A0", [](auto& m) -> auto& { return m.a0; }),
    Number<0, 1>("isCV", [](auto& m) -> auto& { return m.is_overrun; }),
    Number<0, 1>("isStepW", [](auto& m) -> auto& { return m.is_search_over; }),

    Option<&ModOpt::GetIsCenter, &ModOpt::SetIsCenter>("isCenter"),
    Option<&ModOpt::GetIsXDesigned, &ModOpt::SetIsXDesigned>("isXDesigned"),
    Option<&ModOpt::GetIsSeq, &ModOpt::SetIsSeq>("isSeq"),
    Option<&ModOpt::GetIsRule, &ModOpt::SetIsRule>("isRule"),
    Option<&ModOpt::GetRuleValidate, &ModOpt::SetRuleValidate>("isRuleValidate"),
    Option<&ModOpt::GetSeqValidate, &ModOpt::SetSeqValidate>("isSeqValidate"),
    Option<&ModOpt::GetNComp, &ModOpt::SetNComp>("NComp"),
    Option<&ModOpt::GetMaxIter, &ModOpt::SetMaxIter>("MaxIter"),
    Option<&ModOpt::GetNCV, &ModOpt::SetNCV>("NCV"),
    FloatItem<ModelRecord>(NameOf("CLL"), [](auto& m) -> auto& { return m.loading_limit; }),
    Option<&ModOpt::GetCLS, &ModOpt::SetCompLimScr>("CLS"),
    Option<&ModOpt::GetMaxMisValObsLS, &ModOpt::SetMaxMisValObsLS>("misObj"),
    Option<&ModOpt::GetMaxMisValVarLS, &ModOpt::SetMaxMisValVarLS>("misVar"),
    Option<&ModOpt::GetMaxMisValObsPS, &ModOpt::SetMaxMisValObsPS>("misObjPS"),
    Option<&ModOpt::GetMaxMisValVarPS, &ModOpt::SetMaxMisValVarPS>("misVarPS"),
    Option<&ModOpt::GetLagDecay, &ModOpt::SetLagDecay>("lagDecay"),
    Option<&ModOpt::GetIsShoScrLim, &ModOpt::SetIsShoScrLim>("isShoScrLim"),
    Option<&ModOpt::GetIsShoLoaLim, &ModOpt::SetIsShoLoaLim>("isShoLoaLim"),
    Option<&ModOpt::GetXOpt1, &ModOpt::SetXOpt1>("1ixopt"),
    Option<&ModOpt::GetAUseLS, &ModOpt::SetAUseLS>("auseLS"),
    Option<&ModOpt::GetIsBackTraYLS, &ModOpt::SetIsBackTraYLS>("isBackTraYLS"),
    Option<&ModOpt::GetIsNormDistLS, &ModOpt::SetIsNormDistLS>("isNormDistLS"),
    Option<&ModOpt::GetSignLevLS, &ModOpt::SetSignLevLS>("signLevLS"),
    Option<&ModOpt::GetIsStdResLS, &ModOpt::SetIsStdResLS>("isStdResLS"),
    Option<&ModOpt::GetAUsePS, &ModOpt::SetAUsePS>("ausePS"),
    Option<&ModOpt::GetIsBackTraYPS, &ModOpt::SetIsBackTraYPS>("isBackTraYPS"),
    Option<&ModOpt::GetIsNormDistPS, &ModOpt::SetIsNormDistPS>("isNormDistPS"),
    Option<&ModOpt::GetSignLevPS, &ModOpt::SetSignLevPS>("signLevPS"),
    Option<&ModOpt::GetIsWResPS, &ModOpt::SetIsWResPS>("isWResPS"),
    Option<&ModOpt::GetIsWResLS, &ModOpt::SetIsWResLS>("isWResLS"),
    Option<&ModOpt::GetIsResFilePS, &ModOpt::SetIsResFilePS>("isResFilPS"),
    Option<&ModOpt::GetIsResWinPS, &ModOpt::SetIsResWinPS>("isResWinPS"),
    Option<&ModOpt::GetIsStdResPS, &ModOpt::SetIsStdResPS>("isStdResPS"),
    Option<&ModOpt::GetIsSaveResPS, &ModOpt::SetIsSaveResPS>("isSavResPS"),
    Option<&ModOpt::GetIsScaResPS, &ModOpt::SetIsScaResPS>("isScaResPS"),
    Option<&ModOpt::GetAShow, &ModOpt::SetAShow>("aShow"),
    Option<&ModOpt::GetECoefficient, &ModOpt::SetECoefficient>("pltCoef"),
    Option<&ModOpt::GetDModType, &ModOpt::SetDModType>("dcl"),
    Option<&ModOpt::GetEObjectPlotMark, &ModOpt::SetEObjectPlotMark>("pltObjMrk"),
    Option<&ModOpt::GetER2, &ModOpt::SetER2>("pltVariance"),
    Option<&ModOpt::GetEVariablePlotMark, &ModOpt::SetEVariablePlotMark>("pltVarMrk"),
    Option<&ModOpt::GetObjectPlotMarkLength, &ModOpt::SetObjectPlotMarkLength>("pltObjMrkLen"),
    Option<&ModOpt::GetObjectPlotMarkStart, &ModOpt::SetObjectPlotMarkStart>("pltObjMrkSta"),
    Option<&ModOpt::GetVariablePlotMarkLength, &ModOpt::SetVariablePlotMarkLength>("pltVarMrkLen"),
    Option<&ModOpt::GetVariablePlotMarkStart, &ModOpt::SetVariablePlotMarkStart>("pltVarMrkSta"),
    Option<&ModOpt::GetSelectVariable, &ModOpt::SetSelectVariable>("pltVarSel"),
    Option<&ModOpt::GetIsModifiedByUser, &ModOpt::SetIsModifiedByUser>("isModByUsr"),

    TableItem<ObsInfo, ModelRecord>(NameOf("ObjInfo"), [](auto& m) -> auto& { return m.observations; }),
    TableItem<ClaInfo, ModelRecord>(NameOf("oClass"), [](auto& m) -> auto& { return m.classes; }),
    BytesItem<ModelRecord>(NameOf("OStatus"), [](auto& m) -> auto& { return m.members; }, WasLoaded),
    TableItem<VarInfo, ModelRecord>(NameOf("VarInfo"), [](auto& m) -> auto& { return m.dataset_variables; }),

    {NameOf("mDim"), "i2", HasResults,
     [](const ModelRecord& m, PayloadWriter& payload) { payload.Add(static_cast<short>(m.results->x.component_count)); },
     [](ModelRecord& m, PayloadReader& payload) { ResultsOf(m).x.component_count = payload.Take<short>(); }},
    {NameOf("sdXrc"), "mxf4", HasResults, AddOfBlocks<&DistanceResults::distances>, TakeOfBlocks<&DistanceResults::distances>},
    {NameOf("pcl"), "mxf4", HasResults, AddOfBlocks<&DistanceResults::probabilities>, TakeOfBlocks<&DistanceResults::probabilities>},
    {NameOf("dcrit"), "fv4", HasResults, AddLimits, TakeLimits},
    {NameOf("sdYpred"), "mxf4", [](const ModelRecord& m) { return HasResults(m) && m.results->errors.has_value(); },
     AddErrors, TakeErrors},
};
// clang-format on

// --- A stage of a block ---

template <class Record, class Access>
constexpr std::array<StoredItem<Record>, 7> StageItems(std::array<ItemName, 7> names,
                                                       Access /*stage*/,
                                                       bool (*is_there)(const Record&),
                                                       Overflow overflow = Overflow::kRefused) {
  // Vectors are there with the stage, even without elements.
  std::array<StoredItem<Record>, 7> items = {
      VectorItem<Record>(
          names[0], [](auto& r) -> auto& { return Access{}(r).sso; }),
      VectorItem<Record>(
          names[1], [](auto& r) -> auto& { return Access{}(r).s2o; }),
      VectorItem<Record>(
          names[2], [](auto& r) -> auto& { return Access{}(r).ssv; }),
      VectorItem<Record>(
          names[3], [](auto& r) -> auto& { return Access{}(r).s2v; }),
      FloatItem<Record>(
          names[4], [](auto& r) -> auto& { return Access{}(r).df; }),
      FloatItem<Record>(
          names[5], [](auto& r) -> auto& { return Access{}(r).ss; }),
      FloatItem<Record>(
          names[6], [](auto& r) -> auto& { return Access{}(r).s2; }),
  };
  for (StoredItem<Record>& item : items) {
    item.is_there = is_there;
    item.overflow = overflow;
  }
  return items;
}

constexpr std::array<ItemName, 7> StageNames(std::string_view suffix) {
  return {NameOf("SSO", suffix), NameOf("S2O", suffix), NameOf("SSV", suffix),
          NameOf("S2V", suffix), NameOf("DF", suffix),  NameOf("SS", suffix),
          NameOf("S2", suffix)};
}

template <class Item, std::size_t... Sizes>
constexpr auto Join(const std::array<Item, Sizes>&... parts) {
  std::array<Item, (Sizes + ...)> all{};
  auto end = all.begin();
  ((end = std::copy(parts.begin(), parts.end(), end)), ...);
  return all;
}

// --- A block ---

using BItem = StoredItem<BlockRecord>;

bool HasInfo(const BlockRecord& block) {
  return block.info != nullptr;
}

bool IsCentred(const BlockRecord& block) {
  return HasInfo(block) && !IsMissing(block.info->centred.ss);
}

// What was not there until the first of its items came.
CentInfo& Info(BlockRecord& block) {
  if (!block.info) {
    block.info = std::make_shared<CentInfo>(block.block == EBlock::kX ? 'X' : 'Y', 0, 0);
  }
  return *block.info;
}

const CentInfo& Info(const BlockRecord& block) {
  return *block.info;
}

template <class Access>
constexpr BItem InfoVector(ItemName name, bool (*is_there)(const BlockRecord&), Access access) {
  BItem item = VectorItem<BlockRecord>(name, access);
  item.is_there = is_there;
  return item;
}

template <std::vector<int> CentInfo::*Counts>
constexpr BItem CountsItem(ItemName name) {
  return {name, "iv2", HasInfo,
          [](const BlockRecord& block, PayloadWriter& payload) {
            const std::vector<int>& counts = (*block.info).*Counts;
            payload.AddExtent(static_cast<int>(counts.size()));
            for (const int count : counts) payload.Add(static_cast<short>(count));
          },
          [](BlockRecord& block, PayloadReader& payload) {
            const int length = payload.GetExtent(0);
            if (!payload.Has<short>(length)) return;
            std::vector<int>& counts = Info(block).*Counts;
            counts.clear();
            for (int i = 0; i < length; ++i) counts.push_back(payload.Take<short>());
          }};
}

void AddValues(const BlockRecord& block, PayloadWriter& payload) {
  AddMatrix(*block.values, payload);
}

void TakeValues(BlockRecord& block, PayloadReader& payload) {
  block.values = std::make_shared<XFMatrix>(TakeMatrix(payload));
  Whole(*block.values);
}

// `letter` is X or Y; the names of the last two do not come with it.
constexpr auto MakeBlockItems(std::string_view letter, ItemName row_counts,
                              ItemName column_counts) {
  // clang-format off
  const std::array<BItem, 15> items = {
      NumberItem<0, kMostShort, BlockRecord>(NameOf("iNVar", letter), [](auto& b) -> auto& { return b.column_count; }),
      TableItem<VarInfo, BlockRecord>(NameOf("VarInfo", letter), [](auto& b) -> auto& { return b.variables; }),
      TableItem<ScaInfo, BlockRecord>(NameOf("ScaInfo", letter), [](auto& b) -> auto& { return b.scalings; }),
      TableItem<TraInfo, BlockRecord>(NameOf("TraInfo", letter), [](auto& b) -> auto& { return b.transformations; }),
      TableItem<ExpInfo, BlockRecord>(NameOf("ExpInfo", letter), [](auto& b) -> auto& { return b.terms; }),
      TableItem<LagInfo, BlockRecord>(NameOf("LagInfo", letter), [](auto& b) -> auto& { return b.lags; }),
      TableItem<BlkInfo, BlockRecord>(NameOf("BlkInfo", letter), [](auto& b) -> auto& { return b.blocks; }),
      CountsItem<&CentInfo::row_counts>(row_counts),
      CountsItem<&CentInfo::column_counts>(column_counts),
      InfoVector(NameOf("AvgI", letter), HasInfo, [](auto& b) -> auto& { return Info(b).loaded_average; }),
      InfoVector(NameOf("MinI", letter), HasInfo, [](auto& b) -> auto& { return Info(b).smallest; }),
      InfoVector(NameOf("MaxI", letter), HasInfo, [](auto& b) -> auto& { return Info(b).largest; }),
      InfoVector(NameOf("Weig", letter), HasInfo, [](auto& b) -> auto& { return Info(b).weights; }),
      InfoVector(NameOf("Avg", letter), IsCentred, [](auto& b) -> auto& { return Info(b).reference; }),
      {NameOf(letter, "BlockData"), "mxf4", [](const BlockRecord& block) { return block.values != nullptr; }, AddValues, TakeValues},
  };
  // clang-format on
  const char initial[] = {'I', letter[0]};
  const char centred[] = {'C', letter[0]};
  return Join(
      items,
      StageItems<BlockRecord>(
          StageNames({initial, 2}), [](auto& b) -> auto& { return Info(b).loaded; }, HasInfo,
          Overflow::kAllowed),
      StageItems<BlockRecord>(
          StageNames({centred, 2}), [](auto& b) -> auto& { return Info(b).centred; }, IsCentred));
}

constexpr auto kItemsOfX =
    Join(MakeBlockItems("X", NameOf("isX"), NameOf("INVARBLK1")),
         std::array{InfoVector(
             NameOf("MPowCX"), IsCentred, [](auto& b) -> auto& { return Info(b).centred.mpow; })});
constexpr auto kItemsOfY = MakeBlockItems("Y", NameOf("isY"), NameOf("INVARBLK2"));

// --- A component ---

using CItem = StoredItem<CompInfo>;

template <class Access>
constexpr CItem Vector(const char* name, Access access) {
  return VectorItem<CompInfo>(NameOf(name), access);
}

template <class Access>
constexpr CItem Float(const char* name, Access access) {
  return FloatItem<CompInfo>(NameOf(name), access);
}

bool HasY(const CompInfo& component) {
  return component.y.has_value();
}

void AddCoefficients(const CompInfo& component, PayloadWriter& payload) {
  AddDoubles(component.inv_ppw_cp, payload);
}

void TakeCoefficients(CompInfo& component, PayloadReader& payload) {
  Whole(component.inv_ppw_cp = TakeDoubles(payload));
}

// clang-format off
constexpr auto kComponentItems = Join(
    std::array<CItem, 23>{
        NumberItem<0, kMostShort, CompInfo>(NameOf("NIter"), [](auto& c) -> auto& { return c.iteration_count; }),
        NumberItem<0, static_cast<int>(EVerdict::kEigenvalue), CompInfo>(NameOf("SignRule"), [](auto& c) -> auto& { return c.verdict; }),
        Float("Eig", [](auto& c) -> auto& { return c.eigenvalue; }),
        Float("TMin", [](auto& c) -> auto& { return c.t_min; }),
        Float("TMax", [](auto& c) -> auto& { return c.t_max; }),
        Float("S2T", [](auto& c) -> auto& { return c.s2t; }),
        Float("S2WAX", [](auto& c) -> auto& { return c.weighted_s2; }),
        Float("CV", [](auto& c) -> auto& { return c.q2; }),
        Float("Q2cum", [](auto& c) -> auto& { return c.q2_cum; }),
        Float("CVAcc", [](auto& c) -> auto& { return c.q2_limit; }),
        Vector("CVV", [](auto& c) -> auto& { return c.q2v; }),
        Vector("CVVAcc", [](auto& c) -> auto& { return c.q2v_cum; }),
        Vector("T", [](auto& c) -> auto& { return c.t; }),
        Vector("P", [](auto& c) -> auto& { return c.p; }),
        Vector("U", [](auto& c) -> auto& { return c.u; }),
        Vector("W", [](auto& c) -> auto& { return c.w; }),
        Vector("C", [](auto& c) -> auto& { return c.c; }),
        Vector("WSTAR", [](auto& c) -> auto& { return c.w_star; }),
        Vector("VInfM", [](auto& c) -> auto& { return c.vip; }),
        Vector("OLevX", [](auto& c) -> auto& { return c.leverages; }),
        Vector("OLevY", [](auto& c) -> auto& { return c.leverages_y; }),
        Vector("sdXrwc", [](auto& c) -> auto& { return c.weighted_s2o; }),
        CItem{NameOf("BMat"), "mf8", [](const CompInfo& c) { return c.inv_ppw_cp.NCol() > 0; }, AddCoefficients, TakeCoefficients},
    },
    StageItems<CompInfo>(StageNames("AX"), [](auto& c) -> auto& { return c.x; }, IsAlwaysThere<CompInfo>),
    std::array{Vector("MPowAX", [](auto& c) -> auto& { return c.x.mpow; })},
    StageItems<CompInfo>(StageNames("AY"), [](auto& c) -> auto& { return *c.y; }, HasY));
// clang-format on

}  // namespace

std::span<const StoredItem<ModelRecord>> ModelItems() {
  return kModelItems;
}

std::span<const StoredItem<BlockRecord>> BlockItems(EBlock block) {
  if (block == EBlock::kX) return kItemsOfX;
  return kItemsOfY;
}

std::span<const StoredItem<CompInfo>> ComponentItems() {
  return kComponentItems;
}

}  // namespace zemva
