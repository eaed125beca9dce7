// Model files that were cut or changed: each is read whole or refused with a code. Run under the
// sanitizers, these tests find reads and writes outside an object, leaks, and allocations out of
// proportion.
#include <gtest/gtest.h>

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

class DamagedModel : public testing::Test {
 protected:
  static std::string Written(const test::KindOfModel& kind, const std::string& path) {
    test::ModelBench bench(kind);
    bench.model->SetModAddr(path.c_str());
    EXPECT_EQ(bench.model->Save(1), 0);
    return test::ReadBytes(path);
  }
  // Reads the bytes and, when that succeeds, asks for all.
  int Read(const std::string& bytes) {
    std::filesystem::remove(path_);
    test::WriteBytes(path_, bytes);
    int status = 0;
    const std::unique_ptr<Model> model(
        Model::Read(path_.c_str(), nullptr, GlobalStreamWindow(), nullptr, status));
    EXPECT_EQ(model == nullptr, status != 0);
    if (model != nullptr) length_ += test::AnswersOf(*model).size();
    return status;
  }
  // The items of a model file, and a file of such items.
  static std::vector<std::string> Items(const std::string& bytes) {
    std::vector<std::string> items;
    for (std::size_t at = kBody; at < bytes.size();) {
      std::int32_t size = 0;
      std::memcpy(&size, bytes.data() + at, sizeof size);
      items.push_back(bytes.substr(at, static_cast<std::size_t>(size)));
      at += static_cast<std::size_t>(size);
    }
    return items;
  }
  static std::string FileOf(const std::vector<std::string>& items) {
    return test::FileOf(2, 1, test::Item("Model", "mod", {1}, test::Joined(items)));
  }
  static std::string NameOf(const std::string& item) {
    return item.substr(4, item.find(' ', 4) - 4);
  }
  static std::size_t Find(const std::vector<std::string>& items, const std::string& name) {
    std::size_t i = 0;
    while (i < items.size() && NameOf(items[i]) != name) ++i;
    EXPECT_LT(i, items.size()) << name;
    return i;
  }

  test::TempFolder folder_;
  std::string path_ = folder_.File("model.mdl");
  std::string pc_ = Written(test::kKindsOfModels[0], folder_.File("pc.mdl"));
  std::string pls_ = Written(test::kKindsOfModels[6], folder_.File("pls.mdl"));
  std::size_t length_ = 0;
};

TEST_F(DamagedModel, CutAtAnyLengthItIsRefused) {
  for (std::size_t length = 0; length < pls_.size(); length += length < 2000 ? 1 : 11) {
    EXPECT_NE(Read(pls_.substr(0, length)), 0) << "cut at byte " << length;
  }
  EXPECT_EQ(Read(pls_), 0);
}

TEST_F(DamagedModel, WithAnyByteChangedItIsReadWholeOrRefused) {
  for (const std::string* whole : {&pc_, &pls_}) {
    for (std::size_t i = 0; i < whole->size(); i += whole == &pc_ ? 5 : 13) {
      for (const int value : {0x00, 0x7f, 0xff}) {
        std::string damaged = *whole;
        damaged[i] = static_cast<char>(value);
        const int status = Read(damaged);
        EXPECT_TRUE(status == 0 || (2000 <= status && status < 3000))
            << "byte " << i << " set to " << value << ": " << status;
      }
    }
  }
}

TEST_F(DamagedModel, EachItemStandsOnceAndInItsPlace) {
  for (const std::string* whole : {&pc_, &pls_}) {
    const std::vector<std::string> items = Items(*whole);
    ASSERT_EQ(Read(FileOf(items)), 0);
    for (std::size_t i = 0; i < items.size(); ++i) {
      const std::string name = NameOf(items[i]);
      auto changed = items;
      changed.erase(changed.begin() + static_cast<std::ptrdiff_t>(i));
      // Without these a model is still one.
      const bool is_optional =
          std::string(" oClass BlkInfoX TraInfoX TraInfoY ").find(" " + name + " ") !=
          std::string::npos;
      EXPECT_EQ(Read(FileOf(changed)), is_optional ? 0 : 2005) << "without " << name;
      changed = items;
      changed.insert(changed.begin() + static_cast<std::ptrdiff_t>(i), items[i]);
      EXPECT_EQ(Read(FileOf(changed)), 2005) << "twice " << name;
      changed = items;
      changed[i].replace(24, 5, "what ");
      EXPECT_EQ(Read(FileOf(changed)), 2005) << "tag of " << name;
    }
    auto changed = items;
    std::swap(changed[Find(items, "NIter1")], changed[Find(items, "NIter2")]);
    EXPECT_EQ(Read(FileOf(changed)), 2005);
  }
}

