// Dynamic storage: every block the library hands out or takes back passes
// through these three routines.
#include <cstdlib>

#include "zil_frame.h"

extern "C" Pointer x04bbc(size_t size) { return std::malloc(size); }

extern "C" Pointer x04bcc(Pointer ptr, size_t size) { return std::realloc(ptr, size); }

extern "C" void x04bdc(Pointer* ptr_address) {
  if (!ptr_address) return;
  std::free(*ptr_address);
  *ptr_address = nullptr;
}
