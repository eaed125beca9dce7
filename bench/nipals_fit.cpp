// Fits five components to one table and writes the table out, so that other packages can be given
// the same one: nipals_fit ROWS COLUMNS RESPONSES MISSING_SHARE GROUPS REPETITIONS FILE. The
// responses, if any, are columns behind the others, of which then they are predicted. Prints the
// fastest time in seconds, in all and for the components, the iterations and the share of the sum
// of squares that is left.
#include <cmath>
#include <fstream>
#include <iostream>
#include <string>

#include "nipals_problem.h"

namespace {

// Rows of floats one after the other, a NaN for what is missing.
void Write(const zemva::XFMatrix& table, const char* path) {
  std::ofstream file(path, std::ios::binary);
  for (int i = 1; i <= table.NRow(); ++i) {
    for (const float element : table.Row(i)) {
      const float written = zemva::IsMissing(element) ? std::nanf("") : element;
      file.write(reinterpret_cast<const char*>(&written), sizeof written);
    }
  }
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 8) return 2;
  const int responses = std::stoi(arguments[3]);
  const zemva::XFMatrix table = zemva::NipalsTable(
      std::stoi(arguments[1]), std::stoi(arguments[2]) + responses, std::stod(arguments[4]));
  Write(table, arguments[7]);
  zemva::TableModel model(table, std::stoi(arguments[5]), responses);
  zemva::FittedComponents fastest = model.Fit();
  for (int repetition = 1; repetition < std::stoi(arguments[6]); ++repetition) {
    const zemva::FittedComponents result = model.Fit();
    if (result.seconds < fastest.seconds) fastest = result;
  }
  std::cout << fastest.seconds << ' ' << fastest.components << ' ' << fastest.iterations << ' '
            << fastest.unexplained << '\n';
}
