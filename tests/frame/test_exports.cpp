// Every routine and datum of the failure reporting and output runtime is
// exported from the shared library under its own name.
#include <gtest/gtest.h>

#include <dlfcn.h>

namespace {

TEST(Exports, SupportFrameNamesResolveInTheSharedLibrary) {
  void* lib = dlopen(ZIL_SHARED_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(lib, nullptr) << dlerror();
  for (const char* name :
       {"p01acc",     "f06aaz",       "f06aaz_d",   "p01abf_r",   "p01abf_f",     "p01abf_e",      "p01par_s_r",
        "p01par_s_f", "p01par_i_r",   "p01par_i_f", "f06aaf_r",   "x04bbc",       "x04bcc",        "x04bdc",
        "x04bcz",     "x04bupper",    "x04bay",     "x04bax",     "x04bau",       "x04bah",        "x04debug",
        "x04aaf_f",   "x04aaf_r",     "x04abf_r",   "x04acf_r",   "x04acz_r",     "x04adf_r",      "x04acy",
        "x04text_f",  "x04text_r",    "x04lines_r", "x04print",   "x04print_line", "x04print_msg", "zil_errlist",
        "global_resfile", "global_datafile"})
    EXPECT_NE(dlsym(lib, name), nullptr) << name;
  dlclose(lib);
}

}  // namespace
