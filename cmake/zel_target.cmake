# Settings of every target of the program: warnings, sanitizers, and arithmetic in source order.
# Contraction to fused multiply-add would change results from one processor to the next.
function(zel_settings target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
        -Woverloaded-virtual -Wnon-virtual-dtor
        # A row of a table may leave its last fields at their defaults.
        -Wno-missing-field-initializers
        # g++ 12 warns falsely of overlapping copies in std::string additions at -O3.
        $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
        -ffp-contract=off
        $<$<BOOL:${ZEL_WERROR}>:-Werror>)
    if(ZEL_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${ZEL_SANITIZE}
            -fno-sanitize-recover=all -fno-omit-frame-pointer
            # g++ 12 warns falsely of std::function in sanitized code.
            $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
        target_link_options(${target} PRIVATE -fsanitize=${ZEL_SANITIZE})
    endif()
endfunction()

# For code that no user waits for, and that takes long to be compiled well: optimization LEVEL
# instead of that of the build type.
function(zel_optimize target level)
    target_compile_options(${target} PRIVATE $<$<CONFIG:Release,RelWithDebInfo>:-O${level}>)
endfunction()

# Reading headers takes longer than all else: compiles the files of a target by fives. The presets
# for development and the sanitizers compile each alone, so that none can lean on its neighbour.
# Files that follow call something else by a name of a neighbour, and are always compiled alone.
function(zel_unity target)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ${ZEL_UNITY} UNITY_BUILD_BATCH_SIZE 5)
    # A name of one file hides nothing of another.
    target_compile_options(${target} PRIVATE $<$<BOOL:${ZEL_UNITY}>:-Wno-shadow>)
    if(ARGN)
        set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    endif()
endfunction()

# One static library per folder of src/; what it links is what it may include. Files named by ALONE
# are compiled alone in each build.
function(zel_library name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINKS;ALONE" ${ARGN})
    add_library(${name} STATIC ${arg_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${arg_LINKS})
    # The shared library is made of these too, and shows nothing but its own interface.
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON
        CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
    zel_settings(${name})
    zel_unity(${name} ${arg_ALONE})
endfunction()

# One test program per folder of tests/. Each of its tests is a test of its own for ctest, so that
# they run side by side.
function(zel_test name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${name}_test ${arg_SOURCES})
    target_include_directories(${name}_test PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name}_test PRIVATE ${arg_LINKS} GTest::gmock GTest::gtest_main)
    target_compile_definitions(${name}_test PRIVATE
        ZEL_SOURCE_DIR="${PROJECT_SOURCE_DIR}" ZEL_PROGRAM="$<TARGET_FILE:zel>")
    zel_settings(${name}_test)
    zel_optimize(${name}_test 0)
    zel_unity(${name}_test)
    gtest_discover_tests(${name}_test TEST_PREFIX "${name}." DISCOVERY_TIMEOUT 60 NO_PRETTY_VALUES
        PROPERTIES TIMEOUT 120)
endfunction()
