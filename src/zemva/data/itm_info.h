// The ordered lists of numbered and named items that describe rows, columns, classes and the like.
#ifndef ZEMVA_DATA_ITM_INFO_H
#define ZEMVA_DATA_ITM_INFO_H

#include <cstddef>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <utility>
#include <vector>

#include "zemva/base/export.h"
#include "zemva/base/fixed_text.h"
#include "zemva/data/ascending_run.h"
#include "zemva/data/itm_count.h"
#include "zemva/errors/status.h"
#include "zemva/errors/stream_window.h"

namespace zemva {

class XI1Vector;

// The most items that a table holds: positions, counts and numbers are signed 16-bit integers.
inline constexpr int kMaxItems = std::numeric_limits<short>::max();

// A row of a table: a number and a name of at most 25 characters. A longer name is cut, a null one
// is the empty name. Tables with further columns derive their rows from it.
class ZEMVA_API ItmData {
 public:
  // An item of this number and name.
  ItmData(short num, const char* name) : num_(num), name_(name) {}
  ItmData(const ItmData&) = default;
  ItmData& operator=(const ItmData&) = default;
  virtual ~ItmData();

  // These compare the numbers alone.
  virtual bool operator<(const ItmData& other) const { return num_ < other.num_; }
  virtual bool operator==(const ItmData& other) const { return num_ == other.num_; }
  virtual bool operator!=(const ItmData& other) const { return num_ != other.num_; }

  // A copy of the whole row, derived columns included.
  virtual std::unique_ptr<ItmData> Clone() const { return std::make_unique<ItmData>(*this); }

  // The number of the item.
  short GetINum() const { return num_; }
  void SetINum(short num) { num_ = num; }
  // Points into the row.
  const char* GetINam() const { return name_.Get(); }
  char* GetINam() { return name_.Get(); }
  void SetINam(const char* name) { name_.Set(name); }

 private:
  short num_;
  FixedText<25> name_;
};

// What stands behind an ItmInfo: the name of the table, at most 24 characters, and its items, of
// which item i, 1..GetNItm(), is owned by the table.
class ZEMVA_API PrivateItmInfo {
 public:
  // An empty table.
  explicit PrivateItmInfo(const char* name) : name_(name) {}
  PrivateItmInfo(PrivateItmInfo&&) = default;
  PrivateItmInfo& operator=(PrivateItmInfo&&) = default;

  // Destroys all items.
  virtual void DelAll() {
    items_.clear();
    free_count_.Set(0);
  }
  virtual ~PrivateItmInfo();
  // List positions, numbers and names. They return 0.
  virtual int ShowAll(StreamWindow& window) const;
  virtual int ShowItm(short i, StreamWindow& window) const;

  // The name of the table, and how many items it has.
  const char* GetNam() const { return name_.Get(); }
  short GetNItm() const {
    return static_cast<short>(static_cast<int>(items_.size()) - free_count_.Get());
  }

  // Null for a bad position.
  ItmData* GetItm(short i) const { return IsPosition(i) ? items_[Slot(i)].get() : nullptr; }

  // Codes: 7001 for null; 7002 when the table is full; 8002 when memory runs out. The item is then
  // destroyed and the table unchanged.
  int AddItm(std::unique_ptr<ItmData> item);
  // Makes room for `count` items. Throws std::bad_alloc.
  void Reserve(int count) {
    items_.reserve(static_cast<std::size_t>(free_count_.Get()) + static_cast<std::size_t>(count));
  }
  // 7002 for a bad position.
  int DelItm(short i);
  // Deletes the items i for which `is_kept(i)` is false.
  template <typename Predicate>
  void KeepItms(Predicate is_kept) {
    CloseFront();
    short position = 0;
    std::erase_if(items_, [&](const auto&) { return !is_kept(++position); });
  }

  // The first position from `first` to `last`, within the table, whose item satisfies `matches`; 0
  // if there is none.
  template <typename Predicate>
  short FindItm(int first, int last, Predicate matches) const {
    for (int i = first; i <= last; ++i) {
      if (matches(*items_[Slot(i)])) return static_cast<short>(i);
    }
    return 0;
  }

  // Takes the name and copies of the items of `other`. 8002, with nothing changed, when memory
  // runs out.
  int Copy(const PrivateItmInfo& other);

 private:
  bool IsPosition(short i) const { return i >= 1 && i <= GetNItm(); }
  std::size_t Slot(int i) const { return static_cast<std::size_t>(free_count_.Get() + i - 1); }
  void CloseFront();
  void ShowRow(short i, StreamWindow& window) const;

