// Random sequences of editing operations on a data set and on a plain table beside it.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "data/plain_table.h"
#include "support/temp_folder.h"
#include "zemva/data/dataset.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {
namespace {

using test::Label;
using test::Numbered;
using test::PlainTable;
using Labels = std::vector<Label>;

constexpr float kGap = -99.0f;
constexpr int kRepaired = 8055;

template <typename T>
void Keep(std::vector<T>& items, const std::vector<bool>& keep) {
  std::size_t i = 0;
  std::erase_if(items, [&](const T&) { return !keep[i++]; });
}

Labels NumberedLabels(const std::string& stem, std::size_t n) {
  Labels labels;
  for (int i = 1; i <= static_cast<int>(n); ++i) labels.push_back({i, Numbered(stem, i)});
  return labels;
}

// For each variable the index of its namesake, searched round from behind the last one found; the
// number of the others where there is none.
std::vector<std::size_t> Namesakes(const Labels& labels, const Labels& others) {
  std::vector<std::size_t> found;
  std::size_t cursor = 0;
  for (const Label& label : labels) {
    std::size_t k = 0;
    while (k < others.size() && others[(cursor + k) % others.size()].name != label.name) ++k;
    found.push_back(k < others.size() ? (cursor + k) % others.size() : k);
    if (k < others.size()) cursor = found.back() + 1;
  }
  return found;
}

int MergeObs(PlainTable& table, const PlainTable& other, bool renumber) {
  const auto is_taken = [&](const Label& label) {
    return std::ranges::count(table.observations, label.number, &Label::number) > 0;
  };
  const bool is_repeated = !renumber && std::ranges::any_of(other.observations, is_taken);
  const std::size_t width = other.variables.size();
  const std::vector<std::size_t> from = Namesakes(table.variables, other.variables);
  const bool is_matched = std::ranges::any_of(from, [&](std::size_t j) { return j < width; });
  const std::size_t added =
      is_matched || (table.variables.empty() && width == 0) ? other.values.size() : 0;
  for (std::size_t i = 0; i < added; ++i) {
    table.observations.push_back(other.observations[i]);
    std::vector<float>& row = table.values.emplace_back();
    for (const std::size_t j : from) row.push_back(j < width ? other.values[i][j] : kGap);
  }
  const Labels numbered = NumberedLabels("Obs_", table.observations.size());
  for (std::size_t i = 0; i < numbered.size() && is_repeated; ++i) {
    table.observations[i].number = numbered[i].number;
  }
  if (renumber) table.observations = numbered;
  return is_repeated ? kRepaired : 0;
}

int MergeVar(PlainTable& table, const PlainTable& other, bool rename) {
  if (other.values.size() != table.values.size()) return 8046;
  const int old_count = static_cast<int>(table.variables.size());
  bool is_repeated = false;
  for (const Label& label : other.variables) {
    std::string name = label.name;
    for (int k = 1; !rename && std::ranges::count(table.variables, name, &Label::name) > 0; ++k) {
      is_repeated = true;
      name = Numbered(label.name + "_", k);
    }
    rename = rename || (name != label.name && name.size() > 23);
    table.variables.push_back({old_count + label.number, name});
  }
  if (rename) table.variables = NumberedLabels("Var_", table.variables.size());
  for (std::size_t i = 0; i < table.values.size(); ++i) {
    std::ranges::copy(other.values[i], std::back_inserter(table.values[i]));
  }
  return is_repeated ? kRepaired : 0;
}

// Names the labels after the observations; false, with nothing named, where the repair fails.
bool Repair(const Labels& observations, Labels& labels, bool& is_repeated) {
  Labels named = observations;
  for (int pass = 0; pass <= 6; ++pass) {
    std::map<std::string, int> met;
    for (Label& label : named) {
      const int k = ++met[label.name];
      if (k > 1) label.name = Numbered(label.name + "_", k);
      if (k > 1 && label.name.size() > 23) return !(is_repeated = true);
    }
    is_repeated = is_repeated || met.size() < named.size();
    for (std::size_t i = 0; i < named.size(); ++i) labels[i].name = named[i].name;
    if (met.size() == named.size()) return true;
  }
  return false;
}

int Transpose(PlainTable& table, bool new_names) {
  PlainTable turned;
  turned.variables = NumberedLabels("V", table.observations.size());
  bool is_repeated = false;
  Labels repaired = turned.variables;
  if (!new_names && Repair(table.observations, repaired, is_repeated)) turned.variables = repaired;
  turned.observations = NumberedLabels("", table.variables.size());
  for (std::size_t j = 0; j < table.variables.size(); ++j) {
    turned.observations[j].name = table.variables[j].name;
    std::vector<float>& row = turned.values.emplace_back();
    for (const auto& values : table.values) row.push_back(values[j]);
  }
  table = turned;
  return is_repeated ? kRepaired : 0;
}

class RandomEdits {
 public:
  explicit RandomEdits(unsigned seed) : random_(seed), table_(MakeTable(3, 2)) {
    dataset_ = test::MakeDataset(table_, window_, folder_.File("edits.vdo").c_str());
  }

