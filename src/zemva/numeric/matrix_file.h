// Matrix files.
#ifndef ZEMVA_NUMERIC_MATRIX_FILE_H
#define ZEMVA_NUMERIC_MATRIX_FILE_H

#include <string>
#include <string_view>

#include "zemva/numeric/f_matrix.h"

namespace zemva {

// A matrix file is text:
//
//   zemva matrix 2 3
//   1.5 -2 .
//   0.25 1e+20 7
//
// a line with the number of rows and columns, then a line a row. A value is written in as few
// digits as give it back exactly; a missing one is ".". Reading takes blanks and line ends alike.

std::string FormatMatrix(const FMatrix& matrix);

// Puts what the text holds in the place of the matrix. 5000 when it is no matrix file: other
// numbers of values than it promises, or what is no number; 5001. The matrix is then unchanged. A
// size is believed only as far as the text is long enough for it.
int ParseMatrix(std::string_view text, FMatrix& matrix);

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_MATRIX_FILE_H
