// The table of the models of a project.
#ifndef ZEMVA_PROJECT_WM_INFO_H
#define ZEMVA_PROJECT_WM_INFO_H

#include <memory>

#include "zemva/base/export.h"
#include "zemva/data/itm_info.h"
#include "zemva/errors/stream_window.h"
#include "zemva/project/workset_model.h"

namespace zemva {

// The number and name of a model and the model itself, which the row does not own.
class ZEMVA_API WMData : public ItmData {
 public:
  WMData(short number, const char* name, WorksetModel* model)
      : ItmData(number, name), model_(model) {}
  std::unique_ptr<ItmData> Clone() const override { return std::make_unique<WMData>(*this); }

  WorksetModel* GetWM() const { return model_; }

 private:
  WorksetModel* model_;
};

class ZEMVA_API WMInfo : public ItmInfo {
 public:
  explicit WMInfo(const char* name) : ItmInfo(name) {}

  // Appends a model. 8002 when the row cannot be created, 7002 when the table is full.
  int AddWM(short number, const char* name, WorksetModel* model) {
    return MakeItm<WMData>(number, name, model);
  }
  // Removes the row at a position; 7002 for a bad one. The model itself is left alone.
  int DelWM(short i) { return DelItm(i); }

  // The position of the first model with this number or exactly this name, 0 if there is none.
  short GetWMIx(short number) const { return GetIx(number); }
  short GetWMIx(const char* name) const { return GetIx(name); }
  // Null for a bad position.
  WorksetModel* GetWM(short i) const {
    const auto* const row = static_cast<const WMData*>(GetItm(i));
    return row == nullptr ? nullptr : row->GetWM();
  }

  // A row: position, number, name, type, work set and number of components.
  int ShowAll(StreamWindow& window) override;
};

}  // namespace zemva

#endif  // ZEMVA_PROJECT_WM_INFO_H
