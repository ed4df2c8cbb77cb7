# Options that hold for every target of the project.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

# One run folder: libraries, plugins and hosts lie beside each other, as they do when installed.
set(ORVIK_RUN_DIR ${CMAKE_BINARY_DIR}/bin)
set(ORVIK_TEST_DIR ${CMAKE_BINARY_DIR}/tests)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${ORVIK_RUN_DIR})
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${ORVIK_RUN_DIR})
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/archive)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN")
set(ORVIK_INSTALL_DIR lib/pellux)

add_library(orvik_warnings INTERFACE)
target_compile_options(orvik_warnings INTERFACE
    -Wall -Wextra -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Wsuggest-override
    $<$<BOOL:${ORVIK_WERROR}>:-Werror>)

# Machine faults become exceptions, so any instruction may throw; results never depend on FMA.
add_library(orvik_code INTERFACE)
target_compile_options(orvik_code INTERFACE
    -fnon-call-exceptions -fasynchronous-unwind-tables -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    set_property(TARGET orvik_code PROPERTY INTERFACE_COMPILE_OPTIONS
        -fasynchronous-unwind-tables -ffp-contract=off)
endif()
if(NOT WIN32)
    target_link_options(orvik_code INTERFACE -Wl,-Bsymbolic-functions)
endif()

if(ORVIK_SANITIZE)
    string(REPLACE "," ";" sanitizers "${ORVIK_SANITIZE}")
    foreach(sanitizer IN LISTS sanitizers)
        add_compile_options(-fsanitize=${sanitizer})
        add_link_options(-fsanitize=${sanitizer})
    endforeach()
    add_compile_options(-fno-omit-frame-pointer)
    # A source of every host, test and victim.
    set(ORVIK_SANITIZER_DEFAULTS ${PROJECT_SOURCE_DIR}/tests/support/SanitizerDefaults.cpp)
    if("undefined" IN_LIST sanitizers)
        add_compile_options(-fno-sanitize=vptr -fno-sanitize-recover=undefined)
    endif()
endif()
if(ORVIK_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