  void Step() {
    const int rows = static_cast<int>(table_.observations.size());
    const int columns = static_cast<int>(table_.variables.size());
    const int operation = rows > 25 ? 3 : columns > 25 ? 8 : Pick(9);
    SCOPED_TRACE(testing::Message() << "operation " << operation);
    switch (operation) {
      case 0:
        return AddObservation(rows);
      case 1:
        return AddVariable(columns);
      case 2:
        return rows > 0 ? DeleteObservation(Pick(rows)) : void();
      case 3:
        return DeleteExcluded(rows);
      case 4:
        return columns > 0 ? ReplaceVariable(columns) : void();
      case 5:
        return rows > 0 && columns > 0 ? Change(Pick(rows), Pick(columns)) : void();
      case 6:
      case 7:
        return Merge(operation == 6, rows);
      default:
        const bool new_names = Pick(4) == 0;
        const int status = Transpose(table_, new_names);
        EXPECT_EQ(dataset_->Transpose(new_names), status);
    }
  }

  void Compare() { ASSERT_EQ(test::Content(*dataset_), table_); }

  void SaveAndLoad() {
    ASSERT_EQ(dataset_->Save(), 0);
    dataset_->Unload();
  }

 private:
  int Pick(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
  float Value() { return Pick(4) == 0 ? kGap : static_cast<float>(Pick(1000)); }
  Label AnyLabel(int numbers) {
    const int number = Pick(numbers);
    // The long ones end a repair: rarer than the others.
    if (Pick(25) == 0) return {number, std::string(static_cast<std::size_t>(20 + Pick(5)), 'x')};
    static const char* const names[] = {"",  "A",   "A_1", "A_2", "A_3", "A_2_2",
                                        "B", "B_1", "C",   "D",   "E"};
    return {number, names[Pick(11)]};
  }

  PlainTable MakeTable(int rows, int columns) {
    PlainTable table = test::SmallTable(rows, columns);
    for (Label& label : table.variables) label = AnyLabel(9);
    for (Label& label : table.observations) label = AnyLabel(60);
    for (auto& row : table.values) std::ranges::generate(row, [&] { return Value(); });
    return table;
  }

  void AddObservation(int rows) {
    const Label label = AnyLabel(60);
    EXPECT_EQ(dataset_->AddObs(static_cast<short>(label.number), label.name.c_str()), rows + 1);
    table_.observations.push_back(label);
    table_.values.emplace_back(table_.variables.size(), kGap);
  }

  void AddVariable(int columns) {
    const std::string name = AnyLabel(1).name;
    EXPECT_EQ(dataset_->AddVar(name.c_str()), columns + 1);
    table_.variables.push_back({0, name});
    int position = 0;
    for (Label& label : table_.variables) label.number = ++position;
    for (auto& row : table_.values) row.push_back(kGap);
  }

  void DeleteObservation(int i) {
    // A number of its own: which one of several is deleted depends on the look-ups before.
    dataset_->SetObsNum(static_cast<short>(i + 1), 100);
    EXPECT_EQ(dataset_->DelObs(100), 0);
    EXPECT_EQ(dataset_->DelObs(100), 8014);
    dataset_->GetOIPtr()->ClearStatus();  // else the next renaming answers it
    table_.observations.erase(table_.observations.begin() + i);
    table_.values.erase(table_.values.begin() + i);
  }

  void DeleteExcluded(int rows) {
    XI1Vector selection("sel", rows, char{0});
    std::ranges::generate(selection.Values(), [&] { return static_cast<char>(Pick(3)); });
    std::vector<bool> keep;
    for (const char byte : selection.Values()) keep.push_back(byte == 1);
    EXPECT_EQ(dataset_->DeleteExcludedObservations(&selection), 0);
    Keep(table_.observations, keep);
    Keep(table_.values, keep);
  }

  // A number that no variable has takes the last one, with the next edit.
  void ReplaceVariable(int columns) {
    const int number = Pick(9);
    const auto found = std::ranges::find(table_.variables, number, &Label::number);
    std::vector<bool> keep(static_cast<std::size_t>(columns), true);
    keep[static_cast<std::size_t>(
        std::min<std::ptrdiff_t>(found - table_.variables.begin(), columns - 1))] = false;
    EXPECT_EQ(dataset_->DelVar(static_cast<short>(number)), 0);
    Keep(table_.variables, keep);
    for (auto& row : table_.values) Keep(row, keep);
    AddVariable(columns - 1);
  }

  void Change(int i, int j) {
    const auto row = static_cast<std::size_t>(i), column = static_cast<std::size_t>(j);
    table_.observations[row] = AnyLabel(60);
    table_.variables[column].name = AnyLabel(1).name;
    table_.values[row][column] = Value();
    const auto position = static_cast<short>(i + 1);
    const Label& label = table_.observations[row];
    EXPECT_EQ(dataset_->SetObsNum(position, static_cast<short>(label.number)), 0);
    EXPECT_EQ(dataset_->SetObsName(position, label.name.c_str()), 0);
    EXPECT_EQ(
        dataset_->SetVarName(static_cast<short>(j + 1), table_.variables[column].name.c_str()), 0);
    (*dataset_)[position][j + 1] = table_.values[row][column];
    dataset_->GetDMPtr()->SetActValInfo();
  }

  void Merge(bool observations, int rows) {
    const bool is_itself = Pick(5) == 0;
    const int other_rows = observations || Pick(6) == 0 ? Pick(5) : rows;
    const PlainTable table = is_itself ? table_ : MakeTable(other_rows, Pick(6));
    const auto other = test::MakeDataset(table, window_);
    Dataset* source = is_itself ? dataset_.get() : other.get();
    const bool fresh = Pick(6) == 0;
    if (observations) {
      EXPECT_EQ(dataset_->MergeObs(source, fresh), MergeObs(table_, table, fresh));
    } else {
      EXPECT_EQ(dataset_->MergeVar(source, fresh), MergeVar(table_, table, fresh));
    }
    EXPECT_EQ(test::Content(*other), table);
  }

  std::mt19937 random_;
  test::TempFolder folder_;
  StreamWindow window_;
  PlainTable table_;
  std::unique_ptr<Dataset> dataset_;
};

TEST(DatasetProperties, EveryEditAgreesWithAPlainTable) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    RandomEdits edits(seed);
    for (int step = 1; step <= 300; ++step) {
      SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
      edits.Step();
      if (step % 25 == 0) edits.SaveAndLoad();
      edits.Compare();
      if (testing::Test::HasFailure()) return;
    }
  }
}

}  // namespace
}  // namespace zemva
