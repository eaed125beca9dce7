// The listings of Model, to a window and to a file.
#include <cstdio>
#include <string>

#include "zemva/base/atomic_file.h"
#include "zemva/base/positions.h"
#include "zemva/errors/listing.h"
#include "zemva/errors/status.h"
#include "zemva/model/block/data_block.h"
#include "zemva/model/driver/model.h"
#include "zemva/model/driver/value_listing.h"

namespace zemva {
namespace {

class TextWindow : public StreamWindow {
 public:
  void Write(const char* text) override { text_ += text; }
  const std::string& GetText() const { return text_; }

 private:
  std::string text_;
};

const char* TextOrEmpty(const char* text) {
  return text == nullptr ? "" : text;
}

}  // namespace

int Model::ShowInit(StreamWindow& window) {
  Listing list(window);
  list.Text(GetModTypeTag(type_)).Text(" Model number: ").Number(GetModNum());
  list.Text(" name: ").Text(GetModNam()).EndLine();
  list.Text("Address: ").Text(GetModAddr()).Text(" Title: ").Text(GetModTitle()).EndLine();
  list.Text(" From data set: ").Text(dataset_name_.View()).EndLine();
  list.Text(" Created       : ").Text(header_.creation_date.View()).EndLine();
  list.Text(" NObs = ").Number(GetNObs()).Text(", NVarX= ").Number(GetNVarX());
  if (HasY()) list.Text(", NVarY= ").Number(GetNVarY());
  list.EndLine();
  AddValue(list.Text("S2X[-1]= "), 0, GetS2X(-1));
  AddValue(list.Text(", DFX[-1]=  "), 0, GetDFX(-1));
  if (HasY()) AddValue(list.Text(" S2Y[-1]= "), 0, GetS2Y(-1));
  list.EndLine();
  return status::kOk;
}

int Model::ShowCent(StreamWindow& window) {
  Listing list(window);
  const char* const uncentred = HasY() ? "Data uncentered." : "Data not centered.";
  list.Text(a0_ != 0 ? "Data for centering." : uncentred).EndLine();
  for (const DataBlock* const block : GetBlocks()) ShowCentre(*block, window);
  return status::kOk;
}

void Model::ShowCentre(const DataBlock& block, StreamWindow& window) const {
  const CentInfo* const info = block.GetInfo();
  if (info == nullptr) return;
  Listing list(window);
  list.Right(6, "VNum").Right(26, "VNam").Right(14, info->reference.GetName()).Right(14, "Weig");
  list.Right(14, info->centred.ssv.GetName()).Right(14, info->centred.s2v.GetName()).EndLine();
  const VarInfo* const variables = block.GetVarInfo();
  for (const short k : PositionsUpTo(block.GetColumnCount())) {
    list.Right(6, variables == nullptr ? k : variables->GetVNum(k));
    list.Right(26, variables == nullptr ? "" : TextOrEmpty(variables->GetVNam(k)));
    for (const float value :
         {info->reference[k], info->weights[k], info->centred.ssv[k], info->centred.s2v[k]}) {
      AddValue(list, 14, value);
    }
    list.EndLine();
  }
}

int Model::WriteListing(const char* path, int (Model::*list)(StreamWindow&)) {
  return MemoryGuarded([&] {
    TextWindow window;
    (this->*list)(window);
    AtomicFile file(path);
    std::FILE* const stream = file.GetStream();
    if (stream == nullptr) return status::fio::kWriteError;
    const std::string& text = window.GetText();
    const bool is_written = std::fwrite(text.data(), 1, text.size(), stream) == text.size();
    return is_written && file.Commit() ? status::kOk : status::fio::kWriteError;
  });
}

}  // namespace zemva
