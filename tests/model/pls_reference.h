// Partial least squares in double precision, straight from its definition, to compare with.
#ifndef ZEMVA_TESTS_MODEL_PLS_REFERENCE_H
#define ZEMVA_TESTS_MODEL_PLS_REFERENCE_H

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "zemva/numeric/missing.h"

namespace zemva::test {

using Column = std::vector<double>;
using Table = std::vector<Column>;  // of rows

inline constexpr double kNone = static_cast<double>(kMissing);

inline constexpr double kNoCap = std::numeric_limits<double>::infinity();

inline double Dot(const Column& a, const Column& b) {
  double sum = 0.0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i] != kNone && b[i] != kNone) sum += a[i] * b[i];
  }
  return sum;
}

inline Table Transposed(const Table& table) {
  Table columns(table[0].size(), Column(table.size()));
  for (std::size_t i = 0; i < table.size(); ++i) {
    for (std::size_t k = 0; k < table[i].size(); ++k) columns[k][i] = table[i][k];
  }
  return columns;
}

// For each vector v of `table` v'b / b'b times b'b / (b'b - what meets a gap), the last factor cut
// to `cap`; missing where nothing is present.
inline Column Regress(const Table& table, const Column& by, double cap) {
  Column factors;
  for (const Column& v : table) {
    Column met = by;
    for (std::size_t i = 0; i < v.size(); ++i) {
      if (v[i] == kNone) met[i] = kNone;
    }
    const double all = Dot(by, by);
    const double usable = Dot(met, met);
    const double correction = usable > 0.0 ? std::min(all / usable, cap) : 0.0;
    factors.push_back(usable > 0.0 ? Dot(v, met) / all * correction : kNone);
  }
  return factors;
}

struct PlsComponent {
  Column t, u, w, c, p;

  // Fitted to the rows of E and F, from this u.
  PlsComponent(const Table& e, const Table& f, Column start, double cap, int passes) : u(start) {
    const Table columns = Transposed(e);
    for (int pass = 0; pass < passes; ++pass) {
      w = Regress(columns, u, cap);
      const double length = std::sqrt(Dot(w, w));
      for (double& weight : w) weight /= length;
      t = Regress(e, w, cap);
      c = Regress(Transposed(f), t, cap);
      u = Regress(f, c, cap);
      for (double& score : u) score = score == kNone ? 0.0 : score;
    }
    p = Regress(columns, t, cap);
  }
};

inline void Deflate(Table& table, const Column& scores, const Column& loadings) {
  for (std::size_t i = 0; i < table.size(); ++i) {
    for (std::size_t k = 0; k < table[i].size(); ++k) {
      if (table[i][k] != kNone && scores[i] != kNone) table[i][k] -= scores[i] * loadings[k];
    }
  }
}

// The squared errors, by response, of predicting each of the groups from a refit to the others.
inline Column Press(const Table& e, const Table& f, const Column& u, std::size_t groups,
                    int passes) {
  Column errors(f[0].size());
  for (std::size_t g = 0; g < groups; ++g) {
    Table e_in, f_in;
    Column u_in;
    for (std::size_t i = 0; i < e.size(); ++i) {
      if (i % groups == g) continue;
      e_in.push_back(e[i]), f_in.push_back(f[i]), u_in.push_back(u[i]);
    }
    const PlsComponent fit(e_in, f_in, u_in, kNoCap, passes);
    for (std::size_t i = g; i < e.size(); i += groups) {
      const double t = Regress({e[i]}, fit.w, kNoCap)[0];
      for (std::size_t m = 0; m < errors.size(); ++m) {
        if (f[i][m] == kNone || t == kNone) continue;
        errors[m] += (f[i][m] - t * fit.c[m]) * (f[i][m] - t * fit.c[m]);
      }
    }
  }
  return errors;
}

}  // namespace zemva::test

#endif  // ZEMVA_TESTS_MODEL_PLS_REFERENCE_H
