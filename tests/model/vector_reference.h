// The numbers of a model of two components, from its scores, loadings and weights and the data.
#ifndef ZEMVA_TESTS_MODEL_VECTOR_REFERENCE_H
#define ZEMVA_TESTS_MODEL_VECTOR_REFERENCE_H

#include <cmath>
#include <vector>

#include "model/model_fixture.h"
#include "model/pls_reference.h"
#include "zemva/model/driver/model.h"

namespace zemva::test {

inline constexpr int kN = 12;
inline constexpr int kNPS = 5;
inline constexpr int kK = 3;
inline constexpr int kM = 2;
inline constexpr int kA = 2;

// x1, x2, x3, y1, y2; of x2 and y2 the model takes the logarithm.
inline Rows MakeRows(int count) {
  Noise noise;
  Rows rows;
  for (int i = 0; i < count; ++i) {
    const float a = noise.Next();
    const float b = noise.Next();
    rows.push_back({a + 0.2f * noise.Next(), std::exp(b), a - b + 0.3f * noise.Next(),
                    2.0f * a + b + 0.2f * noise.Next() + 4.0f, std::exp(a + 0.5f * b) + 0.1f});
  }
  return rows;
}

inline double D(float value) {
  return static_cast<double>(value);
}

inline double SquaresOf(const Column& column) {
  return Dot(column, column);
}

// A block in double precision: as it is in the data, as the model takes it, and what is left of it
// centred and scaled after 0, 1 and 2 components.
struct Block {
  Table raw, taken;
  Column centre, weight;
  std::vector<Table> left;

  Block(const Rows& rows, int first, int count) {
    for (const auto& row : rows) {
      Column of_raw, of_taken;
      for (int k = first; k < first + count; ++k) {
        of_raw.push_back(D(row[static_cast<std::size_t>(k)]));
        of_taken.push_back(IsLog(k) ? std::log10(of_raw.back()) : of_raw.back());
      }
      raw.push_back(of_raw);
      taken.push_back(of_taken);
    }
  }
  static bool IsLog(int k) { return k == 1 || k == 4; }

  void Scale() {
    for (const Column& column : Transposed(taken)) {
      double sum = 0.0;
      for (const double value : column) sum += value;
      centre.push_back(sum / static_cast<double>(column.size()));
      double squares = 0.0;
      for (const double value : column) squares += std::pow(value - centre.back(), 2);
      weight.push_back(1.0 / std::sqrt(squares / (static_cast<double>(column.size()) - 1.0)));
    }
  }
  void Start() {
    left.assign(1, taken);
    for (Column& row : left[0]) {
      for (std::size_t k = 0; k < row.size(); ++k) row[k] = (row[k] - centre[k]) * weight[k];
    }
  }
  void TakeOff(const Column& scores, const Column& loadings) {
    left.push_back(left.back());
    Deflate(left.back(), scores, loadings);
  }

  const Table& At(int a) const { return a < 0 ? taken : left[static_cast<std::size_t>(a)]; }
  Column Row(int a, int i) const { return At(a)[static_cast<std::size_t>(i - 1)]; }
  Column Col(int a, int k) const { return Transposed(At(a))[static_cast<std::size_t>(k - 1)]; }
  double SS(int a) const {
    double sum = 0.0;
    for (const Column& row : At(a)) sum += SquaresOf(row);
    return sum;
  }
  // Degrees of freedom of a column, and of the block where rows lose some too.
  static int FreeRows(int a) { return a < 0 ? kN : kN - 1 - a; }
  double S2V(int a, int k) const { return SquaresOf(Col(a, k)) / FreeRows(a); }
  double R2V(int from, int to, int k) const {
    return (SquaresOf(Col(from, k)) - SquaresOf(Col(to, k))) / SquaresOf(Col(0, k));
  }
  double R2VAdj(int from, int to, int k) const { return (S2V(from, k) - S2V(to, k)) / S2V(0, k); }

  // Element i of variable k in units: ' ' those of the data, 'T' transformed, 'C' centred and
  // scaled.
  double Value(int i, int k, char units) const {
    const auto row = static_cast<std::size_t>(i - 1), col = static_cast<std::size_t>(k - 1);
    return units == ' ' ? raw[row][col] : units == 'T' ? taken[row][col] : left[0][row][col];
  }
  double Predicted(int i, int k, int a, char units) const {
    const auto row = static_cast<std::size_t>(i - 1), col = static_cast<std::size_t>(k - 1);
    const double scaled = left[0][row][col] - At(a)[row][col];
    if (units == 'C') return scaled;
    const double transformed = scaled / weight[col] + centre[col];
    return units == ' ' && raw[row][col] != taken[row][col] ? std::pow(10.0, transformed)
                                                            : transformed;
  }
  double Residual(int i, int k, int a, char units) const {
    return Value(i, k, units) - Predicted(i, k, a, units);
  }
};

// A model of two components, from its scores, loadings and weights and the data.
struct Reference {
  Block x, y, x_ps, y_ps;
  Table t, p, u, w, c, t_ps;  // by component
  bool has_y;

