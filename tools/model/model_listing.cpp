#include "model/model_listing.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "model/model_limits.h"
#include "model/model_names.h"
#include "text/text_window.h"
#include "zemva/base/positions.h"
#include "zemva/numeric/missing.h"

namespace zemva::tools {
namespace {

constexpr std::size_t kMostVariables = 5;
constexpr std::size_t kMostObservations = 8;

// A listing without the address that a model has until it is saved. A line comes in one piece.
class ListingWindow : public TextWindow {
 public:
  using TextWindow::TextWindow;

  void Write(const char* text) override {
    constexpr std::string_view kNowhere = "Address: NoAddress ";
    const bool is_nowhere = std::string_view(text).starts_with(kNowhere);
    TextWindow::Write(is_nowhere ? text + kNowhere.size() : text);
  }
};

struct Entry {
  std::string name;
  float value;
};

// The entries of the largest size, and how many more there are where all of them count.
std::string Join(std::vector<Entry> entries, std::size_t most, bool is_complete) {
  std::ranges::stable_sort(entries, [](const Entry& one, const Entry& other) {
    return std::fabs(one.value) > std::fabs(other.value);
  });
  std::string text;
  for (std::size_t i = 0; i < std::min(most, entries.size()); ++i) {
    text += (i == 0 ? "" : ", ") + entries[i].name + ' ' + Rounded(entries[i].value, 3);
  }
  const bool is_cut = entries.size() > most;
  if (is_complete && is_cut) text += " and " + std::to_string(entries.size() - most) + " more";
  return text;
}

template <typename Value>
void ListVariables(const std::string& vector, const Model& model, Value value) {
  std::vector<Entry> entries;
  for (const short k : PositionsUpTo(model.GetNVarX())) {
    const float own = value(k);
    if (!IsMissing(own)) entries.push_back({VariableName(model, k), own});
  }
  std::printf("Largest %s: %s\n", vector.c_str(),
              Join(std::move(entries), kMostVariables, false).c_str());
}

void ListBeyond(const ObservationLimit& limit, const Model& model) {
  std::vector<Entry> entries;
  for (const short i : PositionsUpTo(model.GetNObs())) {
    if (limit.IsBeyond(model, i) != 1.0f) continue;
    entries.push_back({ObservationName(model, i), limit.ValueOf(model, i)});
  }
  const std::string count = entries.empty() ? "none" : std::to_string(entries.size());
  std::printf("%s beyond %s (%s %%): %s of %d%s%s\n", CEVecType::GetString(limit.of),
              Rounded(limit.value, 4).c_str(), Rounded(100.0f * limit.level, 3).c_str(),
              count.c_str(), int{model.GetNObs()}, entries.empty() ? "" : ": ",
              Join(entries, kMostObservations, true).c_str());
}

}  // namespace

void ListModel(Model& model) {
  ListingWindow window(stdout);
  model.Show(window);
  if (model.HasY()) {
    ListVariables("VIP", model, [&](short k) { return model.GetVIP(model.GetA(), k); });
  } else {
    for (int component = 1; component <= model.GetA(); ++component) {
      const auto a = static_cast<char>(component);
      ListVariables("p[" + std::to_string(component) + "]", model,
                    [&](short k) { return model.GetP(a, k); });
    }
  }
  for (const ObservationLimit& limit : ObservationLimitsOf(model)) {
    if (!IsMissing(limit.value)) ListBeyond(limit, model);
  }
}

}  // namespace zemva::tools
