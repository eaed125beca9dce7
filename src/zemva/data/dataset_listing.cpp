#include "zemva/data/dataset.h"
#include "zemva/errors/listing.h"
#include "zemva/errors/status.h"

namespace zemva {
namespace {

void ShowLine(StreamWindow& window, const char* label, const char* value) {
  Listing(window).Text(label).Text(value).EndLine();
}

}  // namespace

// The counts and, where it is so, that nothing is loaded.
void Dataset::ShowCounts(StreamWindow& window) const {
  Listing(window)
      .Text("No. of observations is ")
      .Number(nobs_)
      .Text(", no. of variables is ")
      .Number(nvar_)
      .EndLine();
  if (!IsLoaded()) ShowLine(window, "Data set is unloaded.", "");
}

int Dataset::Show(StreamWindow& window) {
  ShowLine(window, "Data set name: ", GetDSNam());
  ShowLine(window, "Address: ", GetDSAddr());
  ShowLine(window, "Data set title  : ", GetDSTitle());
  ShowCounts(window);
  if (var_info_) ShowLine(window, "Variable info loaded", "");
  if (obs_info_) ShowLine(window, "Observation info loaded ", "");
  if (matrix_) ShowLine(window, "Data matrix loaded ", "");
  return status::kOk;
}

int Dataset::ShowAll(StreamWindow& window) {
  ShowLine(window, "Data set name  : ", GetDSNam());
  ShowLine(window, "Address: ", GetDSAddr());
  ShowLine(window, "Data set title : ", GetDSTitle());
  ShowLine(window, "Created       : ", GetDSCreaDate());
  ShowCounts(window);
  if (obs_info_) obs_info_->ShowAll(window);
  if (var_info_) var_info_->ShowAll(window);
  return status::kOk;
}

}  // namespace zemva
