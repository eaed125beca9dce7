// Counting in 16 bits.
#ifndef ZEMVA_BASE_POSITIONS_H
#define ZEMVA_BASE_POSITIONS_H

namespace zemva {

// The positions 1..count of a table, of which there can be as many as a short holds: a loop that
// counted in shorts would then never end.
class PositionsUpTo {
 public:
  // No position for a count below 1.
  explicit PositionsUpTo(int count) : count_(count < 0 ? 0 : count) {}

  class Iterator {
   public:
    explicit Iterator(int position) : position_(position) {}
    short operator*() const { return static_cast<short>(position_); }
    Iterator& operator++() {
      ++position_;
      return *this;
    }
    bool operator!=(const Iterator& other) const { return position_ != other.position_; }

   private:
    int position_;
  };

  Iterator begin() const { return Iterator(1); }
  Iterator end() const { return Iterator(count_ + 1); }

 private:
  int count_;
};

}  // namespace zemva

#endif  // ZEMVA_BASE_POSITIONS_H
