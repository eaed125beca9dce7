// One component of partial least squares by NIPALS.
#ifndef ZEMVA_MODEL_KERNELS_PLS_NIPALS_H
#define ZEMVA_MODEL_KERNELS_PLS_NIPALS_H

#include <span>

#include "zemva/model/kernels/nipals.h"
#include "zemva/model/kernels/projection.h"

namespace zemva {

struct PlsSettings {
  // One more iteration than this is the most that is done.
  int max_iterations = 0;
  // The caps on the corrections of each vector for what is missing.
  Cap w = {};
  Cap t = {};
  Cap c = {};
  Cap u = {};
  Cap p = {};
  GoesOn goes_on = {};
};

// Of N observations, K columns of X and M of Y.
struct PlsVectors {
  std::span<float> t;  // N, scores of X
  std::span<float> u;  // N, scores of Y: what to start from
  std::span<float> w;  // K, weights of X, of length 1
  std::span<float> c;  // M, weights of Y: those that the u to start from was made of, F c / c'c
  std::span<float> p;  // K, loadings of X; empty where they are not wanted
};

// Fits w, t, c and u to the residuals E of X and F of Y by turns,
//
//   w = E'u / |E'u|,  t = E w,  c = F't / t't,  u = F c / c'c
//
// until |u - u before|^2 / u'u + |t - t before|^2 / t't is no more than 2e-10, once when Y has one
// column; then p = E't / t't. (H. Wold, Path models with latent variables: the NIPALS approach, in
// Quantitative Sociology, 1975; P. Geladi and B. R. Kowalski, Partial least-squares regression: a
// tutorial, Analytica Chimica Acta 185 (1986) 1-17.) What is missing is made up for as Projection
// says. The rows that are left out take no part: their t is missing and their u 0, as is the u of a
// row without any response.
//
// Where nothing is missing and the responses are few, the iteration runs on the products of E and F
// (response_products.h), with the same vectors to single precision.
//
// 8024 where |E'u|^2 / sqrt(u'u SS(E)) is below 1e-6 / sqrt(K): what is left of X and Y has nothing
// in common. 8042 (8043 when rows are left out) for a column without usable row; 8027 where the
// settings say so; 8002 when memory runs out. The vectors are then undefined.
NipalsResult PlsNipals(const ResidualMatrix& x, const ResidualMatrix& y, const LeftOut& left_out,
                       const PlsSettings& settings, const PlsVectors& vectors,
                       const ProjectionLoops& loops = BestProjectionLoops());

}  // namespace zemva

#endif  // ZEMVA_MODEL_KERNELS_PLS_NIPALS_H
