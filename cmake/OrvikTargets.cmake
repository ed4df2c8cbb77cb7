# The functions through which every target of the project is made.

# orvik_add_folders(FOLDER...): adds each folder that has a CMakeLists.txt; folders named "tests"
# only where tests are built.
function(orvik_add_folders)
    foreach(folder IN LISTS ARGN)
        if(folder STREQUAL "tests" AND NOT ORVIK_BUILD_TESTS)
            continue()
        endif()
        if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/CMakeLists.txt)
            add_subdirectory(${folder})
        endif()
    endforeach()
endfunction()

# orvik_add_library(NAME n ALIAS A::B LAYER layer DEFINE MACRO): an exported shared library in the
# run folder. Sources and headers are added with target_sources by the caller.
function(orvik_add_library)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME;ALIAS;LAYER;DEFINE" "")
    add_library(${arg_NAME} SHARED)
    add_library(${arg_ALIAS} ALIAS ${arg_NAME})
    string(REGEX REPLACE "^.*::" "" export_name ${arg_ALIAS})
    set_target_properties(${arg_NAME} PROPERTIES
        EXPORT_NAME ${export_name}
        DEFINE_SYMBOL ${arg_DEFINE}_EXPORTS)
    target_link_libraries(${arg_NAME} PRIVATE $<BUILD_INTERFACE:orvik_warnings>
                                              $<BUILD_INTERFACE:orvik_code>)
    target_compile_features(${arg_NAME} PUBLIC cxx_std_20)
    orvik_set_layer(${arg_NAME} ${arg_LAYER})
    set_property(GLOBAL APPEND PROPERTY ORVIK_LIBRARIES ${arg_NAME})
endfunction()

# orvik_add_archive(NAME n LAYER layer SOURCES ... DEPS ...): a static library inside one plugin
# or shared by plugins of one kind.
function(orvik_add_archive)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME;LAYER" "SOURCES;DEPS")
    add_library(${arg_NAME} STATIC ${arg_SOURCES})
    target_link_libraries(${arg_NAME} PUBLIC ${arg_DEPS} PRIVATE orvik_warnings orvik_code)
    orvik_set_layer(${arg_NAME} ${arg_LAYER})
endfunction()

# orvik_add_plugin(NAME n SOURCES ... DEPS ...): <run folder>/<n>.dll, without prefix.
function(orvik_add_plugin)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME" "SOURCES;DEPS")
    add_library(${arg_NAME} MODULE ${arg_SOURCES})
    set_target_properties(${arg_NAME} PROPERTIES PREFIX "" SUFFIX ".dll")
    target_link_libraries(${arg_NAME} PRIVATE ${arg_DEPS} orvik_warnings orvik_code)
    orvik_set_layer(${arg_NAME} plugin)
    install(TARGETS ${arg_NAME} LIBRARY DESTINATION ${ORVIK_INSTALL_DIR})
    set_property(GLOBAL APPEND PROPERTY ORVIK_PLUGINS ${arg_NAME})
endfunction()

# orvik_add_host(NAME n SOURCES ... DEPS ...): a program in the run folder.
function(orvik_add_host)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME" "SOURCES;DEPS")
    add_executable(${arg_NAME} ${arg_SOURCES} ${ORVIK_SANITIZER_DEFAULTS})
    target_link_libraries(${arg_NAME} PRIVATE ${arg_DEPS} orvik_warnings orvik_code)
    orvik_set_layer(${arg_NAME} host)
    install(TARGETS ${arg_NAME} RUNTIME DESTINATION ${ORVIK_INSTALL_DIR})
    install(CODE "
        file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
        file(CREATE_LINK \"../${ORVIK_INSTALL_DIR}/${arg_NAME}\"
             \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/${arg_NAME}\" SYMBOLIC)")
endfunction()

# orvik_add_test(NAME n LABELS l SOURCES ... DEPS ... [ENVIRONMENT VAR=value...] [TIMEOUT s]):
# a GoogleTest program outside the run folder; each test is a process of its own.
function(orvik_add_test)
    if(NOT ORVIK_BUILD_TESTS)
        return()
    endif()
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME;TIMEOUT" "LABELS;SOURCES;DEPS;ENVIRONMENT")
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    add_executable(${arg_NAME} ${arg_SOURCES} ${ORVIK_SANITIZER_DEFAULTS})
    set_target_properties(${arg_NAME} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${ORVIK_TEST_DIR})
    target_include_directories(${arg_NAME} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support)
    target_link_libraries(${arg_NAME} PRIVATE ${arg_DEPS} GTest::gmock GTest::gtest GTest::gtest_main
                          orvik_warnings orvik_code)
    orvik_set_layer(${arg_NAME} test)
    list(LENGTH arg_LABELS labels)
    if(labels GREATER 1)
        # The properties of discovered tests are a flat list: a second label would be read as one.
        message(FATAL_ERROR "${arg_NAME}: a test program has one label")
    endif()
    gtest_discover_tests(${arg_NAME}
        TEST_PREFIX ${arg_NAME}.
        DISCOVERY_TIMEOUT 120
        PROPERTIES LABELS "${arg_LABELS}" TIMEOUT ${arg_TIMEOUT} ENVIRONMENT "${arg_ENVIRONMENT}")
endfunction()

# orvik_add_victim(NAME n SOURCES ... DEPS ...): a program that faults on purpose, run by tests.
function(orvik_add_victim)
    if(NOT ORVIK_BUILD_TESTS)
        return()
    endif()
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME" "SOURCES;DEPS")
    add_executable(${arg_NAME} ${arg_SOURCES} ${ORVIK_SANITIZER_DEFAULTS})
    set_target_properties(${arg_NAME} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${ORVIK_TEST_DIR}/victims)
    target_link_libraries(${arg_NAME} PRIVATE ${arg_DEPS} orvik_warnings orvik_code)
    orvik_set_layer(${arg_NAME} test)
endfunction()

# orvik_add_test_plugin(NAME n OUTPUT file FOLDER f SOURCES ... DEPS ...): a plugin for tests in
# build/<preset>/tests/<f>/<file>, never in the run folder, where every start would probe it.
function(orvik_add_test_plugin)
    if(NOT ORVIK_BUILD_TESTS)
        return()
    endif()
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME;OUTPUT;FOLDER" "SOURCES;DEPS")
    add_library(${arg_NAME} MODULE ${arg_SOURCES})
    string(REGEX REPLACE "\\.dll$" "" output ${arg_OUTPUT})
    set_target_properties(${arg_NAME} PROPERTIES PREFIX "" SUFFIX ".dll" OUTPUT_NAME ${output}
        LIBRARY_OUTPUT_DIRECTORY ${ORVIK_TEST_DIR}/${arg_FOLDER})
    target_link_libraries(${arg_NAME} PRIVATE ${arg_DEPS} orvik_warnings orvik_code)
    orvik_set_layer(${arg_NAME} test)
endfunction()

# orvik_add_bench(NAME n SOURCES ... DEPS ...): a Google Benchmark program.
function(orvik_add_bench)
    if(NOT ORVIK_BUILD_BENCH)
        return()
    endif()
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME" "SOURCES;DEPS")
    add_executable(${arg_NAME} ${arg_SOURCES})
    set_target_properties(${arg_NAME} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bench)
    target_link_libraries(${arg_NAME} PRIVATE ${arg_DEPS} benchmark::benchmark
                          benchmark::benchmark_main orvik_warnings orvik_code)
    orvik_set_layer(${arg_NAME} test)
endfunction()
