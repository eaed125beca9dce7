// Eight floats or doubles side by side.
//
// A source that includes this is compiled once for each instruction set. All do the same operations
// on the same eight lanes, so that they give the same bits. The names below live in a namespace of
// the instruction set's own, as one of them would otherwise be linked in the place of the others.
#ifndef ZEMVA_BASE_LANES_H
#define ZEMVA_BASE_LANES_H

#include "zemva/base/lane_sums.h"

#if defined(__AVX512F__)
#include <immintrin.h>
#define ZEMVA_LANES_NAMESPACE avx512_lanes
#elif defined(__AVX2__)
#include <immintrin.h>
#define ZEMVA_LANES_NAMESPACE avx2_lanes
#elif defined(__SSE2__)
#include <emmintrin.h>
#define ZEMVA_LANES_NAMESPACE sse2_lanes
#else
#define ZEMVA_LANES_NAMESPACE plain_lanes
#endif

namespace zemva {
inline namespace ZEMVA_LANES_NAMESPACE {

// What the processor holds in one register: of floats no more than all eight.
#if defined(__AVX512F__)
constexpr int kFloatPackBytes = 32;
constexpr int kDoublePackBytes = 64;
#elif defined(__AVX2__)
constexpr int kFloatPackBytes = 32;
constexpr int kDoublePackBytes = 32;
#else
constexpr int kFloatPackBytes = 16;
constexpr int kDoublePackBytes = 16;
#endif

// A register of elements, and how it is read and written anywhere in memory. Each is written out:
// the compiler drops these attributes from a type that depends on a template's parameter.
template <typename T>
struct PackOf;
template <>
struct PackOf<float> {
  typedef float Pack __attribute__((vector_size(kFloatPackBytes)));
  typedef float LoosePack __attribute__((vector_size(kFloatPackBytes), aligned(4), may_alias));

  ZEMVA_INLINE Pack Read(const float* from) { return *reinterpret_cast<const LoosePack*>(from); }
  ZEMVA_INLINE void Write(Pack pack, float* to) { *reinterpret_cast<LoosePack*>(to) = pack; }
};
template <>
struct PackOf<double> {
  typedef double Pack __attribute__((vector_size(kDoublePackBytes)));
  typedef double LoosePack __attribute__((vector_size(kDoublePackBytes), aligned(4), may_alias));

  ZEMVA_INLINE Pack Read(const double* from) { return *reinterpret_cast<const LoosePack*>(from); }
  ZEMVA_INLINE void Write(Pack pack, double* to) { *reinterpret_cast<LoosePack*>(to) = pack; }
};
template <>
struct PackOf<int> {
  typedef int Pack __attribute__((vector_size(kFloatPackBytes)));
  typedef int LoosePack __attribute__((vector_size(kFloatPackBytes), aligned(4), may_alias));

  ZEMVA_INLINE Pack Read(const int* from) { return *reinterpret_cast<const LoosePack*>(from); }
  ZEMVA_INLINE void Write(Pack pack, int* to) { *reinterpret_cast<LoosePack*>(to) = pack; }
};

// Eight elements in as many registers as they take.
template <typename T>
struct Eight {
  using Pack = typename PackOf<T>::Pack;

  static constexpr int kPerPack = static_cast<int>(sizeof(Pack) / sizeof(T));
  static constexpr int kPacks = kLaneCount / kPerPack;

  Pack packs[kPacks];
};

using Float8 = Eight<float>;
using Double8 = Eight<double>;
// For each lane all bits set or none; as a number -1 or 0.
using Mask8 = Eight<int>;

template <typename T>
ZEMVA_INLINE Eight<T> operator+(Eight<T> a, const Eight<T>& b) {
  for (int k = 0; k < Eight<T>::kPacks; ++k) a.packs[k] += b.packs[k];
  return a;
}
template <typename T>
ZEMVA_INLINE Eight<T> operator-(Eight<T> a, const Eight<T>& b) {
  for (int k = 0; k < Eight<T>::kPacks; ++k) a.packs[k] -= b.packs[k];
  return a;
}
template <typename T>
ZEMVA_INLINE Eight<T> operator*(Eight<T> a, const Eight<T>& b) {
  for (int k = 0; k < Eight<T>::kPacks; ++k) a.packs[k] *= b.packs[k];
  return a;
}

ZEMVA_INLINE Mask8 operator|(Mask8 a, const Mask8& b) {
  for (int k = 0; k < Float8::kPacks; ++k) a.packs[k] |= b.packs[k];
  return a;
}
ZEMVA_INLINE Mask8 IsEqual(const Float8& a, float value) {
  Mask8 mask;
  for (int k = 0; k < Float8::kPacks; ++k) mask.packs[k] = a.packs[k] == value;
  return mask;
}

// Where the mask is set `a`, else `b`.
ZEMVA_INLINE Float8 Select(const Mask8& mask, const Float8& a, const Float8& b) {
  Float8 result;
  for (int k = 0; k < Float8::kPacks; ++k) {
    const Mask8::Pack set = mask.packs[k];
    result.packs[k] =
        reinterpret_cast<Float8::Pack>((reinterpret_cast<Mask8::Pack>(a.packs[k]) & set) |
                                       (reinterpret_cast<Mask8::Pack>(b.packs[k]) & ~set));
  }
  return result;
}

// `a` with 0 where the mask is set.
ZEMVA_INLINE Float8 ZeroWhere(const Mask8& mask, Float8 a) {
  for (int k = 0; k < Float8::kPacks; ++k) {
    a.packs[k] =
        reinterpret_cast<Float8::Pack>(reinterpret_cast<Mask8::Pack>(a.packs[k]) & ~mask.packs[k]);
  }
  return a;
}

// In each lane `a` where it is smaller (larger) than `b`, else `b`: a NaN in `a` is passed over.
ZEMVA_INLINE Float8 Smaller(Float8 a, const Float8& b) {
  for (int k = 0; k < Float8::kPacks; ++k) {
#if defined(__AVX2__)
    a.packs[k] = _mm256_min_ps(a.packs[k], b.packs[k]);
#elif defined(__SSE2__)
    a.packs[k] = _mm_min_ps(a.packs[k], b.packs[k]);
#else
    a.packs[k] = a.packs[k] < b.packs[k] ? a.packs[k] : b.packs[k];
#endif
  }
  return a;
}
ZEMVA_INLINE Float8 Larger(Float8 a, const Float8& b) {
  for (int k = 0; k < Float8::kPacks; ++k) {
#if defined(__AVX2__)
    a.packs[k] = _mm256_max_ps(a.packs[k], b.packs[k]);
#elif defined(__SSE2__)
    a.packs[k] = _mm_max_ps(a.packs[k], b.packs[k]);
#else
    a.packs[k] = a.packs[k] > b.packs[k] ? a.packs[k] : b.packs[k];
#endif
  }
  return a;
}

ZEMVA_INLINE Float8 Magnitude(Float8 a) {
  constexpr int kAllButSign = 0x7fffffff;
  for (auto& pack : a.packs) {
    pack = reinterpret_cast<Float8::Pack>(reinterpret_cast<Mask8::Pack>(pack) & kAllButSign);
  }
  return a;
}

// Eight copies of a value, -0 included.
template <typename T>
ZEMVA_INLINE Eight<T> Spread(T value) {
  Eight<T> result;
  for (auto& pack : result.packs) pack = value - typename Eight<T>::Pack{};
  return result;
}

// Read and write eight elements, or for a shorter rest only `count`, the other lanes being as said.
template <typename T>
ZEMVA_INLINE Eight<T> Load(const T* from) {
  Eight<T> result;
  for (int k = 0; k < Eight<T>::kPacks; ++k) {
    result.packs[k] = PackOf<T>::Read(from + k * Eight<T>::kPerPack);
  }
  return result;
}
template <typename T>
ZEMVA_INLINE void Store(const Eight<T>& lanes, T* to) {
  for (int k = 0; k < Eight<T>::kPacks; ++k) {
    PackOf<T>::Write(lanes.packs[k], to + k * Eight<T>::kPerPack);
  }
}
template <typename T>
ZEMVA_INLINE Eight<T> LoadRest(const T* from, int count, T other) {
  T padded[kLaneCount];
  for (int l = 0; l < kLaneCount; ++l) padded[l] = l < count ? from[l] : other;
  return Load(padded);
}
template <typename T>
ZEMVA_INLINE void StoreRest(const Eight<T>& lanes, T* to, int count) {
  T padded[kLaneCount];
  Store(lanes, padded);
  for (int l = 0; l < count; ++l) to[l] = padded[l];
}

ZEMVA_INLINE Double8 ToDouble(const Float8& a) {
  Double8 result;
#if defined(__AVX512F__)
  // The masked form, of all elements: the plain one starts from an undefined value in g++'s header,
  // which g++ warns of.
  result.packs[0] = _mm512_maskz_cvtps_pd(0xff, a.packs[0]);
#elif defined(__AVX2__)
  result.packs[0] = _mm256_cvtps_pd(_mm256_castps256_ps128(a.packs[0]));
  result.packs[1] = _mm256_cvtps_pd(_mm256_extractf128_ps(a.packs[0], 1));
#elif defined(__SSE2__)
  for (int k = 0; k < Float8::kPacks; ++k) {
    result.packs[2 * k] = _mm_cvtps_pd(a.packs[k]);
    result.packs[2 * k + 1] = _mm_cvtps_pd(_mm_movehl_ps(a.packs[k], a.packs[k]));
  }
#else
  for (int l = 0; l < kLaneCount; ++l) {
    result.packs[l / Double8::kPerPack][l % Double8::kPerPack] =
        static_cast<double>(a.packs[l / Float8::kPerPack][l % Float8::kPerPack]);
  }
#endif
  return result;
}

// `a` with 0 where the mask is set.
ZEMVA_INLINE Double8 ZeroWhere(const Mask8& mask, Double8 a) {
  const Double8 kept = ToDouble(Select(mask, Spread(0.0f), Spread(1.0f)));
  for (int k = 0; k < Double8::kPacks; ++k) {
    const auto is_kept = kept.packs[k] != 0.0;
    a.packs[k] = reinterpret_cast<Double8::Pack>(
        reinterpret_cast<decltype(kept.packs[k] != 0.0)>(a.packs[k]) & is_kept);
  }
  return a;
}

// As ToDouble(Load(from)), each register of doubles straight from memory.
ZEMVA_INLINE Double8 LoadAsDouble(const float* from) {
#if defined(__SSE2__) && !defined(__AVX512F__)
  Double8 result;
  for (int k = 0; k < Double8::kPacks; ++k) {
#if defined(__AVX2__)
    result.packs[k] = _mm256_cvtps_pd(_mm_loadu_ps(from + 4 * k));
#else
    const auto* const pair = reinterpret_cast<const __m128i*>(from + 2 * k);
    result.packs[k] = _mm_cvtps_pd(_mm_castsi128_ps(_mm_loadl_epi64(pair)));
#endif
  }
  return result;
#else
  return ToDouble(Load(from));
#endif
}

template <typename T>
ZEMVA_INLINE T Total(const Eight<T>& a) {
  T lanes[kLaneCount];
  Store(a, lanes);
  return AddLanes(lanes);
}

}  // namespace ZEMVA_LANES_NAMESPACE
}  // namespace zemva

#endif  // ZEMVA_BASE_LANES_H
