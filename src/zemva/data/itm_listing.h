// The opening lines that the listings of all tables share.
#ifndef ZEMVA_DATA_ITM_LISTING_H
#define ZEMVA_DATA_ITM_LISTING_H

#include "zemva/errors/listing.h"
#include "zemva/errors/stream_window.h"

namespace zemva {

// "<name> has <count> items:"
inline void ListTitle(StreamWindow& window, const char* name, int count) {
  Listing(window).Text(name).Text(" has ").Number(count).Text(" items:").EndLine();
}

// "<name>, item <i> is:"
inline void ListItemTitle(StreamWindow& window, const char* name, int i) {
  Listing(window).Text(name).Text(", item ").Number(i).Text(" is:").EndLine();
}

}  // namespace zemva

#endif  // ZEMVA_DATA_ITM_LISTING_H
