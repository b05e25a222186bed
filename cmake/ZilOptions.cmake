# Compiler settings shared by every chapter.

# No fused multiply-add may change the rounding of the library's exact
# arithmetic (the double-double inner product, the safeguarded scalars).
set(ZIL_COMPILE_OPTIONS -ffp-contract=off -fno-math-errno -Wall -Wextra)
set(ZIL_LINK_LIBS m)

if(ZIL_SANITIZE AND ZIL_TSAN)
  message(FATAL_ERROR "ZIL_SANITIZE and ZIL_TSAN cannot be combined")
endif()
if(ZIL_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(ZIL_TSAN)
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
endif()

find_package(Threads REQUIRED)
list(APPEND ZIL_LINK_LIBS Threads::Threads)

# Level-2/3 arithmetic and the factorisations come from OpenBLAS.
set(BLA_VENDOR OpenBLAS)
find_package(BLAS REQUIRED)
find_package(LAPACK REQUIRED)
list(APPEND ZIL_LINK_LIBS ${LAPACK_LIBRARIES} ${BLAS_LIBRARIES})
