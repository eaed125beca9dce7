// The table of the observations of a data set: a row for each row of its matrix.
#ifndef ZEMVA_DATA_OBS_INFO_H
#define ZEMVA_DATA_OBS_INFO_H

#include <array>
#include <memory>
#include <optional>

#include "zemva/base/export.h"
#include "zemva/base/fixed_text.h"
#include "zemva/data/itm_info.h"
#include "zemva/data/ko_time.h"
#include "zemva/errors/stream_window.h"

namespace zemva {

// The item's number is the position that the row had when it was added, its name that of the
// observation; ONum is the observation's number as the user sees it.
class ZEMVA_API ObsData : public ItmData {
 public:
  // The row at `position` of the observation `onum`.
  ObsData(short position, const char* name, short onum) : ItmData(position, name), onum_(onum) {}
  std::unique_ptr<ItmData> Clone() const override { return std::make_unique<ObsData>(*this); }

  // The observation's number.
  short GetONum() const { return onum_; }
  void SetONum(short onum) { onum_ = onum; }

 private:
  short onum_;
};

class ZEMVA_API ObsInfo : public ItmInfo {
 public:
  // An empty table.
  explicit ObsInfo(const char* name) : ItmInfo(name) {}
  // A copy of `*other`; an empty table without a name, its status 8022, when it is null.
  explicit ObsInfo(const ObsInfo* other);

  // Appends an observation. 8002 when the row cannot be created, 7002 when the table is full.
  int AddObs(short onum, const char* name);
  // Deletes the observation with this number; 8014 if there is none.
  int DelObs(short onum);
  // Deletes the observation at a position; 7002 for a bad one.
  int DelObsAt(short i);

  // The position of an observation with this number, 0 if there is none. Look-ups come in runs of
  // increasing numbers: the search starts behind the observation found last, also where that was
  // deleted since, and goes round, so where numbers repeat the answer depends on the look-up
  // before.
  short GetOIx(short onum) const;
  // Whether the numbers ascend: look-ups are then quick, in whatever order they come.
  bool DoONumsAscend() const { return FindAscendingONum(0).has_value(); }
  // The position of the first observation with exactly this name, 0 if there is none.
  short GetOIx(const char* name) const { return GetIx(name); }

  // 0 and null for a bad position. The name points into the table.
  short GetONum(short i) const;
  const char* GetONam(short i) const { return GetINam(i); }
  // 8021 for a bad position.
  int SetONum(short i, short onum);
  // 7002 for a bad position.
  int SetONam(short i, const char* name) { return SetINam(i, name); }

  // Number and name, which points into the table. 8021, with 0 and null, for a bad position.
  int GetObs(short i, short& onum, char*& name);

  // When the observations begin and end, and the time from one to the next.
  KOTime GetStaTim() const { return start_time_; }
  KOTime GetStoTim() const { return stop_time_; }
  KOTime GetSmpInt() const { return sampling_interval_; }

  // These give their argument the kind of time in question and keep its value; the times of the
  // table change only with the whole table.
  void SetStaTim(KOTime& time) { time.Set(time.GetValue(), KOTime::kInstant); }
  void SetStoTim(KOTime& time) { time.Set(time.GetValue(), KOTime::kInstant); }
  void SetSmpInt(KOTime& time) { time.Set(time.GetValue(), KOTime::kInterval); }

  // The three label texts that a file keeps with the table, i = 1..3, each of at most 22
  // characters. "" and no effect for any other i.
  const char* GetLabel(int i) const;
  void SetLabel(int i, const char* label);

  // A new table "ObsInfo", the caller's, with copies of the rows whose byte in `sel` is 1, the
  // times and the labels. Null when `sel` is null or memory runs out.
  ObsInfo* ExtObsInfo(const XI1Vector* sel) const;

  // List all observations, or the one at i: position when it was added, number and name. They
  // return 0.
  int ShowAll(StreamWindow& window) override;
  int ShowObs(short i, StreamWindow& window);

 private:
  int AddObs(ObsData* row) { return AddItm(row); }
  std::optional<short> FindAscendingONum(short onum) const;
  const ObsData* GetRow(short i) const { return static_cast<const ObsData*>(GetItm(i)); }
  void ShowRow(short i, StreamWindow& window) const;

  KOTime start_time_{KOTime::kInstant};
  KOTime stop_time_{KOTime::kInstant};
  KOTime sampling_interval_{KOTime::kInterval};
  mutable short cursor_ = 1;  // where GetOIx starts
  std::array<FixedText<22>, 3> labels_;
};

}  // namespace zemva

#endif  // ZEMVA_DATA_OBS_INFO_H
