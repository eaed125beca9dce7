// The kinds of models, and the two blocks of variables that they are made of.
#ifndef ZEMVA_MODEL_WORKSET_MODEL_TYPE_H
#define ZEMVA_MODEL_WORKSET_MODEL_TYPE_H

#include "zemva/base/export.h"

namespace zemva {

// PC are principal components, PLS is partial least squares. Block 1 is the X variables of the work
// set, block 2 its Y variables. The values are part of the interface.
enum class EModType : int {
  kPC1 = 1,              // PC of block 1
  kPLS12 = 2,            // block 2 from block 1
  kPC2 = 3,              // PC of block 2
  kPCAll = 4,            // PC of both
  kPC1Cl = 5,            // PC of block 1 for the observations of one class
  kPLS21 = 6,            // block 1 from block 2
  kPLS1DA = 7,           // the classes from block 1
  kNoVarianceCheck = 9,  // PC of block 1, also of variables that do not vary
  kPLS1DAOld = 10        // as kPLS1DA
};

// What a model calls its two matrices: PC models have X alone.
enum class EBlock { kX, kY };

// False for both where the value is no type, or kNoVarianceCheck, which follows the rules of
// neither.
ZEMVA_API bool IsPCFamily(EModType type);
ZEMVA_API bool IsPLSFamily(EModType type);

// Whether the type is one of classes by partial least squares, whose Y stands for the classes
// and not for variables; and whether the block is that Y.
ZEMVA_API bool IsDiscriminant(EModType type);
ZEMVA_API bool IsClassBlock(EModType type, EBlock block);

// The name of a type in listings, with the blanks that follow it: "PC-1  ".
ZEMVA_API const char* GetModTypeTag(EModType type);

}  // namespace zemva

#endif  // ZEMVA_MODEL_WORKSET_MODEL_TYPE_H