  FixedText<24> name_;
  std::vector<std::unique_ptr<ItmData>> items_;
  // Empty slots before the first item, which deleting near the front leaves: so it moves only what
  // is before.
  ItmCount free_count_;
};

// The base of every table. Items are counted from 1.
//
// Every operation that changes the table returns its result code, keeps it for GetStatus and, when
// it is 0, marks the table modified; a failed one leaves the table unchanged.
class ZEMVA_API ItmInfo {
 public:
  // A copy has the items, the name, the status and the mark of its original; its status is 8002,
  // and it is empty, when memory runs out.
  ItmInfo(const ItmInfo& other);
  ItmInfo(ItmInfo&&) = default;
  // Unchanged, with status 8002, when memory runs out.
  ItmInfo& operator=(const ItmInfo& other);
  ItmInfo& operator=(ItmInfo&&) = default;
  virtual ~ItmInfo();

  // Makes room for `count` items in all: none is moved as they come. 8002 when memory runs out.
  int Reserve(int count);
  // Destroys all items.
  virtual int DelAll();
  // List all items, or the one at i. They return 0.
  virtual int ShowAll(StreamWindow& window);
  virtual int ShowItm(short i, StreamWindow& window);

  // How many items there are, and the name of the table.
  short GetNItm() const { return items_.GetNItm(); }
  const char* GetNam() const { return items_.GetNam(); }

  // 0 and null for a bad position. The name points into the table.
  short GetINum(short i) const;
  const char* GetINam(short i) const;
  // 7002 for a bad position.
  int SetINum(short i, short num);

  // The position of the first item with this number or exactly this name; 0 if there is none.
  short GetIx(short num) const;
  short GetIx(const char* name) const;
  // The largest number of an item; 0 where none is above 0.
  short GetLargestINum() const;

  // Deletes the items whose byte in `keep` is not 1. 8021, with nothing changed, when `keep` has
  // not one byte an item.
  int KeepItms(const XI1Vector& keep);
  // Deletes the items beyond position `count`; never fails.
  void KeepFirst(int count);
  // Numbers all items by position; at once where they are known to have these numbers.
  void NumberInOrder();

  // The result code of the last operation, and whether any has changed the table.
  int GetStatus() const { return status_; }
  void ClearStatus() { status_ = 0; }
  bool IsModified() const { return is_modified_; }
  void ClearIsModified() { is_modified_ = false; }

 protected:
  explicit ItmInfo(const char* name) : items_(name) {}

  // Null for a bad position.
  ItmData* GetItm(short i) { return items_.GetItm(i); }
  const ItmData* GetItm(short i) const { return items_.GetItm(i); }

  // See PrivateItmInfo.
  template <typename Predicate>
  short FindItm(int first, int last, Predicate matches) const {
    return items_.FindItm(first, last, matches);
  }

  // Appends the item and takes it over, also when it fails: 7001 for null, 7002 when the table is
  // full, 8002 when memory runs out.
  int AddItm(ItmData* item);
  // Deletes the item at i; the numbers of the later items stay what they are. 7002 for a bad
  // position.
  int DelItm(short i);
  // 7002 for a bad position.
  int SetINam(short i, const char* name);

  // Makes an item of type Item and appends it. 8002 when it cannot be made, else as AddItm.
  template <typename Item, typename... Arguments>
  int MakeItm(const Arguments&... arguments) {
    Item* const item = new (std::nothrow) Item(arguments...);
    return item == nullptr ? SetStatus(status::mva::kMemory) : AddItm(item);
  }

  // Keeps the result code of a change and marks the table when it is 0.
  int Changed(int status);
  // Keeps the result code of an operation that changed nothing.
  int SetStatus(int status) { return status_ = status; }

  // The position of the item with a number, 0 if there is none, found by halving; nothing where the
  // numbers do not ascend.
  std::optional<short> FindAscending(short num) const;
  // Of the numbers that a table has for its rows besides those of the items.
  AscendingRun& GetOwnNumbers() const { return own_numbers_; }

 private:
  bool DoNumbersAscend() const;
  void Removed(int first, int count) {
    numbers_.Removed(first, count);
    own_numbers_.Removed(first, count);
  }

  PrivateItmInfo items_;
  mutable AscendingRun numbers_;
  mutable AscendingRun own_numbers_;
  int status_ = 0;
  bool is_modified_ = false;
};

}  // namespace zemva

#endif  // ZEMVA_DATA_ITM_INFO_H