TEST_F(DamagedModel, ComponentsNeedACentre) {
  auto items = Items(pc_);
  const std::string of_centre = " SSOCX S2OCX SSVCX S2VCX DFCX SSCX S2CX MPowCX AvgX ";
  std::erase_if(items, [&](const std::string& item) {
    return of_centre.find(" " + NameOf(item) + " ") != std::string::npos;
  });
  EXPECT_EQ(Read(FileOf(items)), 2005);
}

TEST_F(DamagedModel, WhatLaterVersionsAddIsPassedOver) {
  auto items = Items(pc_);
  for (const char* const name : {"Tomorrow", "DSNum", "P77x", "B1"}) {
    items.insert(items.begin() + 3, test::Item(name, "new", {2, -1}, "anything"));
    EXPECT_EQ(Read(FileOf(items)), 0) << name;
  }
}

TEST_F(DamagedModel, WhatContradictsItselfIsRefused) {
  const auto number = [](int value) { return test::I2(value); };
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const float infinity = std::numeric_limits<float>::infinity();
  const struct {
    const char* item;
    std::size_t at;  // in the payload
    std::string bytes;
    int status;
  } cases[] = {
      {"NOBJ", 0, number(15), 2005},
      {"NOBJ", 0, number(-1), 2005},
      {"iNVarX", 0, number(2), 2005},
      {"iNVarY", 0, number(1), 2005},
      {"AMod", 0, number(2), 2005},
      {"AMod", 0, number(100), 2005},
      {"MType", 0, number(1), 2005},
      {"MType", 0, number(8), 2005},
      {"A0", 0, number(2), 2005},
      {"isRule", 0, number(2), 2005},
      {"pltCoef", 0, number(111), 2005},
      {"isSeqValidate", 0, number(4), 2005},
      {"SignRule2", 0, number(7), 2005},
      {"signLevLS", 0, test::F4(nan), 2005},
      {"T2", 4, test::F4(nan), 2005},
      {"P1", 0, test::F4(infinity), 2005},
      {"Q2cum1", 0, test::F4(nan), 2005},
      {"SSOIX", 0, test::F4(nan), 2005},
      {"SSOIX", 0, test::F4(infinity), 0},
      {"OStatus", 0, std::string(1, '\0'), 2005},
      {"OStatus", 0, std::string(1, '\2'), 2005},
      {"isX", 0, number(30), 2005},
      {"INVARBLK2", 0, number(-1), 2005},
      {"BMat2", 6, std::string("\xf0\x7f"), 2005},
      {"mDim", 0, number(4), 2005},
      {"VarInfoX", 0, number(600), 2005},
      {"VarInfo", 0, number(0), 2005},
      {"ScaInfoX", 0, number(9), 2005},
      {"LagInfoX", 0, number(1), 2005},
      {"ObjInfo", 0, number(2), 2005},
      {"oClass", 0, std::string(1, 'd'), 2005},
      {"BlkInfoX", 0, number(3), 2005},
  };
  const auto items = Items(pls_);
  for (const auto& c : cases) {
    auto changed = items;
    std::string& item = changed[Find(items, c.item)];
    const auto ndims = static_cast<std::size_t>(item[29]);
    item.replace(31 + 2 * ndims + c.at, c.bytes.size(), c.bytes);
    EXPECT_EQ(Read(FileOf(changed)), c.status) << c.item << " at " << c.at;
  }
}

}  // namespace
}  // namespace zemva
