#include "zemva/data/object_base.h"

namespace zemva {
namespace {

int NextID() {
  static int last_id = 0;
  return ++last_id;
}

}  // namespace

ClassID::ClassID(const char* name) : name_(name), id_(NextID()) {}

ResetPointer::~ResetPointer() = default;

}  // namespace zemva
