// Files of models, work sets and prediction sets that were cut or changed: each is read whole or
// refused with a code. Run under the sanitizers, these tests find reads and writes outside an
// object, leaks, and allocations out of proportion.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "dio/model_bench.h"
#include "support/model_answers.h"
#include "support/temp_folder.h"
#include "support/vdo_builder.h"

namespace zemva {
namespace {

constexpr std::size_t kBody = 110 + 33;  // behind the headers of the file and of its super item
constexpr std::size_t kTag = 110 + 24;   // of the super item

std::vector<std::string> ItemsOf(const std::string& bytes) {
  std::vector<std::string> items;
  for (std::size_t at = kBody; at < bytes.size(); at += items.back().size()) {
    std::int32_t size = 0;
    std::memcpy(&size, bytes.data() + at, sizeof size);
    items.push_back(bytes.substr(at, static_cast<std::size_t>(size)));
  }
  return items;
}

std::string NameOf(const std::string& item) {
  return item.substr(4, item.find(' ', 4) - 4);
}

std::size_t Find(const std::vector<std::string>& items, const std::string& name) {
  const auto found = std::ranges::find(items, name, NameOf);
  EXPECT_NE(found, items.end()) << name;
  return static_cast<std::size_t>(found - items.begin());
}

bool IsOneOf(const std::string& names, const std::string& name) {
  return names.find(" " + name + " ") != std::string::npos;
}

class DamagedModel : public testing::Test {
 protected:
  static std::string Written(const test::KindOfModel& kind, const std::string& path) {
    test::ModelBench bench(kind);
    bench.model->SetModAddr(path.c_str());
    EXPECT_EQ(bench.model->Save(1), 0);
    return test::ReadBytes(path);
  }
  // Reads the bytes as what they say they are and, when that succeeds, asks a model for all.
  int Read(const std::string& bytes) {
    std::filesystem::remove(path_);
    test::WriteBytes(path_, bytes);
    const std::string tag = bytes.size() < kBody ? "" : bytes.substr(kTag, 4);
    Workset workset("WS", *iris_, window_);
    if (tag == "work") return workset.Load(path_.c_str());
    if (tag == "exec") return Predset("PS", *iris_, workset).Load(path_.c_str(), window_);
    int status = 0;
    const std::unique_ptr<Model> model(
        Model::Read(path_.c_str(), nullptr, window_, nullptr, status));
    EXPECT_EQ(model == nullptr, status != 0);
    if (model != nullptr) length_ += test::AnswersOf(*model).size();
    return status;
  }
  // The status of a file like `whole` with other items.
  int ReadItems(const std::string& whole, const std::vector<std::string>& items) {
    const std::string tag = whole.substr(kTag, 5);
    return Read(test::FileOf(2, 1, test::Item("Any", tag, {1}, test::Joined(items))));
  }
  int ReadWith(const std::string& whole, std::size_t i, const std::string& item) {
    auto items = ItemsOf(whole);
    items[i] = item;
    return ReadItems(whole, items);
  }

