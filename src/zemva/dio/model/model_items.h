// The items of a model: tables, walked by whoever writes and reads them.
#ifndef ZEMVA_DIO_MODEL_MODEL_ITEMS_H
#define ZEMVA_DIO_MODEL_MODEL_ITEMS_H

#include <span>

#include "zemva/dio/model/stored_item.h"
#include "zemva/model/block/block_record.h"
#include "zemva/model/block/comp_info.h"
#include "zemva/model/driver/model_record.h"

namespace zemva {

// In the order in which they are written: those of the model, of its blocks, of each component.
std::span<const StoredItem<ModelRecord>> ModelItems();
std::span<const StoredItem<BlockRecord>> BlockItems(EBlock block);
std::span<const StoredItem<CompInfo>> ComponentItems();

}  // namespace zemva

#endif  // ZEMVA_DIO_MODEL_MODEL_ITEMS_H
