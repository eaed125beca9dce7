// What a model asks of the one who owns it.
#ifndef ZEMVA_MODEL_BLOCK_MODEL_OWNER_H
#define ZEMVA_MODEL_BLOCK_MODEL_OWNER_H

#include "zemva/base/export.h"
#include "zemva/settings/options/prj_opt.h"

namespace zemva {

class Predset;
class Workset;

// How far a fit is.
struct FitProgress {
  int component = 0;   // 1..
  int round = 0;       // of its cross-validation, 1.. ; 0 while the component itself is fitted
  int iterations = 0;  // done of that
};

// It outlives its models, and what it hands out stays its own.
class ZEMVA_API ModelOwner {
 public:
  virtual ~ModelOwner();

  // The work set that a model is made of and the prediction set that it is executed on; null where
  // there is none.
  virtual Workset* GetCurrentWorkset() = 0;
  virtual Predset* GetCurrentPredset() = 0;
  virtual const PrjOpt& GetOptions() const = 0;

  // The reply to a question that a person could be asked, in either case of letters; 'y' unless a
  // host overrides it. The questions end in "Continue model computation?", where 'n' stops, and in
  // "Exclude this observation?", where 'y' excludes.
  virtual char Ask(const char* question);

  // Whether a fit goes on, which a model asks before an iteration, at most ten times a second.
  // Where it does not, it ends with 8027 and the components that there are.
  virtual bool GoesOn(const FitProgress& progress);
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_BLOCK_MODEL_OWNER_H
