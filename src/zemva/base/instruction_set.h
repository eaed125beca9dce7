// Which of several compilations of the same inner loops runs on this processor.
//
// Loops over lanes (lanes.h) stand once, in a header, and three sources a group of them are
// compiled: for AVX-512, for AVX2, and for the floor, which every processor of the target has. All
// give the same bits.
#ifndef ZEMVA_BASE_INSTRUCTION_SET_H
#define ZEMVA_BASE_INSTRUCTION_SET_H

#include <array>
#include <cstddef>
#include <span>

namespace zemva {

// A group of inner loops as compiled for each instruction set, the widest first.
template <typename Loops>
using LoopsByWidth = std::array<const Loops*, 3>;

// The position there of the widest that this processor, and the system on it, can run.
std::size_t WidestUsable();

// Those of a group that can run here, the widest first.
template <typename Loops>
std::span<const Loops* const> Usable(const LoopsByWidth<Loops>& loops) {
  return std::span(loops).subspan(WidestUsable());
}

}  // namespace zemva

#endif  // ZEMVA_BASE_INSTRUCTION_SET_H
