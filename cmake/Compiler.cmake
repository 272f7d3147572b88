# Compiler settings of every target: the language, the warnings, and the floating-point rules that keep the
# same bits on every run. No contraction and no fast-math anywhere: a fused multiply-add would change last bits.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Werror=switch -ffp-contract=off)
if(KORVA_WERROR)
  add_compile_options(-Werror)
endif()

# GCC 12 warns of overlapping copies, unset members and copies past the end inside its own std::string where there
# are none.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  add_compile_options(-Wno-restrict -Wno-maybe-uninitialized -Wno-array-bounds -Wno-stringop-overread
    -Wno-stringop-overflow)
endif()

# The floating-point flags are read after a calculation, so no operation may be executed that the code does not
# ask for. GCC keeps to that by default; Clang has to be told. Targets with the property KORVA_UNWATCHED do without.
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  add_compile_options($<$<NOT:$<BOOL:$<TARGET_PROPERTY:KORVA_UNWATCHED>>>:-ffp-exception-behavior=maytrap>)
else()
  add_compile_options($<$<BOOL:$<TARGET_PROPERTY:KORVA_UNWATCHED>>:-fno-trapping-math>)
endif()

if(KORVA_SANITIZE)
  add_compile_options(-fsanitize=${KORVA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${KORVA_SANITIZE})
endif()
