// Models in files.
#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/resource.h>

#include <csignal>
#endif

#include <algorithm>
#include <filesystem>
#include <memory>
#include <set>
#include <span>
#include <string>

#include "dio/model_bench.h"
#include "support/model_answers.h"
#include "support/recording_window.h"
#include "support/temp_folder.h"
#include "support/vdo_builder.h"
#include "zemva/dio/dataset/dio_exp.h"
#include "zemva/dio/model/dio_model.h"
#include "zemva/model/driver/model_record.h"
#include "zemva/numeric/s_vector.h"
#include "zemva/vectors/vec_spec.h"

namespace zemva {
namespace {

using test::AnswersOf;
using test::KindOfModel;
using test::kKindsOfModels;
using test::ModelBench;

class ModelFile : public testing::Test {
 protected:
  std::unique_ptr<Model> Read(const std::string& path, ModelOwner* owner = nullptr) {
    std::unique_ptr<Model> model(Model::Read(path.c_str(), owner, window_, nullptr, status_));
    EXPECT_EQ(model == nullptr, status_ != 0);
    return model;
  }
  std::unique_ptr<Model> SaveAndRead(Model& model, ModelOwner* owner = nullptr) {
    model.SetModAddr(path_.c_str());
    EXPECT_EQ(model.Save(7), 0);
    return Read(path_, owner);
  }
  // What one answers from the first difference on, shortly.
  static std::string Difference(Model& one, Model& other) {
    const std::string first = AnswersOf(one);
    const std::string second = AnswersOf(other);
    if (first == second) return "";
    const auto [from, to] = std::ranges::mismatch(first, second);
    const auto at = static_cast<std::size_t>(from - first.begin());
    return "at " + std::to_string(at) + ": " + first.substr(at < 40 ? 0 : at - 40, 80);
  }
  // But for the time of writing.
  static std::string BytesOf(const std::string& path) {
    std::string bytes = test::ReadBytes(path);
    if (bytes.size() > 108) bytes.replace(86, 22, 22, ' ');
    return bytes;
  }

