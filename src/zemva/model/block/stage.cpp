#include "zemva/model/block/stage.h"

#include <string>

#include "zemva/errors/status.h"

namespace zemva {

WholeVector MakeVector(std::string_view stem, int label, int length) {
  std::string name(stem);
  name += '[';
  name += std::to_string(label);
  name += ']';
  return {name.c_str(), length, kMissing};
}

WholeVector MakeVector(std::string_view stem, char letter, int label, int length) {
  std::string stem_of_block(stem);
  stem_of_block += letter;
  return MakeVector(stem_of_block, label, length);
}

Stage::Stage(char letter, int label, int row_count, int column_count)
    : sso(MakeVector("SSO", letter, label, row_count)),
      s2o(MakeVector("S2O", letter, label, row_count)),
      ssv(MakeVector("SSV", letter, label, column_count)),
      s2v(MakeVector("S2V", letter, label, column_count)),
      mpow(MakeVector("MPow", letter, label, column_count)) {}

}  // namespace zemva