  Reference(const Model& model, const Rows& rows, const Rows& ps_rows)
      : x(rows, 0, kK),
        y(rows, kK, kM),
        x_ps(ps_rows, 0, kK),
        y_ps(ps_rows, kK, kM),
        has_y(model.HasY()) {
    x.Scale();
    y.Scale();
    for (Block* const block : {&x_ps, &y_ps}) {
      block->centre = block == &x_ps ? x.centre : y.centre;
      block->weight = block == &x_ps ? x.weight : y.weight;
    }
    for (Block* const block : {&x, &y, &x_ps, &y_ps}) block->Start();
    const auto take = [](int count, auto get) {
      Column column;
      for (int i = 1; i <= count; ++i) column.push_back(D(get(static_cast<short>(i))));
      return column;
    };
    for (char a = 1; a <= kA; ++a) {
      t.push_back(take(kN, [&](short i) { return model.GetT(a, i); }));
      p.push_back(take(kK, [&](short k) { return model.GetP(a, k); }));
      u.push_back(take(kN, [&](short i) { return model.GetU(a, i); }));
      w.push_back(take(kK, [&](short k) { return model.GetW(a, k); }));
      c.push_back(take(kM, [&](short m) { return model.GetC(a, m); }));
      x.TakeOff(t.back(), p.back());
      // Scores of complete rows: what is left times the weights, or the loadings without any.
      t_ps.emplace_back();
      for (const Column& row : x_ps.left.back()) {
        t_ps.back().push_back(Dot(row, has_y ? w.back() : p.back()));
      }
      x_ps.TakeOff(t_ps.back(), p.back());
      if (!has_y) continue;
      y.TakeOff(t.back(), c.back());
      y_ps.TakeOff(t_ps.back(), c.back());
    }
  }

  static double Of(const Table& by_component, int a, int i) {
    return by_component[static_cast<std::size_t>(a - 1)][static_cast<std::size_t>(i - 1)];
  }
  double DF(const Block& block, int a) const {
    if (a < 0) return kN * (&block == &x ? kK : kM);
    return Block::FreeRows(a) * (&block == &x ? kK - a : kM);
  }
  double S2(const Block& block, int a) const { return block.SS(a) / DF(block, a); }
  double R2(const Block& block, int from, int to) const {
    return (block.SS(from) - block.SS(to)) / block.SS(0);
  }
  double R2Adj(const Block& block, int from, int to) const {
    return (S2(block, from) - S2(block, to)) / S2(block, 0);
  }
  double S2T(int a) const { return SquaresOf(t[static_cast<std::size_t>(a - 1)]) / kN; }
  double T2(const Table& scores, int first, int i) const {
    double sum = 0.0;
    for (int a = first; a <= kA; ++a) sum += std::pow(Of(scores, a, i), 2) / S2T(a);
    return sum;
  }
  // The residual standard deviation of an observation, over that of all.
  double DMod(const Block& of_row, const Block& block, int i, bool is_member) const {
    const double df = &block == &x ? kK - kA : kM;
    const double own = SquaresOf(of_row.Row(kA, i)) / df;
    const double correction = is_member ? static_cast<double>(kN) / Block::FreeRows(kA) : 1.0;
    return std::sqrt(own * correction / S2(block, kA));
  }
  // W (P'W)^-1, where P'W is upper triangular with ones on its diagonal.
  double WStar(int a, int k) const {
    return a == 1 ? Of(w, 1, k) : Of(w, 2, k) - Dot(p[0], w[1]) * Of(w, 1, k);
  }
  double B(int k, int m) const { return WStar(1, k) * Of(c, 1, m) + WStar(2, k) * Of(c, 2, m); }
  double VIP(int k) const {
    double sum = 0.0;
    for (int a = 1; a <= kA; ++a) sum += R2(y, a - 1, a) * std::pow(Of(w, a, k), 2);
    return std::sqrt(kK * sum / R2(y, 0, kA));
  }
  double Coeff(int k, int m) const {
    return B(k, m) * x.weight[static_cast<std::size_t>(k - 1)] /
           y.weight[static_cast<std::size_t>(m - 1)];
  }
  double B0(int m) const {
    double sum = y.centre[static_cast<std::size_t>(m - 1)];
    for (int k = 1; k <= kK; ++k) sum -= Coeff(k, m) * x.centre[static_cast<std::size_t>(k - 1)];
    return sum;
  }
};

}  // namespace zemva::test

#endif  // ZEMVA_TESTS_MODEL_VECTOR_REFERENCE_H
