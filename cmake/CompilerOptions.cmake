# Warnings for everything, and what the presets switch on.

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion)
option(VGDT_WARNINGS_AS_ERRORS "Warnings stop the build" OFF)
if(VGDT_WARNINGS_AS_ERRORS)
  add_compile_options(-Werror)
endif()

set(VGDT_SANITIZE "" CACHE STRING "Sanitizers, such as address,undefined")
if(VGDT_SANITIZE)
  add_compile_options(-fsanitize=${VGDT_SANITIZE} -fno-sanitize-recover=undefined
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VGDT_SANITIZE})
endif()

option(VGDT_COVERAGE "Count executed lines" OFF)
if(VGDT_COVERAGE)
  add_compile_options(--coverage -fprofile-update=atomic)
  add_link_options(--coverage)
endif()

# Calls within a source file may be inlined, and those into another library go straight to their
# address.
add_compile_options(-fno-semantic-interposition -fno-plt)

# The statics of inline functions are ordinary symbols. Unique ones would be looked up in a table of
# the whole process, and would keep every library loaded that has one, without anybody having said
# so: the one library that has to stay says it where it is linked.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  add_compile_options(-fno-gnu-unique)
endif()

if(NOT VGDT_SANITIZE AND NOT VGDT_BUILD_FUZZERS)
  add_link_options(LINKER:--no-undefined LINKER:-O1 LINKER:--as-needed)
endif()

# Coverage feedback for the fuzzers, in the libraries as well.
if(VGDT_BUILD_FUZZERS)
  add_compile_options(-fsanitize=fuzzer-no-link)
  add_link_options(-fsanitize=fuzzer-no-link)
endif()
