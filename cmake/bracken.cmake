# Warnings, sanitizers and the include root, in one place; every target of the project links this.
add_library(bracken_options INTERFACE)
target_compile_options(bracken_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
    -Wcast-qual -Wconversion -Wno-sign-conversion
    $<$<BOOL:${BRACKEN_WERROR}>:-Werror>
    # The geometry is defined without fused multiply-add.
    -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 raises false alarms in sums of std::string, and takes an accessor that bears its class's
    # name for one that hides the constructor; Clang goes on looking for shadowed members.
    target_compile_options(bracken_options INTERFACE -Wno-restrict -Wno-shadow -Wshadow=local)
endif()
target_include_directories(bracken_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
if(BRACKEN_SANITIZE)
    target_compile_options(bracken_options INTERFACE
        -fsanitize=${BRACKEN_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    # The look at an object's class opens a pipe, and takes a failure for a wrong class: tests that
    # use up all descriptors would be reported.
    target_compile_options(bracken_options INTERFACE -fno-sanitize=vptr)
    target_link_options(bracken_options INTERFACE -fsanitize=${BRACKEN_SANITIZE})
endif()

# bracken_library(NAME LIBRARY...): one static library of all sources of this folder, bracken_NAME.
function(bracken_library name)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS *.cpp *.h)
    add_library(bracken_${name} STATIC ${sources})
    target_link_libraries(bracken_${name} PUBLIC bracken_options ${ARGN})
endfunction()

# bracken_test(NAME LABEL LIBRARY...): one test program of all sources of this folder, test_NAME.
function(bracken_test name label)
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    add_executable(test_${name} ${sources})
    target_include_directories(test_${name} PRIVATE ${CMAKE_SOURCE_DIR})
    target_link_libraries(test_${name} PRIVATE ${ARGN} bracken_test_support GTest::gtest)
    add_test(NAME ${name} COMMAND test_${name} --gtest_shuffle --gtest_brief=1)
    set_tests_properties(${name} PROPERTIES LABELS ${label} TIMEOUT 600)
endfunction()
