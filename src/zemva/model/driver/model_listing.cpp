// The listings of Model, to a window and to a file.
#include <cstdio>
#include <string>

#include "zemva/base/atomic_file.h"
#include "zemva/base/positions.h"
#include "zemva/errors/listing.h"
#include "zemva/errors/status.h"
#include "zemva/model/driver/data_block.h"
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
  list.Text(" NObs = ").Number(GetNObs()).Text(", NVarX= ").Number(GetNVarX()).EndLine();
  AddValue(list.Text("S2X[-1]= "), 0, GetS2X(-1));
  AddValue(list.Text(", DFX[-1]=  "), 0, GetDFX(-1)).EndLine();
  return status::kOk;
}

int Model::ShowCent(StreamWindow& window) {
  const auto& info = x_->GetInfo();
  const bool is_centred = a0_ != 0;
  Listing list(window);
  list.Text(is_centred ? "Data for centering." : "Data not centered.").EndLine();
  if (!info) return status::kOk;
  list.Right(6, "VNum").Right(26, "VNam").Right(14, "RefX[0]").Right(14, "Weig");
  list.Right(14, "SSVX[0]").Right(14, "S2VX[0]").EndLine();
  for (const short k : PositionsUpTo(GetNVarX())) {
    const VarInfo* const variables = GetVarInfoX();
    list.Right(6, variables == nullptr ? k : variables->GetVNum(k));
    list.Right(26, variables == nullptr ? "" : TextOrEmpty(variables->GetVNam(k)));
    for (const float value : {info->reference[k], info->weights[k], GetSSVX(0, k), GetS2VX(0, k)}) {
      AddValue(list, 14, value);
    }
    list.EndLine();
  }
  return status::kOk;
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
