# How every target of the project is compiled, and the two ways in which targets are made.

add_library(kest_flags INTERFACE)
target_compile_definitions(kest_flags INTERFACE
    QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_DEPRECATED_WARNINGS
    QT_DISABLE_DEPRECATED_BEFORE=0x050f00)
target_compile_options(kest_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
    -Wold-style-cast -Woverloaded-virtual -Wundef -Wcast-align -Wimplicit-fallthrough
    $<$<BOOL:${KEST_WERROR}>:-Werror>)
target_include_directories(kest_flags INTERFACE ${PROJECT_SOURCE_DIR}/compat)
target_link_libraries(kest_flags INTERFACE Threads::Threads)

# Qt 6 counts in 64 bits, Qt 5 in 32. The station says where it narrows a count; a test's own counts are small, and Qt 5
# watches over all its other conversions.
add_library(kest_test_flags INTERFACE)
if(KEST_QT EQUAL 6)
    target_compile_options(kest_test_flags INTERFACE -Wno-conversion)
endif()

# Qt tells every test program the folders of the project, for QFINDTESTDATA, which no test uses; without them a compiler
# cache knows the tests again in whatever folder.
set_property(TARGET Qt${KEST_QT}::Test PROPERTY INTERFACE_COMPILE_DEFINITIONS QT_TESTLIB_LIB)

if(KEST_SANITIZE)
    add_compile_options(-fsanitize=${KEST_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${KEST_SANITIZE})
    add_compile_definitions(KEST_SANITIZED)
endif()

# kest_add_library(<name> SOURCES ... LINK ...): one floor of the house. Includes are written from src/.
function(kest_add_library name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${arg_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${arg_LINK} PRIVATE kest_flags)
endfunction()

# kest_add_preload(<name> <source>): a module to be preloaded into a program, into which no second copy of a sanitizer may
# be loaded.
function(kest_add_preload name source)
    add_library(${name} MODULE ${source})
    target_link_libraries(${name} PRIVATE kest_flags ${CMAKE_DL_LIBS})
    if(KEST_SANITIZE)
        target_compile_options(${name} PRIVATE -fno-sanitize=all)
        target_link_options(${name} PRIVATE -fno-sanitize=all)
    endif()
endfunction()

# kest_add_test(<name> SOURCES ... LINK ... [ENVIRONMENT ...] [TIMEOUT s] [STATION | PORT_23 | CAGE]): a Qt Test program
# that lives in a directory of its own, because the station keeps option.ini and log.txt beside the executable.
# STATION marks a test that binds the station's or the camera's fixed ports, PORT_23 one that listens on TCP port 23 as
# well, CAGE one that starts the emulated camera's shell. None of these ever shares a network with another one, and where
# the system does not allow what they need they are skipped; scripts/own-network.sh decides when they run.
# Qt's libraries are not instrumented: the thread sanitizer sees neither their locks nor their atomics, and would take
# every queued signal for a race. It leaves out what happens inside such libraries and watches all of our own code.
set(kest_test_environment
    QT_QPA_PLATFORM=offscreen
    TMPDIR=${CMAKE_BINARY_DIR}/tests/tmp
    XDG_RUNTIME_DIR=${CMAKE_BINARY_DIR}/tests/runtime
    TSAN_OPTIONS=ignore_noninstrumented_modules=1:halt_on_error=1:second_deadlock_stack=1:history_size=7:suppressions=${PROJECT_SOURCE_DIR}/cmake/tsan.supp
    ASAN_OPTIONS=detect_stack_use_after_return=1:strict_string_checks=1
    LSAN_OPTIONS=print_suppressions=0:suppressions=${PROJECT_SOURCE_DIR}/cmake/lsan.supp
    UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1)
if(KEST_SANITIZE STREQUAL "thread")
    list(APPEND kest_test_environment LD_PRELOAD=$<TARGET_FILE:kest_test_unseen_wake_ups>)
endif()
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/tests/tmp)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/tests/runtime)
file(CHMOD ${CMAKE_BINARY_DIR}/tests/runtime PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)

# kest_register_test(<name> COMMAND ... [FOLDER dir] [ENVIRONMENT ...] [TIMEOUT s] [STATION] [PORT_23] [CAGE]): what
# kest_add_test does for a command that is no Qt Test program. Temporary files and the desktop's run-time files stay inside
# the build folder.
function(kest_register_test name)
    cmake_parse_arguments(arg "STATION;PORT_23;CAGE" "TIMEOUT;FOLDER" "COMMAND;ENVIRONMENT" ${ARGN})
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 240) # a guard against a hang: the sanitizers make a minute two
    endif()
    if(NOT arg_FOLDER)
        set(arg_FOLDER ${CMAKE_CURRENT_BINARY_DIR})
    endif()
    set(network)
    set(limit TIMEOUT ${arg_TIMEOUT})
    if(arg_STATION OR arg_PORT_23 OR arg_CAGE)
        set(network ${PROJECT_SOURCE_DIR}/scripts/own-network.sh)
        # It may have to wait for its turn first.
        set(limit TIMEOUT 3600 TIMEOUT_AFTER_MATCH "${arg_TIMEOUT}\\;own-network.sh: begins in")
    endif()
    if(arg_PORT_23 OR arg_CAGE)
        list(APPEND network --port-23)
    endif()
    if(arg_CAGE)
        list(APPEND network --cage)
    endif()
    add_test(NAME ${name} COMMAND ${network} ${arg_COMMAND} WORKING_DIRECTORY ${arg_FOLDER})
    set_tests_properties(${name} PROPERTIES
        ${limit}
        SKIP_REGULAR_EXPRESSION "own-network.sh: cannot be run here"
        ENVIRONMENT "${kest_test_environment};${arg_ENVIRONMENT}")
endfunction()

function(kest_add_test name)
    cmake_parse_arguments(arg "STATION;PORT_23;CAGE" "TIMEOUT" "SOURCES;LINK;ENVIRONMENT" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_LINK} Qt::Test kest_flags kest_test_flags)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests/${name})
    set(needs)
    foreach(need STATION PORT_23 CAGE)
        if(arg_${need})
            list(APPEND needs ${need})
        endif()
    endforeach()
    kest_register_test(${name} COMMAND $<TARGET_FILE:${name}> FOLDER ${CMAKE_BINARY_DIR}/tests/${name}
        ENVIRONMENT ${arg_ENVIRONMENT} TIMEOUT ${arg_TIMEOUT} ${needs})
endfunction()
