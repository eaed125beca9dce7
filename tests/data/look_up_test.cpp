// Look-ups by number beside plain lists, while rows come, go and change their numbers.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <vector>

#include "zemva/data/obs_info.h"
#include "zemva/data/var_info.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {
namespace {

using Numbers = std::vector<short>;

int FirstOf(const Numbers& numbers, short number, std::size_t from = 0) {
  for (std::size_t i = from; i < numbers.size(); ++i) {
    if (numbers[i] == number) return static_cast<int>(i) + 1;
  }
  return 0;
}

// Searched from the row behind the one found last, and then from the first to that one.
int NextOf(const Numbers& numbers, short number, int& cursor) {
  int found = FirstOf(numbers, number, static_cast<std::size_t>(cursor - 1));
  if (found == 0) found = FirstOf(numbers, number);
  if (found != 0) cursor = found % static_cast<int>(numbers.size()) + 1;
  return found;
}

TEST(LookUp, ByNumberAgreesWithAPlainListThroughAllChanges) {
  std::mt19937 random(1);
  const auto below = [&](std::size_t n) { return n == 0 ? 0 : static_cast<int>(random() % n); };
  for (int run = 0; run < 300; ++run) {
    ObsInfo observations("ObsInfo");
    VarInfo variables("VarInfo");
    Numbers numbers;
    int cursor = 1;
    for (int step = 0; step < 60; ++step) {
      const int i = below(numbers.size()) + 1;
      const auto place = numbers.begin() + (i - 1);
      const int kind = below(16);
      if (kind < 8 || numbers.empty()) {
        // Nearly always above all others.
        const short last = numbers.empty() ? short{0} : numbers.back();
        const auto number = static_cast<short>(below(12) == 0 ? below(20) : last + 1 + below(3));
        observations.AddObs(number, "");
        variables.AddVar(number, "");
        numbers.push_back(number);
      } else if (kind < 12) {
        observations.DelObsAt(static_cast<short>(i));
        variables.DelVar(static_cast<short>(i));
        numbers.erase(place);
        if (cursor == i + 1) cursor = i;
      } else if (kind == 12) {
        const auto number = static_cast<short>(below(2) == 0 ? *place : below(40));
        observations.SetONum(static_cast<short>(i), number);
        variables.SetVNum(static_cast<short>(i), number);
        *place = number;
      } else if (kind == 13) {
        XI1Vector keep("", static_cast<int>(numbers.size()), char{1});
        std::size_t row = 0;
        for (char& flag : keep.Values()) flag = static_cast<char>(below(4) != 0);
        std::erase_if(numbers, [&](short) { return keep.Values()[row++] == 0; });
        observations.KeepItms(keep);
        variables.KeepItms(keep);
      } else if (kind == 14) {
        observations.KeepFirst(i);
        variables.KeepFirst(i);
        numbers.erase(place + 1, numbers.end());
      } else {
        observations = ObsInfo(observations);
        variables.NumberInOrder();
        for (std::size_t k = 0; k < numbers.size(); ++k) {
          ASSERT_EQ(variables.GetIx(static_cast<short>(k + 1)), static_cast<int>(k) + 1);
        }
        VarInfo same("VarInfo");
        for (const short number : numbers) same.AddVar(number, "");
        variables = same;
      }
      for (int k = 0; k < 3; ++k) {
        const auto number = static_cast<short>(
            below(static_cast<std::size_t>(std::max<short>(1, variables.GetLargestINum()) + 2)));
        ASSERT_EQ(observations.GetOIx(number), NextOf(numbers, number, cursor));
        ASSERT_EQ(variables.GetVIx(number), FirstOf(numbers, number));
      }
      const auto largest = std::ranges::max_element(numbers);
      ASSERT_EQ(variables.GetLargestINum(), largest == numbers.end() ? 0 : *largest);
    }
  }
}

}  // namespace
}  // namespace zemva