  test::TempFolder folder_;
  std::string path_ = folder_.File("model.mdl");
  test::RecordingWindow window_;
  int status_ = 0;
};

TEST_F(ModelFile, OfAnyKindAnswersAndPredictsAsTheSavedModelDid) {
  const auto others = test::SmallDataset("fedcbax", test::Noise().Table(9, 7));
  const auto narrow = test::SmallDataset("ab", test::Noise().Table(5, 2));
  const Workset of_narrow("WS", *narrow, window_);
  Predset stranger("PS", *narrow, of_narrow);
  for (const KindOfModel& kind : kKindsOfModels) {
    SCOPED_TRACE(kind.what);
    ModelBench bench(kind);
    for (const bool is_unloaded : {false, true}) {
      if (is_unloaded) bench.model->Unload();
      const auto read = SaveAndRead(*bench.model);
      ASSERT_NE(read, nullptr) << status_;
      EXPECT_EQ(Difference(*read, *bench.model), "");
      EXPECT_FALSE(read->IsLoaded());
      // What was read is what is written.
      const std::string first = BytesOf(path_);
      read->SetModAddr(folder_.File("again.mdl").c_str());
      EXPECT_EQ(read->Save(7), 0);
      EXPECT_TRUE(BytesOf(folder_.File("again.mdl")) == first);
      if (is_unloaded || read->GetA() == 0) continue;
      // Without its data; of others, and of its own observations, beside the work set again.
      Predset of_saved("PS", *others, bench.workset);
      Predset of_read("PS", *others, *read->GetVarInfoDS());
      Predset own("PS", *bench.dataset, bench.workset);
      EXPECT_EQ(bench.model->ExecPS(of_saved), 0);
      EXPECT_EQ(read->ExecPS(of_read), 0);
      EXPECT_EQ(read->GetNObsPS(), 9);
      EXPECT_EQ(Difference(*read, *bench.model), "");
      EXPECT_EQ(bench.model->ExecPS(own), 0);
      EXPECT_EQ(read->ExecPS(own), 0);
      EXPECT_TRUE(read->IsMembPS(1));
      EXPECT_EQ(Difference(*read, *bench.model), "");
      EXPECT_EQ(read->ExecPS(stranger), 8040);
      EXPECT_EQ(bench.model->DeletePSResults(), 0);
    }
  }
}

// Written once and kept: every later release reads them.
TEST_F(ModelFile, OfTheFirstVersionIsRead) {
  const struct {
    const char* file;
    short observations, variables, responses;
    char components;
    const char* dataset;
    float r2x, q2, first_score;
  } cases[] = {
      {"iris_pc.mdl", 150, 4, 0, 2, "iris", 0.958f, 0.813f, 2.257f},
      {"mtcars_pls.mdl", 32, 12, 2, 2, "mtcars", 0.716f, 0.809f, -0.335f},
      {"iris_classes.mdl", 150, 4, 3, 2, "iris", 0.957f, 0.549f, 2.285f},
  };
  for (const auto& c : cases) {
    const auto model = Read(std::string(ZEMVA_SAMPLES "/") + c.file);
    ASSERT_NE(model, nullptr) << c.file << " " << status_;
    EXPECT_EQ(model->GetNObs(), c.observations);
    EXPECT_EQ(model->GetNVarX(), c.variables);
    EXPECT_EQ(model->GetNVarY(), c.responses);
    EXPECT_EQ(model->GetA(), c.components);
    EXPECT_STREQ(model->GetDSNam(), c.dataset);
    EXPECT_NEAR(model->GetR2X(2), c.r2x, 0.001f);
    EXPECT_NEAR(c.responses > 0 ? model->GetQ2Y(2) : model->GetQ2X(2), c.q2, 0.001f);
    EXPECT_NEAR(model->GetT(1, 1), c.first_score, 0.001f);
    const auto dataset = test::Sample(c.dataset);
    Predset predset("PS", *dataset, *model->GetVarInfoDS());
    EXPECT_EQ(model->ExecPS(predset), 0);
    EXPECT_NEAR(model->GetTPredPS(1, 1), c.first_score, 0.001f);
  }
}

// Of two models, the saved one first: their answers to a request of a vector, its names or its
// numbers.
struct VectorAnswers {
  int status[2] = {};
  std::string answers[2];
};

VectorAnswers AskForVector(Model& saved, Model& read, const VecSpec& spec) {
  VectorAnswers all;
  for (const int which : {0, 1}) {
    Model& model = which == 0 ? saved : read;
    std::string& answer = all.answers[which];
    XFVector* values = nullptr;
    all.status[which] = model.GetXFVector(&spec, values);
    const std::unique_ptr<XFVector> owned(values);
    if (values != nullptr) {
      answer = values->GetName();
      const auto bytes = std::as_bytes(std::span(values->Values()));
      answer.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    }
    for (const bool is_by_number : {false, true}) {
      XSVector* labels = nullptr;
      answer += std::to_string(model.GetXSVector(&spec, labels, is_by_number));
      const std::unique_ptr<XSVector> owned_labels(labels);
      for (int i = 1; labels != nullptr && i <= labels->NVal(); ++i) answer += (*labels)[i];
    }
  }
  return all;
}

TEST_F(ModelFile, GivesAllVectorsButThoseOfTheDataOfX) {
  using enum CEVecType::EVT;
  const auto others = test::SmallDataset("fedcba", test::Noise().Table(5, 6));
  int given = 0;
  for (const KindOfModel& kind : kKindsOfModels) {
    SCOPED_TRACE(kind.what);
    ModelBench bench(kind);
    // A component that is dropped leaves no trace.
    if (bench.model->GetA() > 2) {
      EXPECT_EQ(bench.model->Reset(2), 0);
      EXPECT_EQ(bench.model->ExecLS(char{0}), 0);
    }
    const auto read = SaveAndRead(*bench.model);
    ASSERT_NE(read, nullptr);
    Predset predset("PS", *others, bench.workset);
    Predset predset_of_read("PS", *others, *read->GetVarInfoDS());
    if (read->GetA() > 0) {
      EXPECT_EQ(bench.model->ExecPS(predset), 0);
      EXPECT_EQ(read->ExecPS(predset_of_read), 0);
    }
    const short x_count = read->GetNVarX();
    std::set<int> of_data;
    const auto compare = [&](VecSpec spec) {
      for (const short comp : {VecSpec::kNoComp, short{-1}, short{0}, short{1}, short{3}}) {
        spec.SetComp(comp);
        const VectorAnswers all = AskForVector(*bench.model, *read, spec);
        const bool is_of_y = spec.GetVType() == VarRes && spec.GetIx() > x_count;
        if (all.status[0] == 0 && all.status[1] == 8009 && !is_of_y) {
          of_data.insert(spec.GetVType());
          continue;
        }
        EXPECT_EQ(all.status[1] == 0, all.status[0] == 0) << spec.GetName();
        if (all.status[0] != 0) continue;
        EXPECT_TRUE(all.answers[1] == all.answers[0]) << spec.GetName();
        ++given;
      }
    };
    for (int type = 1; type <= 110; ++type) {
      for (const auto units :
           {CEElmType::Plain, CEElmType::Transformed, CEElmType::Standardized, CEElmType::Scaled}) {
        for (const short ix : {short{0}, short{1}, short{2}, x_count, short(x_count + 1)}) {
          compare(VecSpec(static_cast<CEVecType::EVT>(type), ix, 0, units));
        }
      }
    }
    EXPECT_EQ(of_data, kind.component_count == 0 ? (std::set<int>{X, ObsX})
                                                 : (std::set<int>{VarRes, X, XRes, ObsX, ObsXRes}));
  }
  EXPECT_GT(given, 2500);
}

TEST_F(ModelFile, TakesItsDataAgainAndIsFittedFurther) {
  for (const KindOfModel& kind : kKindsOfModels) {
    if (kind.component_count == 0 || kind.type == EModType::kPCAll) continue;
    SCOPED_TRACE(kind.what);
    ModelBench bench(kind);
    test::Owner owner;
    const auto read = SaveAndRead(*bench.model, &owner);
    EXPECT_EQ(read->CalcComp(), 8009);
    EXPECT_EQ(read->Reset(read->GetA()), 0);
    EXPECT_EQ(read->Load(), 8011);
    EXPECT_EQ(read->Reset(read->GetA()), 0);

    const auto others = test::SmallDataset("abcdef", test::Noise().Table(14, 6));
    Workset other("WS", *others, window_);
    ModOpt ignored;
    kind.prepare(other, ignored);
    owner.workset = &other;
    EXPECT_EQ(read->Load(), 8040);
    EXPECT_EQ(read->Reset(read->GetA()), 0);

    owner.workset = &bench.workset;
    EXPECT_EQ(read->Load(), 0);
    EXPECT_EQ(read->Center(), 0);
    EXPECT_EQ(read->GetXResLS(1, 2, 1), bench.model->GetXResLS(1, 2, 1));
    for (Model* const model : {bench.model.get(), read.get()}) EXPECT_EQ(model->CalcComp(), 0);
    EXPECT_EQ(read->GetA(), kind.component_count + 1);
    EXPECT_EQ(Difference(*read, *bench.model), "");
  }
}

TEST_F(ModelFile, KeepsEveryOptionInTheRecordOfItsReader) {
  ModelBench bench(kKindsOfModels[0]);
  ModOpt& o = bench.options;
  o.SetIsCenter(false), o.SetIsXDesigned(true), o.SetIsSeq(false), o.SetIsRule(true);
  o.SetRuleValidate(EValidate::Eig), o.SetSeqValidate(EValidate::NoCV), o.SetNComp(-3);
  o.SetMaxIter(11), o.SetNCV(12), o.SetCompLimLoa(1.25f), o.SetCompLimScr(1.5f);
  o.SetMaxMisValObsLS(1.0f), o.SetMaxMisValVarLS(2.0f), o.SetMaxMisValObsPS(3.0f);
  o.SetMaxMisValVarPS(4.0f), o.SetLagDecay(0.5f), o.SetIsShoScrLim(true), o.SetIsShoLoaLim(true);
  o.SetXOpt1(-32768), o.SetAUseLS(2), o.SetIsBackTraYLS(false), o.SetIsNormDistLS(false);
  o.SetSignLevLS(0.125f), o.SetIsStdResLS(false), o.SetAUsePS(1), o.SetIsBackTraYPS(false);
  o.SetIsNormDistPS(false), o.SetSignLevPS(0.25f), o.SetIsWResPS(true), o.SetIsWResLS(true);
  o.SetIsResFilePS(true), o.SetIsResWinPS(true), o.SetIsStdResPS(false), o.SetIsSaveResPS(true);
  o.SetIsScaResPS(false), o.SetAShow(-1), o.SetECoefficient(static_cast<CEVecType::EVT>(110));
  o.SetDModType(EDModType::DModY), o.SetEObjectPlotMark(EPltMark::None);
  o.SetER2(EVariType::R2adj), o.SetEVariablePlotMark(EPltMark::Number);
  o.SetObjectPlotMarkLength(21), o.SetObjectPlotMarkStart(22), o.SetVariablePlotMarkLength(23);
  o.SetVariablePlotMarkStart(24), o.SetSelectVariable(25), o.SetIsModifiedByUser(true);
  bench.model->SetModAddr(path_.c_str());
  ASSERT_EQ(bench.model->Save(1), 0);

  ModOpt options;
  const std::unique_ptr<Model> read(
      Model::Read(path_.c_str(), &bench.owner, window_, &options, status_));
  ASSERT_EQ(status_, 0);
  EXPECT_EQ(read->GetModOpt(), &options);
  EXPECT_TRUE(options == o);
  EXPECT_EQ(read->MakeRecord().loading_limit, 1.25f);
}

TEST_F(ModelFile, NumbersNoMoreThan99Components) {
  test::Bench bench(std::string(100, 'v'), test::Noise().Table(110, 100));
  bench.options.SetMaxIter(2);
  ASSERT_EQ(bench.Compute(99), 0);
  const auto read = SaveAndRead(bench.model);
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(Difference(*read, bench.model), "");
  const std::string before = test::ReadBytes(path_);
  ASSERT_EQ(bench.Compute(100), 0);
  EXPECT_EQ(bench.model.Save(7), 8019);
  EXPECT_TRUE(test::ReadBytes(path_) == before);
}

TEST_F(ModelFile, SavesAModelWithoutDataAndAnUnloadedOne) {
  test::Bench bench("ab", {{1, 2}, {3, 4}, {5, 7}, {8, 2}, {4, 4}});
  bench.model.SetModNam("Empty");
  const auto empty = SaveAndRead(bench.model, &bench.owner);
  ASSERT_NE(empty, nullptr) << status_;
  EXPECT_STREQ(empty->GetModNam(), "Empty");
  EXPECT_EQ(empty->GetNObs(), 0);
  EXPECT_EQ(bench.Compute(1), 0);
  EXPECT_EQ(empty->Compute(), 0);
  EXPECT_EQ(empty->GetT(1, 3), bench.model.GetT(1, 3));

  bench.model.Unload();
  const auto unloaded = SaveAndRead(bench.model, &bench.owner);
  ASSERT_NE(unloaded, nullptr);
  EXPECT_EQ(unloaded->GetT(1, 3), bench.model.GetT(1, 3));
  EXPECT_EQ(unloaded->Load(), 0);
  EXPECT_EQ(unloaded->GetObsInfo()->GetNItm(), 5);
  EXPECT_STREQ(unloaded->GetModAddr(), path_.c_str());
  EXPECT_EQ(unloaded->DeleteFiles(), 0);
  EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(ModelFile, IsSavedOverNothingElse) {
  test::Bench bench("ab", {{1, 2}, {3, 4}, {5, 7}, {8, 2}});
  Model& model = bench.model;
  EXPECT_EQ(model.Save(3), 2011);
  EXPECT_EQ(model.GetModNum(), 3);
  model.SetModAddr(path_.c_str());
  const std::string whole = (model.Save(3), test::ReadBytes(path_));
  const auto status_over = [&](const std::string& bytes) {
    test::WriteBytes(path_, bytes);
    const int status = model.Save(3);
    EXPECT_EQ(test::ReadBytes(path_) == bytes, status != 0);
    EXPECT_EQ(model.GetStatus(), 0);
    return status;
  };
  EXPECT_EQ(status_over(""), 0);
  EXPECT_EQ(status_over(whole.substr(0, whole.size() / 2)), 2005);
  EXPECT_EQ(status_over("Results of last year, in no other place than this.\n"), 2005);
  EXPECT_EQ(status_over(test::SmallFile()), 2000);
  EXPECT_EQ(status_over(whole + "x"), 2000);
  std::string later = whole;
  later[110 + 31] = DioModel::kVersion + 1;
  EXPECT_EQ(status_over(later), 2017);
  EXPECT_EQ(Read(path_), nullptr);
  EXPECT_EQ(status_, 2017);
  bench.window.log.clear();
  model.SetModAddr(folder_.File("no/such/folder.mdl").c_str());
  EXPECT_EQ(model.Save(3), 2002);
  EXPECT_EQ(bench.window.log, "Could not save model\n");
  model.SetModAddr((path_ + std::string(300, 'x')).c_str());
  EXPECT_EQ(model.Save(3), 2011);
  EXPECT_EQ(Read(folder_.File("none.mdl")), nullptr);
  EXPECT_EQ(status_, 2004);
}

#ifndef _WIN32

TEST_F(ModelFile, StaysAsItWasWhereTheDiskIsFull) {
  ModelBench bench(kKindsOfModels[6]);
  bench.model->SetModAddr(path_.c_str());
  ASSERT_EQ(bench.model->Save(1), 0);
  const std::string before = test::ReadBytes(path_);
  bench.model->Reset(1);
  signal(SIGXFSZ, SIG_IGN);
  rlimit limit;
  getrlimit(RLIMIT_FSIZE, &limit);
  for (const rlim_t bytes : {rlim_t{0}, rlim_t{200}, rlim_t{before.size() / 3}}) {
    const rlimit small_limit = {bytes, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small_limit);
    EXPECT_EQ(bench.model->Save(1), 2006) << "after " << bytes << " bytes";
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_TRUE(test::ReadBytes(path_) == before);
  }
  signal(SIGXFSZ, SIG_DFL);
  EXPECT_EQ(bench.model->Save(1), 0);
  EXPECT_EQ(Read(path_)->GetA(), 1);
}

#endif

TEST_F(ModelFile, ResultsAreDataOfAFurtherModel) {
  ModelBench bench(kKindsOfModels[0]);
  const std::string path = folder_.File("results.vdo");
  DIOExp results(path.c_str(), "Results", window_);
  EXPECT_EQ(results.Save(), 8009);
  ObsInfo one("One");
  one.AddObs(1, "o");
  EXPECT_EQ(results.SetObservations(one), 0);
  const ModelRecord record = bench.model->MakeRecord();
  EXPECT_EQ(results.Add(record.components[1]->t), 8021);
  DIOExp without_names(path.c_str(), "Results", window_);
  EXPECT_EQ(without_names.Add(record.components[1]->t), 0);
  EXPECT_EQ(without_names.SetObservations(one), 8021);
  EXPECT_EQ(results.SetObservations(*record.observations), 0);
  EXPECT_EQ(results.Add(record.components[1]->t), 0);
  EXPECT_EQ(results.Add(record.components[0]->p), 8021);
  const std::unique_ptr<XFMatrix> residuals(bench.model->MakeResid(2));
  residuals->SetName("XRes");
  EXPECT_EQ(results.Add(*residuals, record.x.variables.get()), 0);
  EXPECT_EQ(results.SetObservations(ObsInfo("None")), 8021);
  ASSERT_EQ(results.Save(), 0);
  Dataset read("", path.c_str(), window_);
  ASSERT_EQ(read.Load(), 0);
  EXPECT_EQ(read.GetNVarDS(), 7);
  EXPECT_EQ(read.GetNObsDS(), 14);
  short number = 0;
  char* name = nullptr;
  EXPECT_EQ(read.GetObsInfo(14, number, name), 0);
  EXPECT_EQ(std::to_string(number) + name, "140o14");
  EXPECT_EQ(read.GetVarInfo(1, number, name), 0);
  EXPECT_STREQ(name, "t[2]");
  EXPECT_EQ(read.GetVarInfo(7, number, name), 0);
  EXPECT_STREQ(name, "XRes(f)");
  EXPECT_EQ(read[5][1], record.components[1]->t[5]);
  EXPECT_EQ(read[5][7], (*residuals)[5][6]);
}

}  // namespace
}  // namespace zemva
