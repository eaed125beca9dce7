// Item names: from text to number and back, and the search for a super item.
#ifndef ZEMVA_DIO_FILE_FINDER_H
#define ZEMVA_DIO_FILE_FINDER_H

#include <string_view>

#include "zemva/base/export.h"
#include "zemva/dio/file/item_names.h"
#include "zemva/dio/file/layout.h"

namespace zemva {

class DioFile;

// Static functions over the table of item names and two sorted copies of it, which the compiler
// makes: they are there before the first lookup and may be read by several threads.
class ZEMVA_API Finder {
 public:
  // The bounds of the tables' life where they are made at run time; here both do nothing.
  static void SortTables() {}
  static void DeleteSortedTables() {}

  // The number of a name, compared case-sensitively; kUndefinedName when there is none.
  static ItemName Search(std::string_view name);
  // The name of a number; "UndefinedName" when there is none. Of two names with one number, either.
  static const char* Search(ItemName value);

  static const char* GetString(ItemName value) { return Search(value); }
  static ItemName GetItemType(std::string_view name) { return Search(name); }

  // Looks up the name field of an item header. A name that is not in the table is tried again
  // without the one or two digits of a component number: at its end (P12) or in front of its last
  // letters (SSVC3X). `component` is that number, or -1. Returns whether the name is known.
  static bool Lookup(const NameField& name_field, ItemName& value, short& component);

  // Moves `file` to the super item of the wanted type, its first byte next to be read. Only the
  // first super item of a file can be found. A `sub_name` that is not null must equal its name
  // field: 20 bytes, leading spaces left out, padding kept; and it must be the only super item.
  // Codes: 2017 file version, 2008 unknown type of super item, 2000 not found, 2005 file too short.
  static int FindSuperItem(DioFile& file, const char* sub_name, SuperItem::Type type);
};

}  // namespace zemva

#endif  // ZEMVA_DIO_FILE_FINDER_H