  test::TempFolder folder_;
  test::RecordingWindow window_;
  std::unique_ptr<Dataset> iris_ = test::Sample("iris");
  std::string path_ = folder_.File("model.mdl");
  std::string pc_ = Written(test::kKindsOfModels[0], folder_.File("pc.mdl"));
  std::string pls_ = Written(test::kKindsOfModels[6], folder_.File("pls.mdl"));
  std::string workset_ = test::ReadBytes(ZEMVA_SAMPLES "/iris.wks");
  std::string predset_ = test::ReadBytes(ZEMVA_SAMPLES "/iris.pre");
  std::vector<const std::string*> all_ = {&pc_, &pls_, &workset_, &predset_};
  std::size_t length_ = 0;
};

TEST_F(DamagedModel, CutAtAnyLengthItIsRefused) {
  for (const std::string* whole : {&pls_, &workset_, &predset_}) {
    for (std::size_t length = 0; length < whole->size(); length += length < 2000 ? 1 : 11) {
      EXPECT_NE(Read(whole->substr(0, length)), 0) << "cut at byte " << length;
    }
    EXPECT_EQ(Read(*whole), 0);
  }
}

TEST_F(DamagedModel, WithAnyByteChangedItIsReadWholeOrRefused) {
  for (const std::string* whole : all_) {
    for (std::size_t i = 0; i < whole->size(); i += whole == &pls_ ? 13 : 5) {
      for (const int value : {0x00, 0x7f, 0xff}) {
        std::string damaged = *whole;
        damaged[i] = static_cast<char>(value);
        const int status = Read(damaged);
        EXPECT_TRUE(status == 0 || status == 8046 || (2000 <= status && status < 3000))
            << "byte " << i << " set to " << value << ": " << status;
      }
    }
  }
}

TEST_F(DamagedModel, EachItemStandsOnceAndInItsPlace) {
  for (const std::string* whole : all_) {
    const std::vector<std::string> items = ItemsOf(*whole);
    ASSERT_EQ(ReadItems(*whole, items), 0);
    for (std::size_t i = 0; i < items.size(); ++i) {
      const std::string name = NameOf(items[i]);
      // Without these it is still one.
      const bool is_optional =
          IsOneOf(whole == &workset_ ? " TraInfoX " : " oClass BlkInfoX TraInfoX TraInfoY ", name);
      EXPECT_EQ(ReadWith(*whole, i, ""), is_optional ? 0 : 2005) << "without " << name;
      EXPECT_EQ(ReadWith(*whole, i, items[i] + items[i]), 2005) << "twice " << name;
      std::string other_tag = items[i];
      EXPECT_EQ(ReadWith(*whole, i, other_tag.replace(24, 5, "what ")), 2005) << "tag of " << name;
    }
  }
  auto swapped = ItemsOf(pls_);
  std::swap(swapped[Find(swapped, "NIter1")], swapped[Find(swapped, "NIter2")]);
  EXPECT_EQ(ReadItems(pls_, swapped), 2005);
}

TEST_F(DamagedModel, VectorsHaveTheirLengthAndNumbersAreNumbers) {
  const float infinity = std::numeric_limits<float>::infinity();
  for (const std::string* whole : all_) {
    const std::vector<std::string> items = ItemsOf(*whole);
    for (std::size_t i = 0; i < items.size(); ++i) {
      const std::string& item = items[i];
      const std::string name = NameOf(item);
      const std::string tag = item.substr(24, 4);
      const std::size_t width = tag == "fv4 " ? 4 : tag == "iv2 " ? 2 : tag == "iv1 " ? 1 : 0;
      if (width > 0) {
        const int extent = static_cast<unsigned char>(item[31]) - 1;
        const std::string payload = item.substr(33, item.size() - 33 - width);
        EXPECT_EQ(ReadWith(*whole, i, test::Item(name, tag, {extent}, payload)),
                  whole == &predset_ ? 8046 : 2005)
            << "an element less: " << name;
      }
      if (!IsOneOf(" fv4  f4   mxf4 ", tag)) continue;
      const std::string start = item.substr(0, item.size() - sizeof(float));
      EXPECT_EQ(ReadWith(*whole, i, start + test::F4(std::nanf(""))), 2005) << name;
      // Sums of squares of the data as loaded leave the range of a float.
      const bool may_overflow = IsOneOf(
          " SSOIX S2OIX SSVIX S2VIX DFIX SSIX S2IX SSOIY S2OIY SSVIY S2VIY DFIY SSIY S2IY ", name);
      EXPECT_EQ(ReadWith(*whole, i, start + test::F4(infinity)), may_overflow ? 0 : 2005) << name;
    }
  }
}

TEST_F(DamagedModel, ComponentsNeedACentre) {
  auto items = ItemsOf(pc_);
  std::erase_if(items, [](const std::string& item) {
    return IsOneOf(" SSOCX S2OCX SSVCX S2VCX DFCX SSCX S2CX MPowCX AvgX ", NameOf(item));
  });
  EXPECT_EQ(ReadItems(pc_, items), 2005);
}

TEST_F(DamagedModel, WhatLaterVersionsAddIsPassedOver) {
  for (const std::string* whole : all_) {
    auto items = ItemsOf(*whole);
    for (const char* const name : {"Tomorrow", "DSNum", "P77x", "B1"}) {
      items.insert(items.begin() + 1, test::Item(name, "new", {2, -1}, "anything"));
      EXPECT_EQ(ReadItems(*whole, items), 0) << name;
    }
  }
}

TEST_F(DamagedModel, WhatContradictsItselfIsRefused) {
  const auto number = [](int value) { return test::I2(value); };
  const struct {
    const std::string* whole;
    const char* item;
    int at;  // in the payload, or back from its end
    std::string bytes;
    int status;
  } cases[] = {
      {&pls_, "NOBJ", 0, number(15), 2005},
      {&pls_, "NOBJ", 0, number(-1), 2005},
      {&pls_, "iNVarX", 0, number(2), 2005},
      {&pls_, "iNVarY", 0, number(1), 2005},
      {&pls_, "AMod", 0, number(2), 2005},
      {&pls_, "AMod", 0, number(100), 2005},
      {&pls_, "MType", 0, number(1), 2005},
      {&pls_, "MType", 0, number(8), 2005},
      {&pc_, "MType", 0, number(5), 2005},  // of no class
      {&pc_, "MType", 0, number(9), 0},
      {&pls_, "A0", 0, number(2), 2005},
      {&pls_, "isRule", 0, number(2), 2005},
      {&pls_, "isRule", 0, number(-1), 2005},
      {&pls_, "pltCoef", 0, number(111), 2005},
      {&pls_, "isSeqValidate", 0, number(4), 2005},
      {&pls_, "SignRule2", 0, number(7), 2005},
      {&pls_, "OStatus", 0, std::string(1, '\0'), 2005},
      {&pls_, "OStatus", 0, std::string(1, '\2'), 2005},
      {&pls_, "isX", 0, number(30), 2005},
      {&pls_, "INVARBLK2", 0, number(-1), 2005},
      {&pls_, "BMat2", 6, std::string("\xf0\x7f"), 2005},
      {&pls_, "mDim", 0, number(4), 2005},
      {&pls_, "mDim", 0, number(0), 2005},
      {&pls_, "VarInfoX", 0, number(600), 2005},
      {&pls_, "VarInfo", 0, number(0), 2005},
      {&pls_, "ScaInfoX", 0, number(9), 2005},
      {&pls_, "LagInfoX", 0, number(1), 2005},
      {&pls_, "ObjInfo", 0, number(2), 2005},
      {&pls_, "oClass", 0, "d", 2005},
      {&pls_, "BlkInfoX", 0, number(3), 2005},
      // A work set of 150 observations of variables 1 to 4, the lagged 5 and the term 6.
      {&workset_, "OStatus", 0, "\2", 2005},
      {&workset_, "oClass", 0, "c", 0},
      {&workset_, "oClass", 0, "d", 2005},
      {&workset_, "VStatus", -1, "\2", 0},
      {&workset_, "VStatus", -1, "\3", 2005},
      {&workset_, "VStatus", -1, "\xff", 2005},
      {&workset_, "VarInfo", 0, number(2), 2005},
      {&workset_, "BlkInfoX", 0, number(100), 2005},
      {&workset_, "BlkInfoX", -1, "\1", 2005},        // of which there is no row
      {&workset_, "BlkInfoX", -1, "\2", 2005},        // whose row counts two variables
      {&workset_, "ScaInfoX", -26, number(9), 2005},  // whose weight is missing
      {&workset_, "ScaInfoX", -26, number(9) + test::F4(0), 0},
      {&workset_, "ScaInfoX", -26, number(8) + test::F4(2), 0},
      {&workset_, "ScaInfoX", -26, number(0), 2005},
      {&workset_, "ScaInfoX", -26, number(7), 2005},
      {&workset_, "ScaInfoX", -26, number(12), 2005},
      {&workset_, "ScaInfoX", -16, test::F4(0), 2005},
      {&workset_, "ScaInfoX", -16, test::F4(1.5f), 0},
      {&workset_, "ScaInfoX", -4, number(12), 2005},
      {&workset_, "ScaInfoX", -2, number(2), 2005},
      {&workset_, "ScaInfoX", 0, number(2), 2005},
      {&workset_, "TraInfoX", 0, number(5), 0},
      {&workset_, "TraInfoX", 0, number(6), 2005},
      {&workset_, "TraInfoX", -14, number(0), 2005},
      {&workset_, "TraInfoX", -14, number(99), 2005},
      {&workset_, "ExpInfoX", 0, number(5), 2005},
      {&workset_, "ExpInfoX", -10, number(0), 2005},
      {&workset_, "ExpInfoX", -8, number(5), 0},
      {&workset_, "ExpInfoX", -8, number(6), 2005},
      {&workset_, "LagInfoX", -10, number(5), 2005},
      {&workset_, "LagInfoX", -8, number(0), 2005},
      {&workset_, "LagInfoX", 0, number(0), 2005},
  };
  for (const auto& c : cases) {
    const auto items = ItemsOf(*c.whole);
    const std::size_t i = Find(items, c.item);
    std::string item = items[i];
    const auto start = 31 + 2 * static_cast<std::size_t>(item[29]);
    const std::size_t from = c.at < 0 ? item.size() : start;
    item.replace(from + static_cast<std::size_t>(c.at), c.bytes.size(), c.bytes);
    EXPECT_EQ(ReadWith(*c.whole, i, item), c.status) << c.item << " at " << c.at;
  }
}

}  // namespace
}  // namespace zemva
