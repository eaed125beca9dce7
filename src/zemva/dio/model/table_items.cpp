#include "zemva/dio/model/table_items.h"

#include <vector>

#include "zemva/base/positions.h"

namespace zemva {
namespace {

constexpr const char* kObservationColumn = "ObsName";
constexpr int kLabelCount = 3;
constexpr int kSmallestRow = 3;  // bytes of a number and an empty name

void AddHead(const ItmData& row, PayloadWriter& payload) {
  payload.Add(row.GetINum());
  payload.AddText(row.GetINam());
}

// The rows of a table, each with its number and name and then what `add` adds.
template <class Table, class Add>
void AddRows(const Table& table, PayloadWriter& payload, Add add) {
  payload.AddExtent(table.GetNItm());
  for (const short i : PositionsUpTo(table.GetNItm())) {
    const auto& row = *table.GetItm(i);
    AddHead(row, payload);
    add(row);
  }
}

// Calls take(number, name) for each of `count` rows; it returns the status of the table.
template <class Take>
void TakeRows(PayloadReader& payload, int count, ItmInfo& table, Take take) {
  if (!payload.Has<char>(std::int64_t{count} * kSmallestRow)) return;
  if (table.Reserve(count) != status::kOk) throw std::bad_alloc();
  for (int i = 1; i <= count && payload.IsWhole(); ++i) {
    const auto number = payload.Take<short>();
    if (take(number, payload.TakeText()) != status::kOk) throw std::bad_alloc();
  }
}

// A type, which is a number from 0 to `most`.
template <class Type>
Type TakeType(PayloadReader& payload, Type most) {
  const auto value = payload.Take<short>();
  if (value < 0 || value > static_cast<short>(most)) {
    payload.Fail();
    return Type{};
  }
  return static_cast<Type>(value);
}

char TakeByte(PayloadReader& payload, int most) {
  const auto value = payload.Take<char>();
  if (value < 0 || value > most) payload.Fail();
  return value;
}

template <class Table>
void Check(const Table& table) {
  if (table.GetStatus() != status::kOk) throw std::bad_alloc();
}

}  // namespace

// --- Observations ---

void AddTable(const ObsInfo& table, PayloadWriter& payload) {
  payload.AddExtent(table.GetNItm());
  payload.Add(short{1});
  payload.AddText(kObservationColumn);
  for (int i = 1; i <= kLabelCount; ++i) payload.AddText(table.GetLabel(i));
  payload.Add(table.GetNItm());
  for (const short i : PositionsUpTo(table.GetNItm())) {
    payload.Add(table.GetONum(i));
    payload.AddText(table.GetONam(i));
  }
}

void TakeTable(PayloadReader& payload, std::shared_ptr<ObsInfo>& table) {
  table = std::make_shared<ObsInfo>("ObsInfo");
  if (payload.Take<short>() != 1) payload.Fail();
  payload.TakeText();
  for (int i = 1; i <= kLabelCount; ++i) table->SetLabel(i, payload.TakeText());
  if (payload.Take<short>() != payload.GetExtent(0)) payload.Fail();
  TakeRows(payload, payload.GetExtent(0), *table,
           [&](short number, const char* name) { return table->AddObs(number, name); });
  table->ClearIsModified();
}

void AddTable(const ClaInfo& table, PayloadWriter& payload) {
  payload.AddExtent(table.GetNObs());
  for (const short i : PositionsUpTo(table.GetNObs())) payload.Add(table.GetOClass(i));
}

void TakeTable(PayloadReader& payload, std::shared_ptr<ClaInfo>& table) {
  const int count = payload.GetExtent(0);
  if (!payload.Has<char>(count)) return;
  std::vector<char> classes(static_cast<std::size_t>(count));
  payload.Take(std::span<char>(classes));
  table = std::make_shared<ClaInfo>("ClaInfo", classes);
  // Without any there is no table.
  if (table->GetStatus() == status::mva::kIndexOutOfRange || table->GetNItm() == 0) {
    payload.Fail();
    table->ClearStatus();
  }
  Check(*table);
}

// --- Variables ---

void AddTable(const VarInfo& table, PayloadWriter& payload) {
  payload.AddExtent(table.GetNVar());
  for (const short i : PositionsUpTo(table.GetNVar())) {
    payload.Add(table.GetVNum(i));
    payload.AddText(table.GetVNam(i));
  }
}

void TakeTable(PayloadReader& payload, std::shared_ptr<VarInfo>& table) {
  table = std::make_shared<VarInfo>("VarInfo");
  TakeRows(payload, payload.GetExtent(0), *table,
           [&](short number, const char* name) { return table->AddVar(number, name); });
  table->ClearIsModified();
}

void AddTable(const ScaInfo& table, PayloadWriter& payload) {
  AddRows(table, payload, [&](const ScaData& row) {
    payload.Add(static_cast<short>(row.GetScaType()));
    for (const float value :
         {row.GetWeig(), row.GetWeigAC(), row.GetScaC1(), row.GetScaC2(), row.GetWeigM()}) {
      payload.Add(value);
    }
    payload.Add(static_cast<short>(row.GetPrevScaType()));
    payload.Add(short{row.IsBeforeData()});
  });
}

void TakeTable(PayloadReader& payload, std::shared_ptr<ScaInfo>& table) {
  table = std::make_shared<ScaInfo>("ScaInfoX");
  TakeRows(payload, payload.GetExtent(0), *table, [&](short number, const char* name) {
    const EScaType type = TakeType(payload, EScaType::kRng);
    float values[5];
    payload.Take(std::span<float>(values));
    const EScaType previous = TakeType(payload, EScaType::kRng);
    ScaData row(number, name, type, values[0], values[1], values[2], values[3], values[4],
                previous);
    row.SetIsBeforeData(TakeType(payload, short{1}) != 0);
    return table->AddItm(row);
  });
  table->ClearIsModified();
}

void AddTable(const TraInfo& table, PayloadWriter& payload) {
  AddRows(table, payload, [&](const TraData& row) {
    payload.Add(static_cast<short>(row.GetTraType()));
    for (const float value : {row.GetTraC1(), row.GetTraC2(), row.GetTraC3()}) payload.Add(value);
  });
}

void TakeTable(PayloadReader& payload, std::shared_ptr<TraInfo>& table) {
  table = std::make_shared<TraInfo>("TraInfoX");
  TakeRows(payload, payload.GetExtent(0), *table, [&](short number, const char* name) {
    const ETraType type = TakeType(payload, ETraType::kPower);
    float values[3];
    payload.Take(std::span<float>(values));
    return table->AddItm(TraData(number, name, type, values[0], values[1], values[2]));
  });
  table->ClearIsModified();
}

void AddTable(const ExpInfo& table, PayloadWriter& payload) {
  AddRows(table, payload, [&](const ExpData& row) {
    for (const short factor : row.GetFactors()) payload.Add(factor);
    payload.Add(row.GetModifier());
  });
}

void TakeTable(PayloadReader& payload, std::shared_ptr<ExpInfo>& table) {
  table = std::make_shared<ExpInfo>("ExpInfoX");
  TakeRows(payload, payload.GetExtent(0), *table, [&](short number, const char* name) {
    short factors[3];
    payload.Take(std::span<short>(factors));
    const auto modifier = payload.Take<float>();
    return table->AddItm(ExpData(number, name, factors[0], factors[1], factors[2], modifier));
  });
  table->ClearIsModified();
}

void AddTable(const LagInfo& table, PayloadWriter& payload) {
  AddRows(table, payload, [&](const LagData& row) {
    payload.Add(row.GetVNumDS());
    payload.Add(row.GetLag());
    payload.Add(row.GetLambda());
    payload.Add(row.GetDelay());
  });
}

void TakeTable(PayloadReader& payload, std::shared_ptr<LagInfo>& table) {
  table = std::make_shared<LagInfo>("LagInfoX");
  TakeRows(payload, payload.GetExtent(0), *table, [&](short number, const char* name) {
    const auto source = payload.Take<short>();
    const auto lag = payload.Take<short>();
    const auto lambda = payload.Take<float>();
    return table->AddItm(LagData(number, name, source, lag, lambda, payload.Take<short>()));
  });
  table->ClearIsModified();
}

// --- Blocks: their rows, and then the block of each variable ---

void AddTable(const BlkInfo& table, PayloadWriter& payload) {
  payload.AddExtent(table.GetNItm());
  payload.AddExtent(table.GetNVar());
  for (const short i : PositionsUpTo(table.GetNItm())) {
    payload.Add(table.GetINum(i));
    payload.AddText(table.GetINam(i));
    payload.Add(static_cast<short>(table.GetBType(i)));
    payload.Add(table.GetNVar(i));
    payload.Add(table.GetBWeig(i));
  }
  for (const short v : PositionsUpTo(table.GetNVar())) payload.Add(table.GetBStat(v));
}

void TakeTable(PayloadReader& payload, std::shared_ptr<BlkInfo>& table) {
  const int variable_count = payload.GetExtent(1);
  if (!payload.Has<char>(variable_count)) return;
  table = std::make_shared<BlkInfo>("BlkInfoX", static_cast<short>(variable_count));
  Check(*table);
  TakeRows(payload, payload.GetExtent(0), *table, [&](short number, const char* name) {
    if (number < 1 || number > BlkInfo::kMaxBlock) {
      payload.Fail();
      return status::kOk;
    }
    const auto type = TakeType(payload, BlkInfo::kFourthRoot);
    const auto count = payload.Take<short>();
    return table->AddItm(static_cast<char>(number), name, type, count, payload.Take<float>());
  });
  for (const short v : PositionsUpTo(variable_count)) {
    table->SetBStat(v, TakeByte(payload, BlkInfo::kMaxBlock));
  }
  table->ClearStatus();
  table->ClearIsModified();
}

}  // namespace zemva
