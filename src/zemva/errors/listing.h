// Lines of a listing: texts and numbers right-aligned in fields of a fixed width.
#ifndef ZEMVA_ERRORS_LISTING_H
#define ZEMVA_ERRORS_LISTING_H

#include <concepts>
#include <string>
#include <string_view>

#include "zemva/errors/stream_window.h"

namespace zemva {

// Collects lines and writes them to the window, a line a write. Throws nothing: a line that memory
// does not suffice for is written empty.
//
//   Listing(w).Right(6, item).Right(10, name).EndLine();
class ZEMVA_API Listing {
 public:
  explicit Listing(StreamWindow& window) : window_(window) {}

  Listing& Text(std::string_view text);
  Listing& Number(std::integral auto value) { return Text(std::to_string(value)); }

  // Right-aligned in `width` characters; what is longer is written whole.
  Listing& Right(int width, std::string_view text);
  Listing& Right(int width, std::integral auto value) {
    return Right(width, std::string_view(std::to_string(value)));
  }

  // printf's %*.*f and %*g.
  Listing& Fixed(int width, int decimals, double value);
  Listing& General(int width, double value);

  Listing& EndLine();

 private:
  StreamWindow& window_;
  std::string line_;
  bool is_cut_ = false;  // memory ran out
};

}  // namespace zemva

#endif  // ZEMVA_ERRORS_LISTING_H
