#include "OvkLib/src/ovk_exception.h"

namespace ovk {

void xout_of_memory::describe(wstring& out) const {
  out.append(u"Out of memory.");
}

void throw_out_of_memory() {
  throw xout_of_memory();
}

}  // namespace ovk
