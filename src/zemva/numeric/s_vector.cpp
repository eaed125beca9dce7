#include "zemva/numeric/s_vector.h"

#include <span>

#include "zemva/base/fixed_text.h"
#include "zemva/errors/listing.h"
#include "zemva/numeric/vector_listing.h"

namespace zemva {

SVector::SVector(int length, int string_length) : RowStorage(length, string_length) {
  Fill('\0');
}

SVector::~SVector() = default;

void SVector::Show(StreamWindow& window) const {
  constexpr int kShortestCut = 10;
  Listing listing(window);
  listing.Text("SVector has ").Number(NVal()).Text(" strings of length ").Number(GetStrLen());
  if (GetStrLen() >= kShortestCut) listing.Text(" here truncated to 9.");
  listing.EndLine();
  if (NVal() > 0) {
    ListValues(window, std::span<const char* const>(GetMatPtr() + 1, std::size_t(NVal())));
  }
}

int SVector::SetElement(int i, const char* text) {
  if (i < 1 || i > NVal()) return Report(status::mat::kDimension);
  CopyText((*this)[i], static_cast<std::size_t>(GetStrLen()) + 1, text);
  return status::kOk;
}

int SVector::Exp(int count, const char* text) {
  const int old_length = NVal();
  const int result = AppendRows(count, '\0');
  for (int i = old_length + 1; i <= NVal(); ++i) SetElement(i, text);
  return result;
}

}  // namespace zemva
