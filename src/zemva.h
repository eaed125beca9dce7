// The whole exported class interface.
#ifndef ZEMVA_ZEMVA_H
#define ZEMVA_ZEMVA_H

#include "data/blk_info.h"
#include "data/cla_info.h"
#include "data/dangerous_data_set_manipulator.h"
#include "data/dataset.h"
#include "data/ds_info.h"
#include "data/obs_info.h"
#include "data/var_info.h"
#include "dio/dio.h"
#include "dio/dio_data.h"
#include "dio/dio_file.h"
#include "dio/dio_item.h"
#include "dio/file_contents.h"
#include "dio/finder.h"
#include "errors/dio_error.h"
#include "errors/listing.h"
#include "errors/messages.h"
#include "errors/status.h"
#include "errors/stream_window.h"
#include "numeric/d_matrix.h"
#include "numeric/distributions.h"
#include "numeric/moments.h"
#include "numeric/uni_var.h"
#include "numeric/vector_listing.h"
#include "numeric/x_matrix.h"
#include "numeric/x_vector.h"
#include "settings/ini_file.h"
#include "settings/mod_opt.h"
#include "settings/prj_opt.h"

#endif  // ZEMVA_ZEMVA_H
